#include "designer/ending.h"

#include <cstring>

#include "commands.h"
#include "designer/designer_state.h"
#include "form/modified.h"
#include "frame/boundary.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "tests/support/designer_session.h"
#include "tests/support/failing_call.h"
#include "tests/support/system_objects.h"

using namespace tessarine;

namespace {

class EndOfDesigner : public DesignerSession {
protected:
    void SetUp() override {
        ASSERT_EQ(StartOn(TwoSections()), CODE_DONE) << boxes.LastText();
        std::strcpy(session->form.Header.ReportName, "Sales");
        path = session->CurrentFile;
        record = reinterpret_cast<SessionHead *>(session);
    }
    ~EndOfDesigner() override { // a window may be left without a session
        if (IsWindow(Window())) DestroyWindow(Window());
    }
    void Modify() {
        Item("Alpha").TextColor = 0x123456;
        SetModified(session, 1);
    }

public:
    bool Stands() const { return SessionStands(session); }

protected:
    bool FileHasTheChange() const {
        return ReadWholeFile(path).find(std::string("\x56\x34\x12", 3)) != std::string::npos;
    }
    int Told(UINT message) const { return host.Count(message); }

    std::string path;
    SessionHead *record = nullptr;
};

} // namespace

// ---- the question ----

TEST_F(EndOfDesigner, UnmodifiedFormClosesWithoutAQuestion) {
    EXPECT_EQ(Send(WM_CLOSE), 0);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_FALSE(Stands());
    EXPECT_FALSE(IsWindow(Window()));
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 1);
}

TEST_F(EndOfDesigner, QuestionHasThreeButtonsAndTheReportsName) {
    Modify();
    boxes.Answer(IDCANCEL);
    Send(WM_CLOSE);
    EXPECT_EQ(boxes.Log()[0], (BoxRecord{"File Modified",
                                         "Do you wish to save the modifications to \"Sales\"?",
                                         {IDCANCEL, IDYES, IDNO}}));
}

TEST_F(EndOfDesigner, CancelKeepsAllAndTellsTheHost) {
    Modify();
    boxes.Answer(IDCANCEL);
    Send(WM_CLOSE);
    EXPECT_TRUE(Stands());
    EXPECT_TRUE(IsWindowVisible(Window()));
    EXPECT_EQ(record->Form.DesignerOpen, 1U);
    EXPECT_EQ(Told(MESSAGE_NO_RESULT), 1);
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 0);
    Send(WM_VSCROLL, SB_LINEDOWN); // and it goes on
    EXPECT_EQ(record->Form.DesignerModified, 1U);
    EXPECT_GT(session->view.OriginY, 0);
}

TEST_F(EndOfDesigner, NoLosesTheChange) {
    Modify();
    boxes.Answer(IDNO);
    Send(WM_CLOSE);
    EXPECT_FALSE(Stands());
    EXPECT_FALSE(FileHasTheChange());
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 1);
}

TEST_F(EndOfDesigner, YesSavesFirst) {
    Modify();
    boxes.Answer(IDYES);
    Send(WM_CLOSE);
    EXPECT_FALSE(Stands());
    EXPECT_TRUE(FileHasTheChange());
}

TEST_F(EndOfDesigner, SaveThatIsRefusedKeepsTheForm) {
    Modify();
    edit_allowed = 0;
    boxes.Answer(IDYES);
    Send(WM_CLOSE);
    EXPECT_EQ(boxes.LastText(), "Read-Only form cannot be saved");
    EXPECT_TRUE(Stands());
    EXPECT_EQ(Told(MESSAGE_NO_RESULT), 1);
}

// The save has run and told of its error; the form would be lost behind it.
TEST_F(EndOfDesigner, SaveThatMeetsAnErrorKeepsTheForm) {
    Modify();
    boxes.Answer(IDYES);
    {
        const FailingCall full("WriteFile", WriteFile, FALSE, 1, EVERY_CALL);
        Send(WM_CLOSE);
    }
    EXPECT_EQ(boxes.LastText(), "Error writing to output file");
    EXPECT_TRUE(Stands());
    EXPECT_EQ(session->form.FormModified, 1U);
    EXPECT_EQ(Told(MESSAGE_NO_RESULT), 1);
    EXPECT_EQ(+Item("Alpha").TextColor, 0x123456U);
}

