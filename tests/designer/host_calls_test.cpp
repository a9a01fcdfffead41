// What a host and another's hand do to a designer at odd times.
#include <cstring>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/open.h"
#include "designer/rest.h"
#include "device/device_names.h"
#include "device/printer_options.h"
#include "form/defaults.h"
#include "form/font_table.h"
#include "form/form_writer.h"
#include "form/modified.h"
#include "frame/fatal_error.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/owned.h"
#include "frame/session_table.h"
#include "session/new_form.h"
#include "tests/support/designer_session.h"
#include "tests/support/failing_call.h"
#include "tests/support/system_objects.h"
#include "tests/support/walk_forms.h"

using namespace tessarine;

namespace {

class OddTimes : public DesignerSession {
protected:
    void SetUp() override {
        ASSERT_EQ(StartOn(TwoSections()), CODE_DONE) << boxes.LastText();
        standing = this;
    }
    ~OddTimes() override { standing = nullptr; }
    bool Stands() const { return SessionStands(session); }
    int Told(UINT message) const { return host.Count(message); }

public:
    using DesignerSession::session;
    using DesignerSession::Window;

protected:
    static inline OddTimes *standing;
};

// The printer's dialog, in the place of the system's.
class PrinterDialog : public OddTimes {
protected:
    int Run(void (*inside)()) {
        during = inside;
        const ReplacedCall replaced("PrintDlgA", Show);
        return FrPrintOptions(session);
    }
    static BOOL WINAPI Show(PRINTDLGA *dialog) {
        ++shown;
        held = dialog->hDevMode;
        during();
        return TRUE;
    }
    static inline void (*during)();
    static inline int shown;
    static inline HGLOBAL held;
    void SetUp() override {
        OddTimes::SetUp();
        shown = 0;
    }
};

} // namespace

// ---- the printer's dialog ----

TEST_F(PrinterDialog, SettingsAreTheDialogsUntilItEnds) {
    const HGLOBAL before = session->printer.DevModeMemory;
    EXPECT_EQ(Run([] {
                  EXPECT_FALSE(standing->session->printer.DevMode);
                  EXPECT_FALSE(standing->session->printer.DevModeMemory);
              }),
              1);
    EXPECT_EQ(held, before);
    EXPECT_EQ(session->printer.DevModeMemory, before);
    EXPECT_TRUE(session->printer.DevMode);
}

TEST_F(PrinterDialog, IsNotOpenedASecondTimeUnderItself) {
    Run([] { standing->Command(COMMAND_PRINTER_SETUP); });
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(session->printer.DevMode);
}

TEST_F(PrinterDialog, FormOfAWindowThatWentUnderItIsLeftAlone) {
    int blocks = 0;
    {
        const ReplacedCall replaced("PrintDlgA", Show);
        during = [] { DestroyWindow(standing->Window()); };
        blocks = LiveBlocks();
        Command(COMMAND_PRINTER_SETUP);
    }
    EXPECT_EQ(shown, 1);
    EXPECT_FALSE(Stands());
    EXPECT_EQ(Told(MESSAGE_MODIFIED), 0);
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 1);
    EXPECT_LT(LiveBlocks(), blocks);
    EXPECT_EQ(GlobalFlags(held), UINT{GMEM_INVALID_HANDLE}); // the settings went with the session
}

// ---- starting over ----

TEST_F(OddTimes, StartValuesOfAnOpenFormAreThoseOfANewSession) {
    SetModified(session, 1);
    session->view.OriginX = session->view.OriginY = 100;
    InitVariables(session);
    EXPECT_EQ(session->form.TotalItems, 0);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    EXPECT_EQ(session->view.OriginX, 0);
    EXPECT_EQ(session->view.OriginY, 0);
    EXPECT_EQ(session->printer.ReportWidth, 0);
    EXPECT_EQ(session->form.ReportHeight, 0);
    EXPECT_EQ(session->form.FormModified, 0U);
    EXPECT_EQ(Told(MESSAGE_UNMODIFIED), 1);
}

TEST_F(OddTimes, FormWithoutItemsTakesEveryCommandAndGesture) {
    InitVariables(session);
    ResetDesigner(session);
    for (const UINT message : {WM_PAINT, WM_SETFOCUS, WM_KILLFOCUS, WM_LBUTTONDBLCLK})
        Send(message);
    DragTo(250, 110, 400, 300);
    ClickAt(250, 110, MouseButton::RIGHT);
    for (const int key : {VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_PRIOR, VK_NEXT, VK_DELETE})
        Key(key);
    boxes.OnAnyOther([](HWND) { return IDCANCEL; });
    for (int number = 600; number <= 710; ++number)
        if (number != COMMAND_CLOSE_FORM && number != COMMAND_HELP) Command(number);
    PressAt(300, 300);
    Send(WM_PAINT);
    EXPECT_TRUE(Stands());
}

TEST_F(OddTimes, FormThatStartsOverGivesTheFontsOfTheOldOneBack) {
    const int drawing = CountGdiObjects();
    for (int time = 0; time < 3; ++time) {
        EXPECT_GT(CreateDefaultBoldFont(session), 0);
        InitVariables(session);
        InitNewForm(session);
    }
    EXPECT_GT(CreateDefaultBoldFont(session), 0);
    EXPECT_LE(CountGdiObjects(), drawing + 1);
}

TEST_F(OddTimes, RestEndsWhatIsInProgressAndKeepsTheClipboard) {
    session->form.SelectedItem = Row("Alpha");
    Command(COMMAND_COPY);
    Command(COMMAND_NEW_LINE);
    EXPECT_EQ(session->designer->PendingCommand, COMMAND_NEW_LINE);
    session->designer->UndoImage = static_cast<ItemRecord *>(OurAlloc(1));
    RestDesigner(session);
    EXPECT_EQ(session->designer->PendingCommand, IDLE);
    EXPECT_EQ(session->designer->HoverOnly, 1U);
    EXPECT_FALSE(session->designer->UndoImage);
    EXPECT_EQ(session->designer->ClipCount, 1);
}

