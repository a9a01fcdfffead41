#include "designer/dialogs/list_dialogs.h"

#include <cstring>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/dialogs/function_list.h"
#include "form/modified.h"
#include "frame/dialog_controls.h"
#include "frame/dialogs.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int NEW_SECTION_HELP = 3002;
constexpr int SYSTEM_FIELD_HELP = 3003;
constexpr int OPERATORS_HELP = 3006;
constexpr int FUNCTION_HELP = 3007;
constexpr int USER_FIELD_HELP = 3008;
constexpr int SUMMARY_HELP = 3014;
constexpr int NOTHING_CHOSEN = -1;
constexpr int SUMMARY_TYPES = 6;
constexpr int MODE_OF_FOOTERS = 1; // the expression mode in which restricted operators may be used

void EndModified(HWND dialog, Session *session, int result) {
    EndDialog(dialog, result);
    SetModified(session, 1);
}

void ChooseRow(HWND dialog, Session *session) {
    EndModified(dialog, session, SelectedListRow(dialog));
}

constexpr ControlRow row_controls[] = {{IDOK, ChooseRow}, {LIST_CHOICE, ChooseRow, LBN_DBLCLK}};

// ---- sections, and summaries -------------------------------------------------------------------

bool ListNames(HWND dialog, Session *, LPARAM names) {
    for (auto name = reinterpret_cast<const char *const *>(names); name && *name; ++name)
        AddListRow(dialog, *name);
    SelectListRow(dialog, 0);
    return true;
}

bool ListSummaries(HWND dialog, Session *session, LPARAM chosen) {
    for (const char *name : session->form.SummaryNames) AddListRow(dialog, name);
    SelectListRow(dialog, chosen >= 0 && chosen < SUMMARY_TYPES ? static_cast<int>(chosen) : 0);
    return true;
}

constexpr Dialog new_section_dialog{NEW_SECTION_HELP, ListNames, row_controls, NOTHING_CHOSEN};
constexpr Dialog summary_dialog{SUMMARY_HELP, ListSummaries, row_controls};

// ---- system fields: the list sorts, so that each text carries its row --------------------------

constexpr const char *system_field_words[] = {"Page Number",  "System Date",     "System Time",
                                              "Record Count", "Paragraph Break", "Report Name"};

bool IsOffered(const Session *session, int row) {
    return row != SYSTEM_PARA_BREAK && !(session->LabelMode && row == SYSTEM_PAGE);
}

bool ListSystemFields(HWND dialog, Session *session, LPARAM) {
    for (int row = SYSTEM_PAGE; row <= SYSTEM_REPORT_NAME; ++row) {
        if (!IsOffered(session, row)) continue;
        const bool label_name = session->LabelMode && row == SYSTEM_REPORT_NAME;
        const int place = AddListRow(dialog, label_name ? "Label Name" : system_field_words[row]);
        SendDlgItemMessageA(dialog, LIST_CHOICE, LB_SETITEMDATA, static_cast<WPARAM>(place), row);
    }
    SelectListRow(dialog, 0);
    return true;
}

void ChooseSystemField(HWND dialog, Session *session) {
    const auto place = static_cast<WPARAM>(SelectedListRow(dialog));
    const LRESULT row = SendDlgItemMessageA(dialog, LIST_CHOICE, LB_GETITEMDATA, place, 0);
    EndModified(dialog, session, static_cast<int>(row));
}

constexpr ControlRow system_controls[] = {{IDOK, ChooseSystemField},
                                          {LIST_CHOICE, ChooseSystemField, LBN_DBLCLK}};
constexpr Dialog system_field_dialog{SYSTEM_FIELD_HELP, ListSystemFields, system_controls,
                                     NOTHING_CHOSEN};

// ---- texts of the chosen row -------------------------------------------------------------------

constexpr int LONGEST_ROW = 200;
constexpr UINT SECOND_COLUMN = 76; // dialog units: where a function's explanation begins