TEST_F(EndOfDesigner, NewFormIsAskedForItsNameAndACancelledNameKeepsIt) {
    End();
    ASSERT_EQ(StartNew(), CODE_DONE);
    SetModified(session, 1);
    boxes.Answer(IDYES);
    boxes.AnswerDialog("Save", IDCANCEL);
    Send(WM_CLOSE);
    EXPECT_TRUE(Stands());
    EXPECT_EQ(Told(MESSAGE_NO_RESULT), 2); // of the name, and of the close
}

TEST_F(EndOfDesigner, EndOfTheSystemIsAnsweredByWhetherItClosed) {
    Modify();
    boxes.Answer(IDCANCEL);
    EXPECT_EQ(Send(WM_QUERYENDSESSION), FALSE);
    EXPECT_TRUE(Stands());
    boxes.Answer(IDNO);
    EXPECT_EQ(Send(WM_QUERYENDSESSION), TRUE);
    EXPECT_FALSE(Stands());
}

// ---- what is left ----

TEST_F(EndOfDesigner, ClosedSessionIsNotFoundAndItsMemoryCanStillBeLookedAt) {
    const HWND window = Window();
    const int blocks = LiveBlocks();
    Send(WM_CLOSE);
    EXPECT_FALSE(GetSessionPointer(window, 0));
    EXPECT_FALSE(SessionStands(session));
    EXPECT_EQ(record->Form.DesignerOpen, 0U);
    EXPECT_EQ(record->Form.FormWindow, window);
    EXPECT_LT(LiveBlocks(), blocks);
}

TEST_F(EndOfDesigner, NextFormTakesTheMemoryOfTheOneThatEnded) {
    Session *before = session;
    Send(WM_CLOSE);
    ASSERT_EQ(StartNew(), CODE_DONE);
    EXPECT_EQ(session, before);
    EXPECT_EQ(session->form.TotalItems, 3); // nothing of the old form is in it
    EXPECT_EQ(session->CurrentFile, std::string());
}

TEST_F(EndOfDesigner, RunDoesNotTakeTheMemoryOfADesigner) {
    Session *before = session;
    Send(WM_CLOSE);
    Session *run = nullptr;
    ASSERT_EQ(OpenRunSession(&run), CODE_DONE);
    EXPECT_NE(run, before);
    FreeSession(run);
}

TEST_F(EndOfDesigner, TwoHundredOpensAndClosesLeaveNothingBehind) {
    Send(WM_CLOSE);
    const std::string form = Put(TwoSections());
    const auto once = [&] {
        ASSERT_EQ(Start(form), CODE_DONE);
        PressAt(250, 70);
        ReleaseAt(250, 70);
        Send(WM_CLOSE);
    };
    for (int time = 0; time < 10; ++time) once();
    const int blocks = LiveBlocks();
    const int drawing = CountGdiObjects();
    const int windows = CountUserObjects();
    for (int time = 0; time < 200; ++time) once();
    EXPECT_EQ(LiveBlocks(), blocks);
    EXPECT_EQ(CountGdiObjects(), drawing);
    EXPECT_EQ(CountUserObjects(), windows);
}

// ---- Exit ----

TEST_F(EndOfDesigner, ExitFreesTheSession) {
    const int blocks = LiveBlocks();
    Command(COMMAND_CLOSE_FORM);
    EXPECT_FALSE(Stands());
    EXPECT_FALSE(IsWindow(Window()));
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 1);
    Session *before = session;
    EXPECT_LT(LiveBlocks(), blocks);
    EXPECT_NE(session_table.EndedSessions, before);
}

TEST_F(EndOfDesigner, ExitThatIsCancelledReleasesTheSessionAndLeavesADeafWindow) {
    Modify();
    boxes.Answer(IDCANCEL);
    Command(COMMAND_CLOSE_FORM);
    EXPECT_EQ(Told(MESSAGE_NO_RESULT), 1);
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 0);
    EXPECT_FALSE(Stands());
    EXPECT_FALSE(FileHasTheChange());
    ASSERT_TRUE(IsWindow(Window()));
    EXPECT_FALSE(GetSessionPointer(Window(), 0));
    PressAt(250, 70);
    for (const UINT message : {WM_PAINT, WM_COMMAND, WM_SETFOCUS, WM_KILLFOCUS, WM_INITMENU})
        Send(message);
    Command(COMMAND_SAVE);
    DeleteFileA(path.c_str()); // the file isn't held any more
    EXPECT_EQ(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES);
    Send(WM_CLOSE);
    EXPECT_FALSE(IsWindow(Window()));
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 0);
}

