// What all modal dialogs have from their frame.
#include <gtest/gtest.h>

#include "commands.h"
#include "frame/boundary.h"
#include "frame/dialogs.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

constexpr int HELP_NUMBER = 4711;
constexpr int CANCELLED = 7;

bool fails_to_open;
LPARAM extra_given;

bool Open(HWND dialog, Session *session, LPARAM extra) {
    extra_given = extra;
    if (fails_to_open) FatalError(session, "", 8);
    SetDlgItemTextA(dialog, JUMP_PAGE, "start");
    return true;
}

void Take(HWND dialog, Session *) { EndDialog(dialog, 1); }
void Fail(HWND, Session *session) { FatalError(session, "", 9); }

constexpr ControlRow controls[] = {
    {IDOK, Take}, {JUMP_PAGE, Take, EN_SETFOCUS + 1000}, {PRINT_FIRST_PAGE, Fail}};
constexpr Dialog served{HELP_NUMBER, Open, controls, CANCELLED};

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(served, dialog, message, wParam, lParam);
}

class ServedDialog : public testing::Test {
protected:
    ServedDialog() { fails_to_open = false; }

    // The result of the dialog, or the code of its failure; the routine acts in it.
    int Run(const std::function<void(HWND)> &act) {
        boxes.OnDialog("Page Jump", act);
        return AtEntry(
            session, [&] { return int(RunDialog(session, "JumpParam", Procedure, 42)); },
            [&] { return session->ErrorCode; });
    }

    BareSession session;
    MessageBoxes boxes;
};

} // namespace

TEST_F(ServedDialog, OpensWithItsStartValuesAndItsSession) {
    EXPECT_EQ(Run([&](DialogDriver dialog) {
                  EXPECT_EQ(dialog.Text(JUMP_PAGE), "start");
                  EXPECT_EQ(DialogSession(dialog), static_cast<Session *>(session));
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_EQ(extra_given, 42);
}

TEST_F(ServedDialog, CancelGivesItsCancelResult) {
    EXPECT_EQ(Run([](DialogDriver dialog) { dialog.Press(IDCANCEL); }), CANCELLED);
}

TEST_F(ServedDialog, ControlActsByItsOwnNotificationAlone) {
    EXPECT_EQ(Run([](DialogDriver dialog) {
                  dialog.Press(JUMP_PAGE, 3); // another code: nothing
                  dialog.Press(5555);         // no control of its: nothing
                  dialog.Press(JUMP_PAGE, EN_SETFOCUS + 1000);
              }),
              1);
}

TEST_F(ServedDialog, FailureOfAControlEndsItAndGoesOnBehindIt) {
    EXPECT_EQ(Run([](DialogDriver dialog) { dialog.Press(PRINT_FIRST_PAGE); }), 9);
}

TEST_F(ServedDialog, FailureOfItsStartEndsIt) {
    fails_to_open = true;
    EXPECT_EQ(Run([](HWND) { ADD_FAILURE() << "the dialog opened"; }), 8);
}

TEST_F(ServedDialog, FailureWithNoEntryPointEndsItAsCancelled) {
    boxes.OnDialog("Page Jump", [](DialogDriver dialog) { dialog.Press(PRINT_FIRST_PAGE); });
    EXPECT_EQ(RunDialog(session, "JumpParam", Procedure, 0), CANCELLED);
}
