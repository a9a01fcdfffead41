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

int EditCells(Session *session, const Cell *cells, Cell *edited, const char *title, int mode) {
    uint16_t made[MAX_CELLS];
    made[0] = CELL_END;
    const int type = ModifyExp(session, cells, made, title, mode, nullptr);
    if (type == CELLS_KEPT) return CELLS_KEPT;
    CopyCells(made, edited);
    return type;
}

} // namespace tessarine