TEST_F(EndOfDesigner, ExitsAndTheirDeafWindowsLeaveNothingBehind) {
    Send(WM_CLOSE);
    const std::string form = Put(TwoSections());
    const auto once = [&](int answer) {
        ASSERT_EQ(Start(form), CODE_DONE);
        SetModified(session, 1);
        boxes.Answer(answer);
        Command(COMMAND_CLOSE_FORM);
        if (IsWindow(Window())) Send(WM_CLOSE);
    };
    for (const int answer : {IDCANCEL, IDNO}) once(answer);
    const int blocks = LiveBlocks();
    const int drawing = CountGdiObjects();
    const int windows = CountUserObjects();
    for (int time = 0; time < 10; ++time) {
        once(IDCANCEL);
        once(IDNO);
    }
    EXPECT_EQ(LiveBlocks(), blocks);
    EXPECT_EQ(CountGdiObjects(), drawing);
    EXPECT_EQ(CountUserObjects(), windows);
}

// ---- another's hand, and closes in the middle of something ----

TEST_F(EndOfDesigner, WindowThatAnotherDestroysGoesWithoutAQuestion) {
    Modify();
    const HWND window = Window();
    DestroyWindow(window);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_FALSE(Stands());
    EXPECT_EQ(record->Form.DesignerOpen, 0U);
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 1);
    EXPECT_FALSE(FileHasTheChange());
}

TEST_F(EndOfDesigner, WindowGoesWithTheHostsWindow) {
    HostWindow owner;
    End();
    params.ParentWindow = owner.Get();
    params.WindowStyle = WS_CHILD | WS_VISIBLE;
    ASSERT_EQ(StartOn(TwoSections()), CODE_DONE);
    Modify();
    DestroyWindow(owner.Get());
    EXPECT_FALSE(Stands());
    EXPECT_FALSE(IsWindow(Window()));
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(EndOfDesigner, CallbackHearsOfTheEndInPlaceOfTheHostsWindow) {
    static HWND told;
    told = nullptr;
    const MessageRoutine tell = [](HWND window, uint32_t message) __stdcall->int32_t {
        told = message == MESSAGE_SESSION_ENDED ? window : nullptr;
        return 0;
    };
    EXPECT_EQ(RepSetMsgCallback(Window(), 0, tell), 1);
    DestroyWindow(Window());
    EXPECT_EQ(told, Window());
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 0);
}

TEST_F(EndOfDesigner, CloseUnderABoxOfTheWindowWaitsForTheBox) {
    bool stood = false;
    boxes.OnDialog("Report Parameters", [&](DialogDriver box) {
        Send(WM_CLOSE);
        stood = Stands() && IsWindow(Window()) && IsWindowVisible(box);
        box.Press(IDOK);
    });
    Command(COMMAND_REPORT_PARAMETERS);
    EXPECT_TRUE(stood);
    EXPECT_FALSE(Stands());
    EXPECT_FALSE(IsWindow(Window()));
}

TEST_F(EndOfDesigner, CloseThatIsAskedForUnderTheQuestionAsksNoSecondTime) {
    Modify();
    int asked = 0;
    boxes.OnDialog("File Modified", [&](DialogDriver box) {
        ++asked;
        Send(WM_CLOSE);
        EXPECT_EQ(Send(WM_QUERYENDSESSION), FALSE);
        Command(COMMAND_CLOSE_FORM);
        box.Press(IDNO);
    });
    Send(WM_CLOSE);
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(Stands());
}

TEST_F(EndOfDesigner, WindowDestroyedUnderTheQuestionEndsTheSessionSafely) {
    Modify();
    boxes.OnDialog("File Modified", [&](DialogDriver) { DestroyWindow(Window()); });
    Send(WM_CLOSE);
    EXPECT_FALSE(Stands());
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 1);
    EXPECT_EQ(Told(MESSAGE_NO_RESULT), 0);
}

