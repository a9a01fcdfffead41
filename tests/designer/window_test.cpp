#include "designer/window.h"

#include <cstring>
#include <vector>

#include "commands.h"
#include "designer/designer_state.h"
#include "form/defaults.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "tests/support/client_picture.h"
#include "tests/support/designer_session.h"
#include "tests/support/help_call.h"

using namespace tessarine;

namespace {

class DesignerWindow : public DesignerSession {
protected:
    void SetUp() override { ASSERT_EQ(StartOn(TwoSections()), CODE_DONE) << boxes.LastText(); }
    std::string HelpFile() const { return session->dialog.HelpFile; }
    // Messages for the window that wait.
    std::vector<UINT> Waiting() const {
        std::vector<UINT> waiting;
        for (MSG message; PeekMessageA(&message, Window(), WM_KEYFIRST, WM_KEYLAST, PM_REMOVE);)
            waiting.push_back(message.message);
        return waiting;
    }
    void HoldUndo() { session->designer->UndoImage = static_cast<ItemRecord *>(OurAlloc(1)); }
    bool UndoHeld() const { return session->designer->UndoImage; }
};

} // namespace

// ---- messages ----

TEST_F(DesignerWindow, TakesAllKeysAndCharacters) { EXPECT_EQ(Send(WM_GETDLGCODE), 135); }

TEST_F(DesignerWindow, MessagesThatDoNothingAreTakenAllTheSame) {
    for (const UINT message : {WM_RBUTTONUP, WM_RBUTTONDBLCLK, WM_MBUTTONDBLCLK})
        EXPECT_EQ(Send(message), 0) << message;
    EXPECT_EQ(session->form.SelectedItem, 0);
}

TEST_F(DesignerWindow, MessageWithoutARowGoesToTheSystem) {
    Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("a title"));
    EXPECT_EQ(WindowText(Window()), "a title");
}

TEST_F(DesignerWindow, HostIsToldOfTheFormsStateByHandledMessages) {
    session->form.FormModified = 1;
    EXPECT_EQ(session->FormBlock.DesignerModified, 0U);
    Send(WM_GETDLGCODE);
    Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("a title"));
    Send(WM_COMMAND, 5); // outside the table
    EXPECT_EQ(session->FormBlock.DesignerModified, 0U);
    Send(WM_RBUTTONUP);
    EXPECT_EQ(session->FormBlock.DesignerModified, 1U);
    session->form.FormModified = 0;
    Send(WM_ENTERIDLE, MSGF_DIALOGBOX);
    EXPECT_EQ(session->FormBlock.DesignerModified, 0U);
}

TEST_F(DesignerWindow, FocusAsksForARepaint) {
    ValidateRect(Window(), nullptr);
    Send(WM_SETFOCUS);
    EXPECT_TRUE(GetUpdateRect(Window(), nullptr, FALSE));
}

TEST_F(DesignerWindow, DottedRectangleStaysWhileTheFocusIsElsewhere) {
    ClickAt(250, 110);
    session->designer->FocusVisible = 0;
    Send(WM_KILLFOCUS);
    EXPECT_EQ(session->designer->FocusVisible, 1U);
    session->designer->FocusVisible = 0;
    session->form.SelectedItem = NOTHING_SELECTED;
    Send(WM_KILLFOCUS);
    EXPECT_EQ(session->designer->FocusVisible, 0U);
}

TEST_F(DesignerWindow, PaintFillsAWindowThatWasSized) {
    const ClientPicture before = PictureOf(Window());
    SetWindowPos(Window(), nullptr, 0, 0, 700, 500, SWP_NOMOVE | SWP_NOZORDER);
    UpdateWindow(Window());
    RECT client{};
    GetClientRect(Window(), &client);
    EXPECT_EQ(session->view.ViewWidth, MulDiv(client.right, 250, session->drawing.LogPixelsX) + 1);
    EXPECT_FALSE(GetUpdateRect(Window(), nullptr, FALSE));
    EXPECT_GT(PictureOf(Window()).Count(0), 0);
    EXPECT_LT(PictureOf(Window()).width, before.width);
}