// ---- saving elsewhere ----

TEST_F(OddTimes, NameThatAnotherProgramHoldsDoesNotTakeTheFormToItsOldFile) {
    const std::string old = ReadWholeFile(session->CurrentFile);
    std::string held = folder.Path("HELD.FP");
    WriteWholeFile(held, "another's");
    held.resize(260);
    Item("Alpha").TextColor = 0x123456;
    SetModified(session, 1);
    const OwnedFile other(CreateFileA(held.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    bool unwound = false;
    try {
        FrSave(session, held.data());
    } catch (const Unwinding &) {
        unwound = true;
    }
    EXPECT_TRUE(unwound);
    EXPECT_EQ(boxes.Texts(), (std::vector<std::string>{"Error Opening the Output File",
                                                       "Could Not Re-Open the File."}));
    EXPECT_EQ(session->form.FormModified, 1U);
    EXPECT_EQ(ReadWholeFile(session->CurrentFile), old);
    EXPECT_EQ(ReadWholeFile(held.c_str()), "another's");
    EXPECT_EQ(FrSave(session, session->CurrentFile), 1); // and the form isn't lost
    EXPECT_EQ(session->form.FormModified, 0U);
}

// ---- the end of a window under what a close asks ----

TEST_F(OddTimes, WindowThatGoesUnderAFailedSaveOfItsCloseHasEnded) {
    for (const bool exit : {false, true}) {
        ASSERT_EQ(StartOn(TwoSections()), CODE_DONE);
        const int ended = Told(MESSAGE_SESSION_ENDED);
        SetModified(session, 1);
        edit_allowed = 0; // the save is refused
        boxes.Answer(IDYES);
        boxes.OnDialog("", [&](HWND) { DestroyWindow(Window()); });
        if (exit)
            Command(COMMAND_CLOSE_FORM);
        else
            Send(WM_CLOSE);
        edit_allowed = 1;
        EXPECT_FALSE(Stands());
        EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), ended + 1);
        EXPECT_EQ(Told(MESSAGE_NO_RESULT), 0);
    }
}

// ---- a start that its host ends ----

namespace {

WNDPROC host_procedure = nullptr;
HWND opened = nullptr;

LRESULT CALLBACK CloseWhatIsModified(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == MESSAGE_MODIFIED) {
        opened = FindWindowA("FrClass32", nullptr);
        if (Session *session = GetSessionPointer(opened, 0)) session->form.FormModified = 0;
        SendMessageA(opened, WM_CLOSE, 0, 0);
    }
    return CallWindowProcA(host_procedure, window, message, wParam, lParam);
}

} // namespace

TEST_F(OddTimes, DesignerThatItsHostClosesInItsLastStepGivesACode) {
    End();
    uint32_t label_form = 1;
    uint32_t changed = 1;
    const FormBuilder sheet = LabelSheetForm();
    LabelGeometry geometry = sheet.header.LabelGeometry;
    host_data.LabelForm = &label_form;
    host_data.LabelChangedPtr = &changed;
    host_data.LabelGeometryPtr = &geometry;
    host_procedure = reinterpret_cast<WNDPROC>(
        SetWindowLongA(host.Get(), GWL_WNDPROC, reinterpret_cast<LONG>(CloseWhatIsModified)));
    EXPECT_EQ(StartOn(sheet), CODE_DISPLAY);
    SetWindowLongA(host.Get(), GWL_WNDPROC, reinterpret_cast<LONG>(host_procedure));
    EXPECT_TRUE(opened);
    EXPECT_FALSE(IsWindow(opened));
    EXPECT_FALSE(params.FormWindow);
    EXPECT_EQ(params.DesignerOpen, 0U);
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 2); // and of the one before
}

// ---- two designers ----

TEST_F(OddTimes, TwoDesignersStandAndEndEachForItself) {
    Session *first = session;
    const HWND first_window = Window();
    Command(COMMAND_NEW_LINE); // waits for its place
    FormParams other = params;
    std::strcpy(other.FormFile, Put(TwoSections()).c_str());
    ASSERT_EQ(form(&other), CODE_DONE) << boxes.LastText();
    Session *second = GetSessionPointer(other.FormWindow, 0);
    ASSERT_TRUE(second);
    EXPECT_NE(second, first);
    EXPECT_NE(second->device.ClipFormat, first->device.ClipFormat);
    EXPECT_EQ(second->designer->PendingCommand, IDLE);
    EXPECT_EQ(first->designer->PendingCommand, COMMAND_NEW_LINE);
    boxes.OnDialog("Report Parameters", [&](DialogDriver box) {
        Send(WM_CLOSE); // the first, under a box of the second
        box.Press(IDOK);
    });
    SendMessageA(other.FormWindow, WM_COMMAND, COMMAND_REPORT_PARAMETERS, 0);
    EXPECT_FALSE(SessionStands(first));
    EXPECT_FALSE(IsWindow(first_window));
    EXPECT_TRUE(SessionStands(second));
    EXPECT_EQ(GetSessionPointer(other.FormWindow, 0), second);
    SendMessageA(other.FormWindow, WM_VSCROLL, SB_LINEDOWN, 0);
    EXPECT_GT(second->view.OriginY, 0);
    SendMessageA(other.FormWindow, WM_CLOSE, 0, 0);
    EXPECT_FALSE(SessionStands(second));
    EXPECT_EQ(Told(MESSAGE_SESSION_ENDED), 2);
}
