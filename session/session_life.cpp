#include "session/session_life.h"

#include <cstdio>

#include "canvas/canvas.h"
#include "device/device_properties.h"
#include "device/printer.h"
#include "form/built_in_tables.h"
#include "form/defaults.h"
#include "form/font_table.h"
#include "form/form_lock.h"
#include "form/form_tables.h"
#include "form/form_writer.h"
#include "form/modified.h"
#include "frame/fatal_error.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/message_box.h"
#include "frame/session_table.h"
#include "session/open_form.h"

namespace tessarine {

namespace {

// Redraw on both sizes, double clicks, own context, byte-aligned client.
constexpr UINT CLASS_STYLE = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS | CS_OWNDC | CS_BYTEALIGNCLIENT;
static_assert(CLASS_STYLE == 4139);

// A repeated registration fails, and that is as good.
const char *RegisterSessionClass(const Session *session) {
    const bool designer = session->SessionKind == KIND_DESIGNER;
    WNDCLASSA window_class{};
    window_class.style = CLASS_STYLE;
    window_class.lpfnWndProc = session->WindowProcedure;
    window_class.cbWndExtra = 4;
    window_class.hInstance = module_instance;
    window_class.hIcon = LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_APPLICATION));
    window_class.hCursor =
        designer ? nullptr : LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    window_class.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    window_class.lpszClassName = designer ? "FrClass32" : "RepClass32";
    RegisterClassA(&window_class);
    return window_class.lpszClassName;
}

HMENU LoadSessionMenu(const Session *session) {
    if (session->SessionKind == KIND_REPORT) return LoadMenuA(module_instance, "RepMenu");
    return session->FormBlock.ShowMenu ? LoadMenuA(module_instance, "FrMenu") : nullptr;
}

void MakeSessionWindow(Session *session, uint32_t style, const RECT &place) {
    const char *window_class = RegisterSessionClass(session);
    const char *title = *session->CurrentFile ? session->CurrentFile : "(UNNAMED)";
    session->device.Menu = LoadSessionMenu(session);
    const HWND window = CreateWindowExA(0, window_class, title, style, place.left, place.top,
                                        place.right, place.bottom, session->ParentWindow,
                                        session->device.Menu, module_instance, nullptr);
    RaisePending(session);
    if (!window) FatalError(session, "Unable to allocate a Display Context.", CODE_DISPLAY);
    SetWindowLongA(window, 0, reinterpret_cast<LONG>(session));
    session->Window = window;
    session->view.PaintEnabled = 1;
    if (session->SessionKind == KIND_DESIGNER)
        session->FormBlock.FormWindow = window;
    else
        session->ViewBlock.ReportWindow = window;
    ShowWindow(window, SW_SHOW);
    SetFocus(window);
    ValidateRect(window, nullptr);
    RaisePending(session);
}

int CodeOfUnreadForm(const Session *session) {
    const bool no_label_form = session->form.Header.LabelType == 0;
    if (session->LabelMode) return no_label_form ? CODE_NOT_A_LABEL_FORM : CODE_FORM_NOT_READ;
    return no_label_form ? CODE_FORM_NOT_READ : CODE_NOT_A_REPORT_FORM;
}

} // namespace

namespace {

// While one stands the window procedures hear of nothing but its end.
class InMaking {
public:
    explicit InMaking(Session *session) : session_(session) { session->WindowInMaking = 1; }
    InMaking(const InMaking &) = delete;
    InMaking &operator=(const InMaking &) = delete;
    ~InMaking() { session_->WindowInMaking = 0; }

private:
    Session *session_;
};

// A host's sheets find the form's tables through these.
void PublishForm(Session *session) {
    FormState &form = session->form;
    session->Desk.Header = &form.Header;
    session->Desk.Items = form.Items;
    session->Desk.TotalItems = &form.TotalItems;
    session->Desk.Fields = form.Fields;
    session->Desk.FieldCount = &form.FieldCount;
    session->Desk.Fonts = form.Fonts;
    session->Desk.FontCount = &form.FontCount;
    session->Desk.Sections = form.Sections;
    session->Desk.Breaks = form.Breaks;
    session->Desk.BreakCount = &form.BreakCount;
    session->Desk.UserFields = form.UserFields;
    session->Desk.UserFieldCount = &form.UserFieldCount;
    session->Desk.SelectedItem = &form.SelectedItem;
    session->Desk.DialogRow = &session->dialog.DialogRow;
    session->Desk.EditField = &session->dialog.EditField;
    session->Desk.TextBuffer = session->TextBuffer;
}

void MakeWindowAndDevices(Session *session, uint32_t style, const RECT &place) {
    const InMaking making(session);
    if (session->OutputToScreen)
        MakeSessionWindow(session, style, place);
    else
        session->Window = session->ParentWindow;
    InitDeviceProp(session);
    MakeCanvas(session);
}

} // namespace

