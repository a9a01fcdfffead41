#include "designer/cell_edit.h"

#include "designer/modify_expression.h"

namespace tessarine {

namespace {

void CopyCells(const Cell *from, Cell *to) {
    int place = 0;
    for (; place < MAX_CELLS - 1 && from[place] != CELL_END; ++place) to[place] = from[place];
    to[place] = CELL_END;
}

} // namespace

int EditCells(Session *session, Cell *cells, const char *title, int mode) {
    uint16_t edited[MAX_CELLS];
    edited[0] = CELL_END;
    const int type = ModifyExp(session, cells, edited, title, mode, nullptr);
    if (type == CELLS_KEPT) return CELLS_KEPT;
    CopyCells(edited, cells);
    return type;
}

} // namespace tessarine
