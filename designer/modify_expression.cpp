#include "designer/modify_expression.h"

#include "designer/designer_state.h"
#include "designer/dialogs/expression_dialog.h"
#include "expr/symbols.h"
#include "expr/validate.h"
#include "form/field_table.h"
#include "frame/dialogs.h"

namespace tessarine {

namespace {

constexpr int MODE_WITH_DESCRIPTION = 3;
constexpr int CANCELLED = -1;
constexpr INT_PTR DIALOG_CANCEL = 0;

// An open dialog may have opened this work area for another expression, so all of it but the text
// is laid out anew each time.
INT_PTR Ask(Session *session, const char *title, int mode, int caret, HWND owner) {
    Designer &designer = DesignerOf(session);
    designer.ExpressionMode = mode;
    designer.ExpressionCaret = caret;
    designer.ExpressionTitle = title;
    const char *name = mode == MODE_WITH_DESCRIPTION ? "ExpParamField" : "ExpParam";
    const INT_PTR result = RunDialog(session, name, ExpParam, 0, owner);
    designer.ExpressionTitle = nullptr; // the caller's
    return result;
}

// The type of what the dialog holds, with its cells; 0 after a message, with none and the place
// where reading stopped.
int Compile(Session *session, Cell *cells, int mode, int32_t *caret) {
    int type = 0;
    int32_t position = 0;
    if (GenerateSymbols(session, DesignerOf(session).Expression, cells, &position, mode))
        type = ValidateExp(session, cells, mode);
    else
        *caret = position;
    if (!type) ReleaseSymbols(session, cells);
    return type;
}

} // namespace

int ModifyExp(Session *session, const Cell *tokens, Cell *newTokens, const char *title, int mode,
              HWND owner) {
    int32_t caret =
        ExpressionText(session, tokens, DesignerOf(session).Expression, EXPRESSION_LENGTH);
    for (;;) {
        const INT_PTR answer = Ask(session, title, mode, caret, owner);
        if (answer == DIALOG_OK) {
            if (const int type = Compile(session, newTokens, mode, &caret)) {
                ReleaseSymbols(session, tokens);
                return type;
            }
        } else {
            CopyCells(tokens, newTokens);
            // an old expression that no longer holds has to be repaired, while there is a dialog
            if (answer != DIALOG_CANCEL || ValidateExp(session, newTokens, mode)) return CANCELLED;
        }
        if (session->State == STATE_ENDING) return CANCELLED;
    }
}

} // namespace tessarine
