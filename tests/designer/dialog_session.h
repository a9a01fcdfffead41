// A designer on whose form dialogs are run and driven.
#pragma once

#include <cstring>
#include <functional>
#include <string>
#include <utility>

#include "commands.h"
#include "form/user_fields.h"
#include "frame/dialogs.h"
#include "frame/text.h"
#include "tests/support/designer_session.h"
#include "tests/support/help_call.h"

class DialogSession : public DesignerSession {
protected:
    void SetUp() override { ASSERT_EQ(StartOn(TwoSections()), 0) << boxes.LastText(); }

    // Runs a template with its procedure; the routine acts in it and ends it.
    int Run(const char *name, DLGPROC procedure, const std::string &title,
            const std::function<void(DialogDriver)> &act, LPARAM extra = 0) {
        bool opened = false;
        boxes.OnDialog(title, [&](HWND dialog) {
            if (std::exchange(opened, true)) return; // it comes up again behind a box
            ShowWindow(dialog, SW_SHOW); // it may come here before its own loop shows it
            act(dialog);
        });
        const INT_PTR result = tessarine::RunDialog(session, name, procedure, extra);
        EXPECT_TRUE(opened) << name;
        EXPECT_EQ(GetFocus(), Window()) << name;
        return static_cast<int>(result);
    }

    // The number with which the dialog's Help button calls the help; the dialog stays open.
    static int HelpNumberOf(DialogDriver dialog) {
        const HelpCall help;
        dialog.Send(DIALOG_HELP);
        EXPECT_EQ(HelpCall::window, tessarine::DialogSession(dialog)->ParentWindow);
        EXPECT_EQ(HelpCall::file, "REP.HLP>SECOND");
        EXPECT_EQ(HelpCall::command, UINT{HELP_CONTEXT});
        EXPECT_TRUE(IsWindow(dialog));
        return static_cast<int>(HelpCall::number);
    }

    bool Modified() const { return session->form.FormModified; }
    void PutText(const char *text) {
        tessarine::CopyText(text, session->TextBuffer, sizeof session->TextBuffer);
    }
    void AddUserField(int row, const char *name, int type = TYPE_TEXT) {
        UserFieldRecord &user = session->form.UserFields[row];
        user = {};
        tessarine::CopyText(name, user.UserName, sizeof user.UserName);
        user.ValueType = static_cast<int16_t>(type);
        tessarine::SettleUserField(session, row);
    }
};
