#include "designer/cell_edit.h"

#include "designer/modify_expression.h"
#include "expr/validate.h"

namespace tessarine {

int EditCells(Session *session, const Cell *cells, Cell *edited, const char *title, int mode) {
    uint16_t made[MAX_CELLS];
    made[0] = CELL_END;
    const int type = ModifyExp(session, cells, made, title, mode, nullptr);
    if (type == CELLS_KEPT) return CELLS_KEPT;
    CopyCells(made, edited);
    return type;
}

} // namespace tessarine