TEST_F(DesignerWindow, DestroyedWindowIsNoOpenDesigner) {
    const auto *head = reinterpret_cast<const SessionHead *>(session);
    EXPECT_EQ(head->Form.DesignerOpen, 1U);
    Send(WM_DESTROY);
    EXPECT_EQ(head->Form.DesignerOpen, 0U);
}

TEST_F(DesignerWindow, WindowWithoutASessionIsAnOrdinaryOne) {
    EXPECT_EQ(FrWndProc(host.Get(), WM_GETDLGCODE, 0, 0), 0);
    EXPECT_EQ(FrWndProc(nullptr, WM_CLOSE, 0, 0), 0);
    SetWindowLongA(Window(), 0, 0);
    EXPECT_EQ(Send(WM_GETDLGCODE), 0);
    SetWindowLongA(Window(), 0, reinterpret_cast<LONG>(session));
}

TEST_F(DesignerWindow, PointerOverTheFormHasACursor) {
    session->form.SelectedItem = NOTHING_SELECTED;
    SetCursor(nullptr);
    MoveTo(250, 110);
    EXPECT_TRUE(GetCursor());
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
}

TEST_F(DesignerWindow, LeftAndMiddleButtonSelect) {
    ClickAt(250, 110, MouseButton::MIDDLE);
    EXPECT_EQ(session->form.SelectedItem, Row("Alpha"));
    ClickAt(550, 210);
    EXPECT_EQ(session->form.SelectedItem, Row("Beta"));
}

TEST_F(DesignerWindow, DragBeginsAndEndsWithEitherButton) {
    const int x = Item("Alpha").x;
    DragTo(250, 110, 400, 110, MouseButton::MIDDLE);
    EXPECT_GT(Item("Alpha").x, x);
    EXPECT_EQ(session->designer->PendingCommand, IDLE);
}

// ---- help ----

TEST_F(DesignerWindow, HelpButtonOfACommonDialogAsksForItsPage) {
    const HelpCall help;
    help_message = RegisterWindowMessageA(HELPMSGSTRINGA);
    EXPECT_EQ(Send(help_message), 0);
    EXPECT_EQ(HelpCall::calls, 1);
    EXPECT_EQ(HelpCall::window, Window());
    EXPECT_EQ(HelpCall::file, "REP.HLP>SECOND");
    EXPECT_EQ(HelpCall::command, UINT{HELP_CONTEXT});
    EXPECT_EQ(HelpCall::number, 7234U);
    Send(9);
    EXPECT_EQ(HelpCall::calls, 2);
    help_message = 0;
}

TEST_F(DesignerWindow, HelpCommandOpensTheIndex) {
    const HelpCall help;
    Command(COMMAND_HELP);
    EXPECT_EQ(HelpCall::window, Window());
    EXPECT_EQ(HelpCall::file, HelpFile());
    EXPECT_EQ(HelpCall::command, UINT{HELP_INDEX});
    EXPECT_EQ(HelpCall::number, 0U);
}

TEST_F(DesignerWindow, HelpFileOfTheHostOpensInTheSecondWindowToo) {
    End();
    host_data.HelpFileName = "OWN.HLP";
    ASSERT_EQ(StartNew(), CODE_DONE);
    const HelpCall help;
    Command(COMMAND_HELP);
    EXPECT_EQ(HelpCall::file, "OWN.HLP>SECOND");
}

TEST_F(DesignerWindow, F1OnAnOpenMenuMakesItsCommandAQuestion) {
    const HelpCall help;
    {
        const HeldKey f1(VK_F1);
        Send(WM_ENTERIDLE, MSGF_MENU);
    }
    EXPECT_EQ(Waiting(), std::vector<UINT>{WM_KEYDOWN}); // Return, which chooses the entry
    Command(COMMAND_DELETE);
    EXPECT_EQ(HelpCall::window, Window());
    EXPECT_EQ(HelpCall::command, UINT{HELP_CONTEXT});
    EXPECT_EQ(HelpCall::number, ULONG_PTR{COMMAND_DELETE});
    EXPECT_EQ(session->form.TotalItems, 6);
    EXPECT_TRUE(boxes.Log().empty());
    Command(COMMAND_REPORT_PARAMETERS); // the next is carried out again
    EXPECT_EQ(boxes.LastText(), "Not available.");
    EXPECT_EQ(HelpCall::calls, 1);
}

