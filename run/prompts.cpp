#include "run/prompts.h"

#include <cstdio>
#include <cstring>

#include "commands.h"
#include "expr/date_text.h"
#include "form/modified.h"
#include "frame/dialogs.h"
#include "frame/message_box.h"
#include "frame/text.h"
#include "frame/text_numbers.h"

namespace tessarine {

namespace {

constexpr int LAST_PLACE = 12; // tells the dialog that it asks the last field
constexpr int PROMPT_HELP = 3016;
constexpr int LONGEST_ANSWER = 49; // characters

bool FieldStands(const Session *session) {
    return session->dialog.DialogRow >= 0 && session->dialog.DialogRow < MAX_USER_FIELDS;
}

UserFieldRecord *AskedField(Session *session) {
    return &session->form.UserFields[session->dialog.DialogRow];
}

// ---- answers -----------------------------------------------------------------------------------

bool TakeWhole(Session *, UserFieldRecord *user) {
    user->LongValue = WholeNumberIn(user->UserText);
    return true;
}

bool TakeDouble(Session *, UserFieldRecord *user) {
    user->DoubleValue = NumberIn(user->UserText);
    return true;
}

// The answer is looked for within the lists of words, so parts of a word count as well, and an
// empty answer counts as true.
bool TakeLogical(Session *session, UserFieldRecord *user) {
    RepStrTrim(UpperText(user->UserText));
    if (FindText("YES,TRUE,Y,1", user->UserText)) {
        user->LongValue = 1;
    } else if (FindText("NO,FALSE,N,0", user->UserText)) {
        user->LongValue = 0;
    } else {
        ShowSessionBox(session, "Valid entries: YES,NO,TRUE,FALSE,Y,N,1,0");
        return false;
    }
    return true;
}

bool TakeDate(Session *session, UserFieldRecord *user) {
    char quoted[sizeof user->UserText + 3];
    const bool own_quotes = user->UserText[0] == '"';
    std::snprintf(quoted, sizeof quoted, own_quotes ? "%s" : "\"%s\"", user->UserText);
    int32_t date = 0;
    const DateShape shape = ParseDateText(session, quoted, &date);
    if (shape == DateShape::Valid) {
        user->LongValue = date;
        return true;
    }
    ShowSessionBox(session, "Invalid Date Format/Value!");
    return false;
}

struct AnswerRow {
    int value_type;
    bool (*take)(Session *session, UserFieldRecord *user);
};

constexpr AnswerRow answer_rows[] = {
    {TYPE_NUMERIC, TakeWhole},
    {TYPE_DOUBLE, TakeDouble},
    {TYPE_LOGICAL, TakeLogical},
    {TYPE_DATE, TakeDate},
};

bool TakeAnswer(Session *session, UserFieldRecord *user) {
    for (const AnswerRow &row : answer_rows)
        if (row.value_type == user->ValueType) return row.take(session, user);
    return true;
}

// ---- the dialog --------------------------------------------------------------------------------

// The input is as wide as the field, within the dialog, and stands centred. Its new top is
// counted from the window's frame, which puts it lower by the height of the title bar.
void PlaceInput(HWND dialog, const UserFieldRecord &user) {
    const HWND input = GetDlgItem(dialog, PROMPT_INPUT);
    RECT outer{};
    RECT place{};
    GetWindowRect(dialog, &outer);
    GetWindowRect(input, &place);
    const int frame_x = GetSystemMetrics(SM_CXDLGFRAME);
    const int frame_y = GetSystemMetrics(SM_CYDLGFRAME);
    const int inner = outer.right - outer.left - 2 * frame_x;
    int width = (user.UserWidth + 1) * LOWORD(GetDialogBaseUnits());
    if (width > inner) width = inner;
    MoveWindow(input, (inner - width) / 2, place.top - outer.top - frame_y, width,
               place.bottom - place.top, FALSE);
}

bool Open(HWND dialog, Session *session, LPARAM place) {
    const UserFieldRecord &user = *AskedField(session);
    SetDlgItemTextA(dialog, PROMPT_TEXT, user.UserPrompt);
    PlaceInput(dialog, user);
    SetDlgItemTextA(dialog, PROMPT_INPUT, user.UserText);
    if (place == 0 || session->dialog.DialogRow == 0)
        SetDlgItemTextA(dialog, PROMPT_PREVIOUS, "Cancel");
    if (place == LAST_PLACE) SetDlgItemTextA(dialog, PROMPT_NEXT, "Ok");
    SetFocus(GetDlgItem(dialog, PROMPT_INPUT));
    return false;
}

void ReadInput(HWND dialog, Session *session) {
    UserFieldRecord *user = AskedField(session);
    GetDlgItemTextA(dialog, PROMPT_INPUT, user->UserText, LONGEST_ANSWER + 1);
}

void GoOn(HWND dialog, Session *session) {
    ReadInput(dialog, session);
    EndDialog(dialog, 1);
    SetModified(session, 1);
}

void GoBack(HWND dialog, Session *session) {
    ReadInput(dialog, session);
    EndDialog(dialog, 0);
}

constexpr ControlRow controls[] = {
    {PROMPT_NEXT, GoOn}, {PROMPT_PREVIOUS, GoBack}, {IDCANCEL, GoBack}};
constexpr Dialog prompt_dialog{PROMPT_HELP, Open, controls, 0, FieldStands};

// ---- the order ---------------------------------------------------------------------------------

void ListPrompts(Session *session) {
    RunState &run = session->run;
    run.PromptTotal = 0;
    for (int order = 0; order < MAX_USER_FIELDS; ++order)
        for (int row = 0; row < MAX_USER_FIELDS; ++row) {
            const UserFieldRecord &user = session->form.UserFields[row];
            if (user.InUse && user.PromptOrder == order) run.PromptRows[run.PromptTotal++] = row;
        }
}

} // namespace

INT_PTR CALLBACK DlgInputParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(prompt_dialog, dialog, message, wParam, lParam);
}

int AskUserFields(Session *session) {
    ListPrompts(session);
    const RunState &run = session->run;
    const int total = run.PromptTotal;
    for (int index = 0; index < total;) {
        session->dialog.DialogRow = run.PromptRows[index];
        const int place = index == total - 1 ? LAST_PLACE : index;
        if (RunDialog(session, "DlgInputParam", DlgInputParam, place) != 1) {
            if (index == 0 || session->view.WindowGone) return 0;
            --index;
        } else if (TakeAnswer(session, &session->form.UserFields[run.PromptRows[index]])) {
            ++index;
        }
    }
    return 1;
}

} // namespace tessarine
