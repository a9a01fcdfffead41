#include "output/device_choice.h"

#include <gtest/gtest.h>

#include <cstring>

#include "commands.h"
#include "frame/session_table.h"
#include "tests/support/help_call.h"
#include "tests/support/message_boxes.h"
#include "tests/support/preview_run.h"

using namespace tessarine;

namespace {

// A run that asks for its device; row -1 cancels the question.
class DeviceChoice : public PreviewRun {
protected:
    void SetUp() override { run.params.Device = 'A'; }
    void Answer(int row, int button = IDOK, int notification = 0) {
        boxes.OnDialog("Output Device", [=, this](DialogDriver dialog) {
            rows = dialog.Rows(LIST_CHOICE);
            selected = dialog.Selected(LIST_CHOICE);
            dialog.Select(LIST_CHOICE, row);
            dialog.Press(button, notification);
        });
    }
    Session *Opened() const { return GetSessionPointer(nullptr, run.params.SessionId); }

    std::vector<std::string> rows;
    int selected = -2;
};

} // namespace

TEST_F(DeviceChoice, ScreenIsTheFirstOfThree) {
    Answer(0);
    Start();
    EXPECT_EQ(rows, (std::vector<std::string>{"Screen", "Printer", "Disk File"}));
    EXPECT_EQ(selected, 0);
    EXPECT_TRUE(session->OutputToScreen);
    EXPECT_EQ(run.params.Device, 'A');
    Finish(2);
}

TEST_F(DeviceChoice, DoubleClickCountsAsOk) {
    Answer(0, LIST_CHOICE, LBN_DBLCLK);
    Start();
    EXPECT_TRUE(session->OutputToScreen);
}

TEST_F(DeviceChoice, PrinterIsTheSecond) {
    Answer(1);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_TRUE(Opened()->OutputToPrinter);
    EXPECT_EQ(run.Finish(), 0);
}

TEST_F(DeviceChoice, DiskFileAsksForItsName) {
    TemporaryFolder folder;
    Answer(2);
    boxes.AnswerDialog("Report File Name Selection", FILE_NAME, folder.Path("MADE"), IDOK);
    const std::string given = run.params.OutputFile;
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_TRUE(Opened()->OutputToFile);
    EXPECT_EQ(run.params.Device, 'A');
    EXPECT_EQ(run.params.OutputFile, given);
    ASSERT_EQ(run.Feed({{"NAME", "record"}}), 0);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_FALSE(ReadWholeFile(folder.Path("MADE.FRC")).empty());
}

TEST_F(DeviceChoice, DiskFileThatStandsUnderItsWholeNameIsReplacedOnConsentAlone) {
    TemporaryFolder folder;
    WriteWholeFile(folder.Path("MADE.FRC"), "earlier");
    Answer(2);
    int dialogs = 0;
    boxes.OnDialog("Report File Name Selection", [&](DialogDriver dialog) {
        dialog.SetText(FILE_NAME, folder.Path("MADE"));
        dialog.Press(++dialogs == 1 ? IDOK : IDCANCEL);
    });
    boxes.Answer(IDNO);
    EXPECT_EQ(run.Start(), CODE_NO_OUTPUT_FILE);
    EXPECT_EQ(dialogs, 2);
    EXPECT_EQ(ReadWholeFile(folder.Path("MADE.FRC")), "earlier");
}

TEST_F(DeviceChoice, CancelGives2AndCancelOfTheFileName19) {
    Answer(0, IDCANCEL);
    EXPECT_EQ(run.Start(), 2);
    Answer(2);
    boxes.AnswerDialog("Report File Name Selection", IDCANCEL);
    EXPECT_EQ(run.Start(), 19);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(DeviceChoice, HelpIs3015AndItAndOtherNotificationsLeaveTheDialogOpen) {
    bool open_behind = false;
    const HelpCall help;
    boxes.OnDialog("Output Device", [&](DialogDriver dialog) {
        dialog.Send(DIALOG_HELP);
        dialog.Send(LIST_CHOICE, LBN_SELCHANGE);
        open_behind = IsWindow(dialog);
        dialog.Press(IDCANCEL);
    });
    EXPECT_EQ(run.Start(), 2);
    EXPECT_TRUE(open_behind);
    EXPECT_EQ(help.calls, 1);
    EXPECT_EQ(help.command, 1u);
    EXPECT_EQ(help.number, 3015u);
    EXPECT_EQ(help.file, "REP.HLP>SECOND");
}
