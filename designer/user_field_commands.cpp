#include "designer/user_field_commands.h"

#include "designer/dialogs/list_dialogs.h"
#include "designer/dialogs/text_dialogs.h"
#include "form/user_fields.h"
#include "frame/dialogs.h"

namespace tessarine {

namespace {

constexpr int NONE_CHOSEN = -1;

} // namespace

int ChooseUserField(Session *session) {
    if (!HasUserFields(session)) return NONE_CHOSEN;
    const INT_PTR row = RunDialog(session, "DlgParam", DlgParam, 0);
    const bool chosen = session->State != STATE_ENDING && row >= 0 && row < MAX_USER_FIELDS &&
                        session->form.UserFields[row].InUse;
    return chosen ? static_cast<int>(row) : NONE_CHOSEN;
}

void CreateUserField(Session *session) {
    const int row = NewUserField(session);
    if (row == NONE_CHOSEN) return;
    session->dialog.DialogRow = row;
    if (RunDialog(session, "CreateDlgParam", CreateDlgParam, 0) != DIALOG_OK) return;
    if (session->State != STATE_ENDING) SettleUserField(session, row);
}

void ModifyUserField(Session *session) {
    const int row = ChooseUserField(session);
    if (row == NONE_CHOSEN) return;
    session->dialog.DialogRow = row;
    RunDialog(session, "ModifyDlgParam", ModifyDlgParam, 0);
}

void RemoveUserField(Session *session) {
    const int row = ChooseUserField(session);
    if (row != NONE_CHOSEN) DeleteUserField(session, row);
}

} // namespace tessarine
