#include "designer/dialogs/expression_dialog.h"

#include <array>
#include <cstdio>
#include <utility>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/dialogs/calculation_name.h"
#include "designer/dialogs/function_list.h"
#include "designer/dialogs/list_dialogs.h"
#include "form/defaults.h"
#include "form/host_field.h"
#include "form/modified.h"
#include "frame/dialog_controls.h"
#include "frame/dialogs.h"
#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int EXPRESSION_HELP = 3005;
constexpr int DESCRIPTION_LENGTH = 44; // characters that can be typed
constexpr int LONGEST_ROW = 200;

HWND Description(HWND dialog) { return GetDlgItem(dialog, EXPRESSION_DESCRIPTION); }

// ---- start values ------------------------------------------------------------------------------

void ListFunctions(HWND dialog, const Session *session) {
    for (const OperatorRow &row : session->form.OperatorTable)
        if (row.Function && row.HelpLine)
            SendDlgItemMessageA(dialog, EXPRESSION_FUNCTIONS, CB_ADDSTRING, 0,
                                reinterpret_cast<LPARAM>(row.HelpLine));
    SendDlgItemMessageA(dialog, EXPRESSION_FUNCTIONS, CB_SETCURSEL, 0, 0);
}

void ShowExpression(HWND dialog, const Designer &designer) {
    LimitTextItem(dialog, EXPRESSION_TEXT, EXPRESSION_LENGTH);
    SetDlgItemTextA(dialog, EXPRESSION_TEXT, designer.Expression);
    SendDlgItemMessageA(dialog, EXPRESSION_TEXT, EM_SETSEL,
                        static_cast<WPARAM>(designer.ExpressionCaret), designer.ExpressionCaret);
    SendDlgItemMessageA(dialog, EXPRESSION_TEXT, EM_SCROLLCARET, 0, 0);
}

bool Open(HWND dialog, Session *session, LPARAM) {
    const Designer &designer = DesignerOf(session);
    if (Description(dialog)) {
        LimitTextItem(dialog, EXPRESSION_DESCRIPTION, DESCRIPTION_LENGTH);
        ShowCalculationName(dialog, EXPRESSION_DESCRIPTION, session->dialog.EditField.FieldName);
    }
    if (designer.ExpressionTitle) SetWindowTextA(dialog, designer.ExpressionTitle);
    ShowExpression(dialog, designer);
    ListFunctions(dialog, session);
    ShowWindow(GetDlgItem(dialog, EXPRESSION_USER_FIELD), SW_HIDE);
    SetFocus(Description(dialog) ? Description(dialog) : GetDlgItem(dialog, EXPRESSION_TEXT));
    return false;
}

// ---- inserting ---------------------------------------------------------------------------------

void Insert(HWND dialog, const char *text) {
    SendDlgItemMessageA(dialog, EXPRESSION_TEXT, EM_SCROLLCARET, 0, 0);
    SendDlgItemMessageA(dialog, EXPRESSION_TEXT, EM_REPLACESEL, TRUE,
                        reinterpret_cast<LPARAM>(text));
    SetFocus(GetDlgItem(dialog, EXPRESSION_TEXT));
}

template <int Row> void InsertOperator(HWND dialog, Session *session) {
    Insert(dialog, session->form.OperatorTable[Row].Text);
}

// A dialog that comes back to the front selects the whole text of the control that has its focus,
// and an insertion would then replace all of it. So the selection is kept over other dialogs.
class KeptSelection {
public:
    explicit KeptSelection(HWND dialog) : edit_(GetDlgItem(dialog, EXPRESSION_TEXT)) {
        SendMessageA(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&from_),
                     reinterpret_cast<LPARAM>(&to_));
    }
    KeptSelection(const KeptSelection &) = delete;
    KeptSelection &operator=(const KeptSelection &) = delete;
    ~KeptSelection() { SendMessageA(edit_, EM_SETSEL, from_, static_cast<LPARAM>(to_)); }

private:
    HWND edit_;
    DWORD from_ = 0;
    DWORD to_ = 0;
};

