#include "designer/dialogs/text_dialogs.h"

#include "commands.h"
#include "designer/dialogs/calculation_name.h"
#include "form/modified.h"
#include "form/user_fields.h"
#include "frame/dialog_controls.h"
#include "frame/dialogs.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int TEXT_HELP = 3004;
constexpr int CREATE_USER_FIELD_HELP = 3009;
constexpr int MODIFY_USER_FIELD_HELP = 3010;
constexpr int LONGEST_PROMPT = 49; // characters

void EndOk(HWND dialog, Session *session) {
    EndDialog(dialog, 1);
    SetModified(session, 1);
}

// What can't be taken keeps the dialog open.
void StayAt(HWND dialog, int control) { SetFocus(GetDlgItem(dialog, control)); }

// ---- a label's text ----------------------------------------------------------------------------

bool OpenLabel(HWND dialog, Session *, LPARAM) {
    LimitTextItem(dialog, TEXT_INPUT, MAX_LABEL_TEXT);
    return true;
}

void TakeLabel(HWND dialog, Session *session) {
    char text[MAX_LABEL_TEXT + 1];
    ReadTextItem(dialog, TEXT_INPUT, text);
    RepStrTrim(text);
    if (!*text) return StayAt(dialog, TEXT_INPUT);
    CopyText(text, session->TextBuffer, sizeof session->TextBuffer);
    EndOk(dialog, session);
}

constexpr ControlRow label_controls[] = {{IDOK, TakeLabel}};
constexpr Dialog label_dialog{TEXT_HELP, OpenLabel, label_controls};

// ---- a calculation field's name ----------------------------------------------------------------

bool OpenName(HWND dialog, Session *session, LPARAM) {
    EndText(session->TextBuffer);
    if (*session->TextBuffer) {
        ShowCalculationName(dialog, TEXT_INPUT, session->TextBuffer);
        SetWindowTextA(dialog, "Enter New Field Name");
    }
    return true;
}

void TakeName(HWND dialog, Session *session) {
    if (ReadCalculationName(dialog, TEXT_INPUT, session->TextBuffer, sizeof session->TextBuffer))
        EndOk(dialog, session);
    else
        StayAt(dialog, TEXT_INPUT);
}

constexpr ControlRow name_controls[] = {{IDOK, TakeName}};
constexpr Dialog name_dialog{TEXT_HELP, OpenName, name_controls};

// ---- user fields -------------------------------------------------------------------------------

constexpr ValueRow user_types[] = {
    {USER_FIELD_TEXT, TYPE_TEXT},     {USER_FIELD_NUMERIC, TYPE_NUMERIC},
    {USER_FIELD_DOUBLE, TYPE_DOUBLE}, {USER_FIELD_LOGICAL, TYPE_LOGICAL},
    {USER_FIELD_DATE, TYPE_DATE},
};

bool UserFieldStands(const Session *session) {
    return session->dialog.DialogRow >= 0 && session->dialog.DialogRow < MAX_USER_FIELDS;
}

UserFieldRecord &EditedUserField(Session *session) {
    return session->form.UserFields[session->dialog.DialogRow];
}

// The row may be taken by another new field while the dialog asks for this one's name.
bool NewUserFieldStands(const Session *session) {
    return UserFieldStands(session) && !session->form.UserFields[session->dialog.DialogRow].InUse;
}

bool OpenCreation(HWND dialog, Session *session, LPARAM) {
    const UserFieldRecord &user = EditedUserField(session);
    LimitTextItem(dialog, TEXT_INPUT, MAX_USER_NAME);
    SetDlgItemTextA(dialog, TEXT_INPUT, user.UserName);
    ShowChoice(dialog, user_types, user.ValueType);
    return true;
}

void TakeCreation(HWND dialog, Session *session) {
    char name[MAX_USER_NAME + 1];
    ReadTextItem(dialog, TEXT_INPUT, name);
    if (!NameUserField(session, dialog, session->dialog.DialogRow, name))
        return StayAt(dialog, TEXT_INPUT);
    UserFieldRecord &user = EditedUserField(session);
    user.ValueType = static_cast<int16_t>(ReadChoice(dialog, user_types, user.ValueType));
    EndOk(dialog, session);
}

bool OpenPrompt(HWND dialog, Session *session, LPARAM) {
    const UserFieldRecord &user = EditedUserField(session);
    SetWindowTextA(dialog, user.UserName);
    LimitTextItem(dialog, TEXT_INPUT, LONGEST_PROMPT);
    SetDlgItemTextA(dialog, TEXT_INPUT, user.UserPrompt);
    SetDlgItemInt(dialog, USER_FIELD_ORDER, user.PromptOrder, FALSE);
    SetDlgItemInt(dialog, USER_FIELD_WIDTH, static_cast<UINT>(user.UserWidth), TRUE);
    return true;
}

void TakePrompt(HWND dialog, Session *session) {
    UserFieldRecord &user = EditedUserField(session);
    char prompt[LONGEST_PROMPT + 1];
    ReadTextItem(dialog, TEXT_INPUT, prompt);
    CopyText(prompt, user.UserPrompt, sizeof user.UserPrompt);
    user.PromptOrder = static_cast<uint16_t>(ReadWholeItem(dialog, USER_FIELD_ORDER, UINT16_MAX));
    user.UserWidth = static_cast<int16_t>(ReadWholeItem(dialog, USER_FIELD_WIDTH));
    EndOk(dialog, session);
}

constexpr ControlRow creation_controls[] = {{IDOK, TakeCreation}};
constexpr Dialog creation_dialog{CREATE_USER_FIELD_HELP, OpenCreation, creation_controls, 0,
                                 NewUserFieldStands};
constexpr ControlRow prompt_controls[] = {{IDOK, TakePrompt}};
constexpr Dialog prompt_dialog{MODIFY_USER_FIELD_HELP, OpenPrompt, prompt_controls, 0,
                               UserFieldStands};

} // namespace

INT_PTR CALLBACK NewLabelParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(label_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK FieldNameParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(name_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK CreateDlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(creation_dialog, dialog, message, wParam, lParam);
}

INT_PTR CALLBACK ModifyDlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(prompt_dialog, dialog, message, wParam, lParam);
}

} // namespace tessarine