TEST_F(EndOfDesigner, CloseFromTheHostsRoutineWaitsForIt) {
    static const EndOfDesigner *test;
    test = this;
    host_data.ItemPropertiesCallback = [](Session *, uint32_t, uint32_t, void *) __stdcall {
        test->Send(WM_CLOSE);
        return int32_t{test->Stands()};
    };
    session->form.SelectedItem = Row("Alpha");
    Command(COMMAND_ITEM_PROPERTIES);
    EXPECT_FALSE(Stands());
    EXPECT_EQ(Told(MESSAGE_MODIFIED), 0);
}

TEST_F(EndOfDesigner, EndingSessionTakesNoMessage) {
    const InMessage inside(session);
    WantEnd(session);
    Send(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(session->view.OriginY, 0);
}

// ---- failures in a message ----

TEST_F(EndOfDesigner, FatalErrorInAMessageLeavesTheFormToBeSavedElsewhere) {
    Modify();
    session->form.Header.LeftMargin = 0.25F;
    {
        const FailingCall none("CreateCompatibleBitmap", CreateCompatibleBitmap, nullptr, 1,
                               EVERY_CALL);
        SetWindowPos(Window(), nullptr, 0, 0, 640, 480, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_EQ(Send(WM_PAINT), 0);
    }
    EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
    EXPECT_EQ(session->ErrorCode, CODE_DISPLAY);
    ASSERT_TRUE(Stands());
    const std::string elsewhere = folder.Path("OTHER.FP");
    boxes.AnswerDialog("Save As", FILE_NAME, elsewhere, IDOK);
    Command(COMMAND_SAVE_AS);
    EXPECT_EQ(session->form.FormModified, 0U);
    path = elsewhere;
    EXPECT_TRUE(FileHasTheChange());
    Send(WM_PAINT); // and it is painted again
    EXPECT_EQ(boxes.Log().size(), 1U);
}

// ---- opening ----

TEST_F(EndOfDesigner, WindowDestroyedWhileItsFormIsReadGivesACode) {
    End();
    FormBuilder form = TwoSections();
    const int name = form.Field(FIELD_DATA, "NAME", TYPE_TEXT);
    form.FieldItem(SECTION_DETAIL_1, 600, 50, 200, 50, name);
    const auto check = params.CheckFieldProc;
    params.CheckFieldProc = [](HWND window, FieldRecord *, int32_t, void *) __stdcall {
        DestroyWindow(window);
        return int32_t{1};
    };
    const std::string file = Put(form);
    const int blocks = LiveBlocks();
    EXPECT_EQ(Start(file), CODE_DISPLAY);
    EXPECT_EQ(params.DesignerOpen, 0U);
    EXPECT_FALSE(params.FormWindow);
    EXPECT_EQ(LiveBlocks(), blocks);
    params.CheckFieldProc = check;
    EXPECT_EQ(Start(file), CODE_DONE);
}

TEST_F(EndOfDesigner, WindowIsDeafUntilItsFormStands) {
    End();
    FormBuilder form = TwoSections();
    form.Field(FIELD_DATA, "NAME", TYPE_TEXT);
    static uint32_t open;
    params.CheckFieldProc = [](HWND window, FieldRecord *, int32_t, void *) __stdcall {
        SendMessageA(window, WM_COMMAND, COMMAND_DELETE, 0);
        SendMessageA(window, WM_PAINT, 0, 0);
        SendMessageA(window, WM_LBUTTONDOWN, 0, 0);
        open = GetSessionPointer(window, 0)->State;
        return int32_t{1};
    };
    ASSERT_EQ(StartOn(form), CODE_DONE);
    EXPECT_EQ(open, uint32_t{STATE_OPENING});
    EXPECT_EQ(session->form.TotalItems, 6);
}

TEST_F(EndOfDesigner, FormThatIsNotFoundAndNotWantedGivesACodeAndNoWindow) {
    End();
    boxes.Answer(IDNO);
    EXPECT_EQ(Start(folder.Path("NONE.FP")), CODE_FORM_NOT_READ);
    EXPECT_FALSE(params.FormWindow);
    EXPECT_EQ(params.DesignerOpen, 0U);
}