bool PickData(HWND dialog, Session *session, FieldRecord *record) {
    const KeptSelection kept(dialog);
    InitField(session, record);
    return PickHostField(session, dialog, record, 0);
}

int AskRow(HWND dialog, Session *session, const char *name, DLGPROC procedure) {
    const KeptSelection kept(dialog);
    return static_cast<int>(RunDialog(session, name, procedure, 0, dialog));
}

void InsertDataField(HWND dialog, Session *session) {
    FieldRecord record;
    if (PickData(dialog, session, &record)) Insert(dialog, record.FieldName);
}

void InsertNamed(HWND dialog, const char *format, const char *name) {
    char text[sizeof FieldRecord::FieldName + 8];
    std::snprintf(text, sizeof text, format, name);
    Insert(dialog, text);
}

void InsertSystemField(HWND dialog, Session *session) {
    const int row = AskRow(dialog, session, "SysParam", SysParam);
    if (row >= 0) InsertNamed(dialog, "SYS->%s", session->form.SystemFields[row].Name);
}

void InsertUserField(HWND dialog, Session *session) {
    const int row = AskRow(dialog, session, "DlgParam", DlgParam);
    if (row >= 0) InsertNamed(dialog, "DLG->%s", session->form.UserFields[row].UserName);
}

// The call alone: a person writes the arguments.
void InsertFunction(HWND dialog, Session *session) {
    const HWND list = GetDlgItem(dialog, EXPRESSION_FUNCTIONS);
    const auto row = static_cast<WPARAM>(SendMessageA(list, CB_GETCURSEL, 0, 0));
    const LRESULT length = SendMessageA(list, CB_GETLBTEXTLEN, row, 0);
    char text[LONGEST_ROW];
    char call[FUNCTION_CALL_SIZE];
    if (length <= 0 || length >= LONGEST_ROW) return;
    SendMessageA(list, CB_GETLBTEXT, row, reinterpret_cast<LPARAM>(text));
    if (FunctionCall(session, text, call)) Insert(dialog, call);
}

// ---- OK ----------------------------------------------------------------------------------------

bool TakeDescription(HWND dialog, Session *session) {
    FieldRecord &field = session->dialog.EditField;
    if (!Description(dialog) || ReadCalculationName(dialog, EXPRESSION_DESCRIPTION, field.FieldName,
                                                    sizeof field.FieldName))
        return true;
    ShowBox(dialog, "A description is required.", "Calculation Field");
    SetFocus(Description(dialog));
    return false;
}

void TakeExpression(HWND dialog, Session *session) {
    if (!TakeDescription(dialog, session)) return;
    Designer &designer = DesignerOf(session);
    GetDlgItemTextA(dialog, EXPRESSION_TEXT, designer.Expression, EXPRESSION_LENGTH);
    EndText(designer.Expression);
    EndDialog(dialog, 1);
    SetModified(session, 1);
}

template <int... Rows> constexpr auto ControlsWith(std::integer_sequence<int, Rows...>) {
    return std::array{
        ControlRow{IDOK, TakeExpression},
        ControlRow{PICK_FIELD, InsertDataField},
        ControlRow{EXPRESSION_SYSTEM_FIELD, InsertSystemField},
        ControlRow{EXPRESSION_USER_FIELD, InsertUserField},
        ControlRow{EXPRESSION_FUNCTIONS, InsertFunction, CBN_SELENDOK},
        ControlRow{EXPRESSION_FIRST_OPERATOR + Rows, InsertOperator<Rows>}...,
    };
}

constexpr int OPERATOR_BUTTONS = EXPRESSION_LAST_OPERATOR - EXPRESSION_FIRST_OPERATOR + 1;
constexpr auto controls = ControlsWith(std::make_integer_sequence<int, OPERATOR_BUTTONS>{});
constexpr DrawnList drawn[] = {{EXPRESSION_FUNCTIONS, FUNCTION_ROW_HEIGHT, DrawFunctionRow}};
constexpr Dialog expression_dialog{EXPRESSION_HELP, Open, controls, 0, nullptr, drawn};

} // namespace

INT_PTR CALLBACK ExpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(expression_dialog, dialog, message, wParam, lParam);
}

} // namespace tessarine
