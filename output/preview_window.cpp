#include "output/preview_window.h"

#include "canvas/canvas.h"
#include "canvas/command_table.h"
#include "commands.h"
#include "device/device_properties.h"
#include "frame/boundary.h"
#include "frame/cursor.h"
#include "frame/dialogs.h"
#include "frame/files.h"
#include "frame/session_table.h"
#include "output/jump_dialog.h"
#include "output/page_printing.h"
#include "output/page_store.h"
#include "output/preview_paint.h"
#include "output/preview_scroll.h"
#include "output/report_file.h"

namespace tessarine {

namespace {

constexpr int LINE_PARTS = 20;   // of the view's height in a line step
constexpr int COLUMN_PARTS = 10; // of the view's width in a column step

void PageUp(Session *session) { ScrollUp(session, session->view.ViewHeight); }
void PageDown(Session *session) { ScrollDown(session, session->view.ViewHeight); }
void LineUp(Session *session) { ScrollUp(session, session->view.ViewHeight / LINE_PARTS); }
void LineDown(Session *session) { ScrollDown(session, session->view.ViewHeight / LINE_PARTS); }
void ColumnLeft(Session *session) { ScrollLeft(session, session->view.ViewWidth / COLUMN_PARTS); }
void ColumnRight(Session *session) { ScrollRight(session, session->view.ViewWidth / COLUMN_PARTS); }
void ViewLeft(Session *session) { ScrollLeft(session, session->view.ViewWidth); }
void ViewRight(Session *session) { ScrollRight(session, session->view.ViewWidth); }

// Removes a new file that did not get whole.
class NewFile {
public:
    explicit NewFile(const char *path) : path_(FileStands(path) ? nullptr : path) {}
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;
    ~NewFile() {
        if (path_) DeleteFileA(path_);
    }
    void Whole() { path_ = nullptr; }

private:
    const char *path_; // null: nothing to remove
};

void CopyReport(Session *session, const char *path) {
    const CursorKept cursor;
    SetCursor(session->device.WaitCursor);
    NewFile file(path);
    const char *report = session->pages.ReportPath;
    CopyFileData(session, report, 0, path, 0, FileLength(report));
    file.Whole();
}

bool ReportFinished(const Session *session) {
    return session->report.RunPhase == PHASE_FINISHED && session->pages.ReportWhole &&
           !session->ViewingFile;
}

// The whole report file goes to the chosen name; only a finished run has one.
void SaveReport(Session *session) {
    if (!ReportFinished(session)) return;
    char name[MAX_PATH] = "";
    if (AskReportName(session, name, sizeof name, "Save the Report to a Disk File") &&
        !SameFile(name, session->pages.ReportPath))
        CopyReport(session, name);
}

void Jump(Session *session) {
    const int page = static_cast<int>(RunDialog(session, "JumpParam", JumpParam, 0)) - 1;
    if (page < 0 || page == session->pages.ShownPageIndex) return;
    TakePage(session, page);
    session->view.OriginY = 0;
    PaintPreview(session);
}

void PrintWithDialog(Session *session) { PrintPages(session, 1); }

// Names the command after what it will do next.
void SetFitText(const Session *session) {
    ModifyMenuA(session->device.Menu, COMMAND_FIT, MF_BYCOMMAND | MF_STRING, COMMAND_FIT,
                session->preview.FitPage ? "&Zoom" : "Pre&view");
    DrawMenuBar(session->Window);
}

// Nothing else clears the area around a fitted sheet.
void ToggleFit(Session *session) {
    const bool fitted = !session->preview.FitPage;
    session->preview.FitPage = fitted;
    session->view.FixedBitmap =
        fitted ? SIZE{session->report.PageWidthUnits, session->report.PageBottomUnits} : SIZE{};
    SetFitText(session);
    ResizeCanvas(session);
    if (fitted) {
        const RECT area{0, 0, session->view.ViewWidth, session->view.ViewHeight};
        SetWindowOrgEx(session->drawing.ScreenDC, 0, 0, nullptr);
        FillRect(session->drawing.ScreenDC, &area, session->device.BackBrush);
    }
    PaintPreview(session);
}

// A start that failed has no host to release it; one that is still at work is cancelled.
bool StartFailed(const Session *session) {
    return session->State == STATE_OPENING && session->UnwindPoint == 0;
}

// A run that goes on is asked to stop, but behind a print job only the job is. All else ends as
// soon as nothing works on it: behind a box, a dialog or a job that is in hand.
void StopOrEnd(Session *session) {
    if (session->State == STATE_FINISHED || StartFailed(session))
        WantEnd(session);
    else if (session->job.Printing)
        session->job.CancelState = CANCEL_STOP;
    else
        session->report.CancelState = CANCEL_STOP;
}

bool PagesFinished(const Session *session) { return FinishedPages(session) >= 1; }
bool PagesToChoose(const Session *session) { return FinishedPages(session) >= 2; }
bool Always(const Session *) { return true; }

constexpr CommandRow commands[] = {
    {COMMAND_PAGE_UP, PageUp},
    {COMMAND_PAGE_DOWN, PageDown},
    {COMMAND_LINE_UP, LineUp},
    {COMMAND_LINE_DOWN, LineDown},
    {COMMAND_LEFT, ColumnLeft},
    {COMMAND_RIGHT, ColumnRight},
    {COMMAND_SAVE, SaveReport, ReportFinished},
    {COMMAND_JUMP, Jump, PagesToChoose},
    {COMMAND_PRINT, PrintWithDialog, PagesFinished},
    {COMMAND_FIT, ToggleFit, PagesFinished},
    {COMMAND_EXIT, StopOrEnd, Always},
};

constexpr CommandRow vertical_codes[] = {
    {SB_LINEUP, LineUp}, {SB_LINEDOWN, LineDown}, {SB_PAGEUP, PageUp}, {SB_PAGEDOWN, PageDown}};

constexpr CommandRow horizontal_codes[] = {{SB_LINELEFT, ColumnLeft},
                                           {SB_LINERIGHT, ColumnRight},
                                           {SB_PAGELEFT, ViewLeft},
                                           {SB_PAGERIGHT, ViewRight}};

bool OnCommand(Session *session, WPARAM wParam) {
    return RunCommand(session, commands, LOWORD(wParam));
}

bool OnVerticalScroll(Session *session, WPARAM wParam) {
    if (LOWORD(wParam) == SB_THUMBTRACK)
        TrackVertical(session, static_cast<short>(HIWORD(wParam)));
    else
        RunCommand(session, vertical_codes, LOWORD(wParam));
    return true;
}

bool OnHorizontalScroll(Session *session, WPARAM wParam) {
    if (LOWORD(wParam) == SB_THUMBTRACK)
        TrackHorizontal(session, static_cast<short>(HIWORD(wParam)));
    else
        RunCommand(session, horizontal_codes, LOWORD(wParam));
    return true;
}

bool OnPaint(Session *session, WPARAM) {
    PAINTSTRUCT paint;
    BeginPaint(session->Window, &paint);
    EndPaint(session->Window, &paint);
    ResizeCanvas(session);
    PaintPreview(session);
    return true;
}

bool OnClose(Session *session, WPARAM) {
    const bool closing =
        session->State == STATE_RUNNING && session->report.RunPhase == PHASE_CLOSING;
    if (!closing) StopOrEnd(session);
    return true;
}

// The window goes by another's hand, as with its owner. A run that its host still feeds stands
// until the host has heard of it, since its tables are in the host's hands.
bool OnDestroy(Session *session, WPARAM) {
    ReleaseScreen(session);
    session->view.PaintEnabled = 0;
    session->view.WindowGone = 1;
    SetWindowLongA(session->Window, 0, 0);
    session->Window = nullptr;
    session->device.Menu = nullptr;
    session->job.CancelState = session->report.CancelState = CANCEL_STOP;
    StopOrEnd(session);
    return true;
}

struct MessageRow {
    UINT message;
    bool (*handle)(Session *session, WPARAM wParam);
};

constexpr MessageRow messages[] = {
    {WM_COMMAND, OnCommand},
    {WM_VSCROLL, OnVerticalScroll},
    {WM_HSCROLL, OnHorizontalScroll},
    {WM_PAINT, OnPaint},
    {WM_CLOSE, OnClose},
    {WM_DESTROY, OnDestroy},
};

bool Handle(Session *session, UINT message, WPARAM wParam) {
    for (const MessageRow &row : messages) {
        if (row.message != message) continue;
        if (!row.handle(session, wParam)) return false;
        if (session->view.WindowGone) return true;
        SetMenuState(session);
        UpdateScrollBars(session);
        return true;
    }
    return false;
}

// The session may be released at the end of this.
bool HandleWhole(Session *session, UINT message, WPARAM wParam) {
    const InMessage inside(session);
    return Guarded(session, true, [&] { return Handle(session, message, wParam); });
}

} // namespace

// Drawing the bar takes longer than turning a page, so it is drawn only when it changes.
void SetMenuState(Session *session) {
    const DeviceState &device = session->device;
    if (device.Menu && EnableCommands(session, commands, device.Menu)) DrawMenuBar(session->Window);
}

LRESULT CALLBACK RepWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Session *session = window ? GetSessionPointer(window, 0) : nullptr;
    const bool in_making = session && session->WindowInMaking && message != WM_DESTROY;
    const bool deaf = !session || session->IgnoreMessages || in_making;
    if (!deaf && HandleWhole(session, message, wParam)) return 0;
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace tessarine