// The text of the chosen row; empty when none is chosen.
void ReadRow(HWND dialog, char (&text)[LONGEST_ROW]) {
    text[0] = 0;
    const auto row = static_cast<WPARAM>(SelectedListRow(dialog));
    const LRESULT length = SendDlgItemMessageA(dialog, LIST_CHOICE, LB_GETTEXTLEN, row, 0);
    if (length < 0 || length >= LONGEST_ROW) return;
    SendDlgItemMessageA(dialog, LIST_CHOICE, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text));
}

bool ListUserFields(HWND dialog, Session *session, LPARAM) {
    for (const UserFieldRecord &user : session->form.UserFields)
        if (user.InUse) AddListRow(dialog, user.UserName);
    SelectListRow(dialog, 0);
    return true;
}

int UserFieldNamed(const Session *session, const char *name) {
    for (int row = 0; row < MAX_USER_FIELDS; ++row) {
        const UserFieldRecord &user = session->form.UserFields[row];
        if (user.InUse && !lstrcmpiA(user.UserName, name)) return row;
    }
    return NOTHING_CHOSEN;
}

void ChooseUserField(HWND dialog, Session *session) {
    char name[LONGEST_ROW];
    ReadRow(dialog, name);
    EndDialog(dialog, *name ? UserFieldNamed(session, name) : NOTHING_CHOSEN);
}

constexpr ControlRow user_controls[] = {{IDOK, ChooseUserField},
                                        {LIST_CHOICE, ChooseUserField, LBN_DBLCLK}};
constexpr Dialog user_field_dialog{USER_FIELD_HELP, ListUserFields, user_controls, NOTHING_CHOSEN};

// ---- operators and functions -------------------------------------------------------------------

bool MayUse(Session *session, const OperatorRow &row) {
    return !row.Restricted || DesignerOf(session).ExpressionMode == MODE_OF_FOOTERS;
}

bool ListOperators(HWND dialog, Session *session, LPARAM) {
    for (const OperatorRow &row : session->form.OperatorTable)
        if (!row.Function && MayUse(session, row)) AddListRow(dialog, row.Text);
    SelectListRow(dialog, 0);
    return true;
}

void ChooseOperator(HWND dialog, Session *session) {
    char text[LONGEST_ROW];
    ReadRow(dialog, text);
    CopyText(text, session->TextBuffer, sizeof session->TextBuffer);
    EndDialog(dialog, 1);
}

bool ListFunctions(HWND dialog, Session *session, LPARAM) {
    const UINT second_column = SECOND_COLUMN;
    SendDlgItemMessageA(dialog, LIST_CHOICE, LB_SETTABSTOPS, 1,
                        reinterpret_cast<LPARAM>(&second_column));
    for (const OperatorRow &row : session->form.OperatorTable)
        if (row.Function && row.HelpLine && MayUse(session, row)) AddListRow(dialog, row.HelpLine);
    SelectListRow(dialog, 0);
    return true;
}

void ChooseFunction(HWND dialog, Session *session) {
    char text[LONGEST_ROW];
    char call[FUNCTION_CALL_SIZE];
    ReadRow(dialog, text);
    const bool found = FunctionCall(session, text, call);
    if (found) CopyText(call, session->TextBuffer, sizeof session->TextBuffer);
    EndDialog(dialog, found);
}

constexpr ControlRow operator_controls[] = {{IDOK, ChooseOperator},
                                            {LIST_CHOICE, ChooseOperator, LBN_DBLCLK}};
constexpr ControlRow function_controls[] = {{IDOK, ChooseFunction},
                                            {LIST_CHOICE, ChooseFunction, LBN_DBLCLK}};
constexpr Dialog operator_dialog{OPERATORS_HELP, ListOperators, operator_controls};
constexpr Dialog function_dialog{FUNCTION_HELP, ListFunctions, function_controls};

} // namespace

INT_PTR CALLBACK NewSecParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(new_section_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK SysParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(system_field_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK DlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(user_field_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK SumParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(summary_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK OpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(operator_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK FuctParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(function_dialog, dialog, message, wParam, lParam);
}

} // namespace tessarine