TEST_F(DesignerWindow, IdleMenuWithoutF1AndIdleDialogAskNothing) {
    Send(WM_ENTERIDLE, MSGF_MENU);
    const HeldKey f1(VK_F1);
    Send(WM_ENTERIDLE, MSGF_DIALOGBOX);
    EXPECT_EQ(session->designer->HelpPending, 0U);
    EXPECT_TRUE(Waiting().empty());
}

// The posted key chooses nothing there.
TEST_F(DesignerWindow, F1OnAGreyEntryMakesTheNextCommandAQuestion) {
    const HelpCall help;
    {
        const HeldKey f1(VK_F1);
        Send(WM_ENTERIDLE, MSGF_MENU);
    }
    Waiting();
    EXPECT_EQ(session->designer->HelpPending, 1U);
    EXPECT_EQ(HelpCall::calls, 0);
    Command(COMMAND_SAVE);
    EXPECT_EQ(HelpCall::number, ULONG_PTR{COMMAND_SAVE});
    EXPECT_EQ(session->designer->HelpPending, 0U);
}

TEST_F(DesignerWindow, QuestionKeepsWhatCanBeUndone) {
    const HelpCall help;
    HoldUndo();
    session->designer->HelpPending = 1;
    Command(COMMAND_CENTER);
    EXPECT_TRUE(UndoHeld());
}

// ---- what can be undone ----

TEST_F(DesignerWindow, CommandThatDoesNothingKeepsWhatCanBeUndone) {
    HoldUndo();
    Command(COMMAND_NONE);
    EXPECT_TRUE(UndoHeld());
}

TEST_F(DesignerWindow, AnyOtherCommandDropsItAlsoOneThatThenDoesNothing) {
    for (const int number :
         {COMMAND_REPORT_FILTER_ENTRY, COMMAND_EDIT_LINE, COMMAND_ALIGN_TOP, 5}) {
        HoldUndo();
        Command(number);
        EXPECT_FALSE(UndoHeld()) << number;
    }
}

// ---- the host's keys ----

class DesignerKeysOfTheHost : public DesignerWindow {
protected:
    void SetUp() override {
        DesignerWindow::SetUp();
        ACCEL rows[] = {{FVIRTKEY, VK_F7, COMMAND_REPORT_PARAMETERS},
                        {FVIRTKEY, VK_F10, COMMAND_CLOSE_FORM},
                        {FVIRTKEY, VK_F4, COMMAND_NONE},
                        {FVIRTKEY, VK_F3, COMMAND_UNDO}};
        session->Desk.AccelTable = table = CreateAcceleratorTableA(rows, 4);
    }
    ~DesignerKeysOfTheHost() override { DestroyAcceleratorTable(table); }

    HACCEL table = nullptr;
};

TEST_F(DesignerKeysOfTheHost, KeyOfTheTableSendsItsCommand) {
    EXPECT_EQ(Send(WM_KEYDOWN, VK_F7), 1);
    EXPECT_EQ(boxes.LastTitle(), "Report Parameters");
}

TEST_F(DesignerKeysOfTheHost, OtherKeysGoOnToTheWindow) {
    EXPECT_EQ(Send(WM_KEYDOWN, VK_F8), 0);
    EXPECT_EQ(Send(WM_GETDLGCODE), 135);
}

