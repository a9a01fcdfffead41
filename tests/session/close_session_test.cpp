#include "session/session_life.h"

#include <cstring>

#include "frame/memory.h"
#include "frame/session_table.h"
#include "tests/support/form_session.h"

using namespace tessarine;

namespace {

class CloseSessionTest : public FormSession {
protected:
    void Modify(const char *report_name) {
        session->form.FormModified = 1;
        std::strcpy(session->form.Header.ReportName, report_name);
    }
    bool Stands() const { return session->form.TablesAllocated != 0; }

    FullForm form;
};

HWND told_window;
uint32_t told_message;

int32_t __stdcall Tell(HWND window, uint32_t message) {
    told_window = window;
    told_message = message;
    return 0;
}

} // namespace

TEST_F(CloseSessionTest, CancelLeavesTheDesignerAliveAndTellsTheHost) {
    ASSERT_EQ(StartOn(form), 0);
    Modify("Sales");
    boxes.Answer(IDCANCEL);
    CloseSession(session);
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.Log()[0], (BoxRecord{"File Modified",
                                         "Do you wish to save the modifications to \"Sales\"?",
                                         {IDCANCEL, IDYES, IDNO}}));
    EXPECT_TRUE(Stands());
    EXPECT_EQ(host.Count(MESSAGE_NO_RESULT), 1);
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 0);
}

TEST_F(CloseSessionTest, CancelAndAFailedSaveReleaseNothing) {
    ASSERT_EQ(StartOn(form), 0);
    for (const int answer : {IDCANCEL, IDYES}) {
        Modify("Sales");
        session->FormBlock.DesignerOpen = 1;
        edit_allowed = answer == IDCANCEL; // a save is refused
        const HANDLE lock = session->form.FormLock;
        const int blocks = LiveBlocks();
        boxes.Answer(answer);
        CloseSession(session);
        EXPECT_EQ(LiveBlocks(), blocks);
        EXPECT_EQ(session->form.FormModified, 1u);
        EXPECT_EQ(session->FormBlock.DesignerOpen, 1u);
        EXPECT_EQ(session->IgnoreMessages, 0u);
        EXPECT_EQ(session->form.FormLock, lock);
        DWORD flags = 0;
        EXPECT_TRUE(lock != INVALID_HANDLE_VALUE && GetHandleInformation(lock, &flags));
        EXPECT_NE(session->printer.DevMode, nullptr);
        EXPECT_GT(GetDeviceCaps(session->printer.InfoDevice, LOGPIXELSX), 0);
        EXPECT_GT(GetDeviceCaps(session->drawing.ScreenDC, LOGPIXELSX), 0);
        EXPECT_GT(GetDeviceCaps(session->view.MemoryDC, LOGPIXELSX), 0);
        EXPECT_EQ(GetObjectType(session->device.SolidPen), DWORD{OBJ_PEN});
        EXPECT_EQ(GetObjectType(session->form.Fonts[0].Font), DWORD{OBJ_FONT});
        EXPECT_TRUE(IsWindow(session->Window));
    }
}

TEST_F(CloseSessionTest, FormWithoutANameIsCalledUntitled) {
    ASSERT_EQ(StartOn(form), 0);
    Modify("");
    boxes.Answer(IDNO);
    CloseSession(session);
    EXPECT_EQ(boxes.LastText(), "Do you wish to save the modifications to \"<Untitled>\"?");
    EXPECT_FALSE(Stands());
}

TEST_F(CloseSessionTest, YesSavesAndCloses) {
    ASSERT_EQ(StartOn(form), 0);
    const std::string path = session->CurrentFile;
    Modify("Changed");
    boxes.Answer(IDYES);
    CloseSession(session);
    EXPECT_FALSE(Stands());
    EXPECT_EQ(RecordAt<FormHeader>(ReadWholeFile(path), 0).ReportName, std::string("Changed"));
}

TEST_F(CloseSessionTest, SaveThatFailsEndsTheClose) {
    ASSERT_EQ(StartOn(form), 0);
    Modify("Sales");
    edit_allowed = 0;
    boxes.Answer(IDYES);
    CloseSession(session);
    EXPECT_EQ(boxes.LastText(), "Read-Only form cannot be saved");
    EXPECT_TRUE(Stands());
    EXPECT_EQ(host.Count(MESSAGE_NO_RESULT), 1);
}

TEST_F(CloseSessionTest, UnmodifiedDesignerClosesWithoutAQuestion) {
    ASSERT_EQ(StartOn(form), 0);
    CloseSession(session);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_FALSE(Stands());
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 1);
}

TEST_F(CloseSessionTest, ModifiedRunClosesWithoutAQuestion) {
    ASSERT_EQ(StartOn(form, KIND_REPORT), 0);
    session->form.FormModified = 1;
    CloseSession(session);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(CloseSessionTest, CallbackIsToldInPlaceOfTheParent) {
    ASSERT_EQ(StartOn(form), 0);
    EXPECT_EQ(RepSetMsgCallback(nullptr, session->SessionId, Tell), 1);
    told_message = 0;
    CloseSession(session);
    EXPECT_EQ(told_message, 1024u);
    EXPECT_EQ(told_window, session->Window);
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 0);
}

TEST_F(CloseSessionTest, WithoutAParentNobodyIsToldAlsoWithACallback) {
    ASSERT_EQ(StartOn(form), 0);
    session->ParentWindow = nullptr;
    RepSetMsgCallback(nullptr, session->SessionId, Tell);
    told_message = 0;
    CloseSession(session);
    EXPECT_EQ(told_message, 0u);
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 0);
}

TEST_F(CloseSessionTest, AllMemoryIsGivenBack) {
    ASSERT_EQ(StartOn(form), 0);
    CloseSession(session);
    EXPECT_EQ(session->printer.DevModeMemory, nullptr);
    EXPECT_EQ(session->printer.InfoDevice, nullptr);
    EXPECT_EQ(session->drawing.ScreenDC, nullptr);
    EXPECT_EQ(session->view.MemoryDC, nullptr);
    EXPECT_EQ(session->device.SolidPen, nullptr);
    EXPECT_EQ(session->device.BackBrush, nullptr);
    EXPECT_EQ(session->form.FormLock, INVALID_HANDLE_VALUE);
}