int CreateFormWindow(Session *session, uint32_t style, int x, int y, int width, int height) {
    session->LabelMode = LabelModeWanted();
    InitVariables(session);
    AllocArrayMem(session);
    if (session->SessionKind == KIND_DESIGNER) PublishForm(session);
    if (!GetDefaultPrinter(session, session->printer.DeviceName, session->printer.DriverName,
                           session->printer.PortName))
        return CODE_PRINTER;
    InitPrinter(session);
    MakeWindowAndDevices(session, style, RECT{x, y, width, height});
    if (!session->ViewingFile && !OpenForm(session, session->CurrentFile))
        return CodeOfUnreadForm(session);
    SetModified(session, 0);
    if (session->SessionKind != KIND_DESIGNER) return CODE_DONE;
    if (session->view.WindowGone) return CODE_DISPLAY; // a routine of the host destroyed it
    session->State = STATE_FORM_OPEN;
    return CODE_DONE;
}

namespace {

// A save that met an error has told of it, and has left the form as modified as it was.
bool IsSaved(Session *session) {
    return FrSave(session, session->CurrentFile) && !session->form.FormModified;
}

int AskToSave(Session *session) {
    const char *name =
        *session->form.Header.ReportName ? session->form.Header.ReportName : "<Untitled>";
    std::snprintf(session->TextBuffer, sizeof session->TextBuffer,
                  "Do you wish to save the modifications to \"%s\"?", name);
    return ShowSessionBox(session, session->TextBuffer, "File Modified", MB_YESNOCANCEL);
}

// A window that another has destroyed is told by the handle that it had.
HWND WindowOfEnd(const Session *session) {
    if (!session->view.WindowGone) return session->Window;
    return session->SessionKind == KIND_DESIGNER ? session->FormBlock.FormWindow
                                                 : session->ViewBlock.ReportWindow;
}

void TellHostOfEnd(Session *session) {
    if (!session->ParentWindow) return;
    if (session->MessageCallback)
        session->MessageCallback(WindowOfEnd(session), MESSAGE_SESSION_ENDED);
    else
        SendMessageA(session->ParentWindow, MESSAGE_SESSION_ENDED, 0, 0);
}

} // namespace

bool SettleClose(Session *session) {
    if (session->SessionKind != KIND_DESIGNER || !session->form.FormModified) return true;
    const int answer = AskToSave(session);
    if (session->State == STATE_ENDING) return true; // its window went under the question
    const bool settled = answer == IDNO || (answer == IDYES && IsSaved(session));
    if (settled || session->State == STATE_ENDING) return true; // or under what the save asked
    SendMessageA(session->ParentWindow, MESSAGE_NO_RESULT, 0, 0);
    return false;
}

void CloseSession(Session *session) {
    if (SettleClose(session)) ReleaseSession(session);
}

void ReleaseSession(Session *session) {
    FormState &form = session->form;
    const bool designer = session->SessionKind == KIND_DESIGNER;
    session->State = STATE_ENDING;
    ReleaseLock(session);
    session->IgnoreMessages = 1;
    FreeDevMode(&session->printer);
    ReleaseCanvas(session);
    ReleaseDeviceProp(session);
    if (form.TablesAllocated)
        for (int row = 0; row < MAX_FONTS; ++row) ReleaseFontRow(session, row);
    if (designer) session->FormBlock.DesignerOpen = 0;
    if (session->OutputToScreen && session->Window) DestroyWindow(session->Window);
    if (session->pages.ShownPage) DeleteMetaFile(session->pages.ShownPage);
    session->pages.ShownPage = nullptr;
    if (session->designer) session->DropDesigner(session);
    FreeArrayMem(session); // also tables of which not all could be had
    FreeOperatorTable(session);
    TellHostOfEnd(session);
}

} // namespace tessarine