TEST_F(DesignerKeysOfTheHost, WithoutATableTheKeysOfTheMenuDoNothing) {
    session->Desk.AccelTable = nullptr;
    EXPECT_EQ(Send(WM_KEYDOWN, VK_F7), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(DesignerKeysOfTheHost, WhatTheKeyLeftInTheQueueIsThrownAway) {
    for (const UINT message : {WM_CHAR, WM_INITMENUPOPUP, WM_MENUCHAR, WM_SYSKEYDOWN, WM_SYSKEYUP,
                               WM_SYSCOMMAND, WM_SYSCHAR, WM_KEYUP})
        Post(message);
    Send(WM_KEYDOWN, VK_F4);
    std::vector<UINT> left;
    for (MSG message; PeekMessageA(&message, Window(), WM_KEYFIRST, WM_MENUCHAR, PM_REMOVE);)
        left.push_back(message.message);
    EXPECT_EQ(left, std::vector<UINT>{WM_KEYUP});
}

TEST_F(DesignerKeysOfTheHost, OneMessageOfAKindIsThrownAway) {
    Post(WM_CHAR, 'a');
    Post(WM_CHAR, 'b');
    Send(WM_KEYDOWN, VK_F4);
    EXPECT_EQ(Waiting(), std::vector<UINT>{WM_CHAR});
}

TEST_F(DesignerKeysOfTheHost, EndOfTheHostsLoopStaysInTheQueue) {
    PostQuitMessage(7);
    Send(WM_KEYDOWN, VK_F4);
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 7U);
}

TEST_F(DesignerKeysOfTheHost, UndoByAKeyFindsItsImage) {
    HoldUndo();
    Send(WM_KEYDOWN, VK_F4);
    EXPECT_TRUE(UndoHeld());
}

TEST_F(DesignerKeysOfTheHost, KeyThatEndsTheSessionIsTakenSafely) {
    EXPECT_EQ(Send(WM_KEYDOWN, VK_F10), 1);
    EXPECT_FALSE(SessionStands(session));
    EXPECT_FALSE(IsWindow(Window()));
}

// ---- the host's edit control ----

class EditControl : public DesignerWindow {
protected:
    void SetUp() override {
        DesignerWindow::SetUp();
        edit = CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20, Window(),
                               nullptr, module_instance, nullptr);
        session->Desk.EditWindow = edit;
        session->Desk.EditWndProc = reinterpret_cast<WNDPROC>(
            SetWindowLongA(edit, GWL_WNDPROC, reinterpret_cast<LONG>(FrEditSubclass)));
    }
    HWND edit = nullptr;
};

TEST_F(EditControl, EnterGivesTheFocusBackToTheWindow) {
    SetFocus(edit);
    EXPECT_EQ(SendMessageA(edit, WM_CHAR, VK_RETURN, 0), 1);
    EXPECT_EQ(GetFocus(), Window());
    EXPECT_EQ(Item("Alpha").LabelText, std::string("Alpha"));
}

TEST_F(EditControl, AllElseGoesToItsOwnProcedure) {
    SendMessageA(edit, WM_CHAR, 'x', 0);
    EXPECT_EQ(WindowText(edit), "x");
}

TEST_F(EditControl, EditOfALabelGivesItTheFocus) {
    SetFocus(Window());
    Command(COMMAND_EDIT_LABEL);
    EXPECT_EQ(GetFocus(), edit);
}

TEST_F(EditControl, WithoutASessionNothingIsAnswered) {
    const WNDPROC own = session->Desk.EditWndProc;
    SetWindowLongA(Window(), 0, 0);
    EXPECT_EQ(SendMessageA(edit, WM_GETTEXTLENGTH, 0, 0), 0);
    EXPECT_EQ(SendMessageA(edit, WM_CHAR, VK_RETURN, 0), 0);
    SetWindowLongA(Window(), 0, reinterpret_cast<LONG>(session));
    SetWindowLongA(edit, GWL_WNDPROC, reinterpret_cast<LONG>(own));
}

TEST_F(EditControl, GoesWithTheWindowWhoeverDestroysIt) {
    SetFocus(edit);
    DestroyWindow(Window());
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_FALSE(SessionStands(session));
}

TEST_F(EditControl, IsHiddenInAWindowThatExitHasLeftDeaf) {
    session->form.FormModified = 1;
    boxes.Answer(IDCANCEL);
    Command(COMMAND_CLOSE_FORM);
    EXPECT_FALSE(SessionStands(session));
    ASSERT_TRUE(IsWindow(edit));
    EXPECT_FALSE(GetWindowLongA(edit, GWL_STYLE) & WS_VISIBLE);
    DestroyWindow(Window());
}

TEST_F(EditControl, StartValuesEmptyTheHostsSlots) {
    InitVariables(session);
    EXPECT_FALSE(session->Desk.EditWindow);
    EXPECT_FALSE(session->Desk.EditWndProc);
    EXPECT_FALSE(session->Desk.AccelTable);
}
