#include "device/device_properties.h"
#include "form/file_dialog.h"
#include "frame/cursor.h"
#include "frame/dialogs.h"
#include "frame/fatal_error.h"
#include "frame/session_table.h"
#include "frame/text.h"
#include "output/page_store.h"
#include "output/preview.h"
#include "output/print_job.h"
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
    explicit NewFile(const char *path)
        : path_(GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES ? path : nullptr) {}
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

// The whole report file goes to the chosen name; only a finished run has one.
void SaveReport(Session *session) {
    if (session->run.RunPhase != PHASE_FINISHED || session->run.ViewingFile) return;
    char name[MAX_PATH] = "";
    if (!AskFileName(session, name, ReportFileFilter(), "Save the Report to a Disk File", true) ||
        !*name)
        return;
    AddFileEnding(name, ReportFileEnding(), sizeof name);
    if (!lstrcmpiA(name, session->pages.ReportPath)) return;
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

// Nothing else clears the area around a fitted sheet.
void ToggleFit(Session *session) {
    session->view.FitPage = !session->view.FitPage;
    SetFitText(session);
    ResizeCanvas(session);
    if (session->view.FitPage) {
        const RECT area{0, 0, session->view.ViewWidth, session->view.ViewHeight};
        SetWindowOrgEx(session->device.ScreenDC, 0, 0, nullptr);
        FillRect(session->device.ScreenDC, &area, session->device.BackBrush);
    }
    PaintPreview(session);
}

// A close that comes while another message is being handled or an entry point is at work, as
// behind a message box or in a print job, waits for the end of that.
void StopOrEnd(Session *session) {
    if (session->run.RunPhase != PHASE_FINISHED)
        session->run.CancelState = CANCEL_STOP;
    else if (session->view.MessagesInHand > 1 || session->UnwindPoint > 0)
        session->view.CloseWanted = 1;
    else
        session->EndSession(session);
}

struct ActionRow {
    int number;
    void (*action)(Session *session);
};

constexpr ActionRow commands[] = {
    {COMMAND_PAGE_UP, PageUp},     {COMMAND_PAGE_DOWN, PageDown}, {COMMAND_LINE_UP, LineUp},
    {COMMAND_LINE_DOWN, LineDown}, {COMMAND_LEFT, ColumnLeft},    {COMMAND_RIGHT, ColumnRight},
    {COMMAND_SAVE, SaveReport},    {COMMAND_JUMP, Jump},          {COMMAND_PRINT, PrintWithDialog},
    {COMMAND_FIT, ToggleFit},      {COMMAND_EXIT, StopOrEnd},
};

constexpr ActionRow vertical_codes[] = {
    {SB_LINEUP, LineUp}, {SB_LINEDOWN, LineDown}, {SB_PAGEUP, PageUp}, {SB_PAGEDOWN, PageDown}};

constexpr ActionRow horizontal_codes[] = {{SB_LINELEFT, ColumnLeft},
                                          {SB_LINERIGHT, ColumnRight},
                                          {SB_PAGELEFT, ViewLeft},
                                          {SB_PAGERIGHT, ViewRight}};

template <size_t Rows> bool Act(const ActionRow (&rows)[Rows], int number, Session *session) {
    for (const ActionRow &row : rows) {
        if (row.number != number) continue;
        row.action(session);
        return true;
    }
    return false;
}

bool OnCommand(Session *session, WPARAM wParam) { return Act(commands, LOWORD(wParam), session); }

bool OnVerticalScroll(Session *session, WPARAM wParam) {
    if (LOWORD(wParam) == SB_THUMBTRACK)
        TrackVertical(session, static_cast<short>(HIWORD(wParam)));
    else
        Act(vertical_codes, LOWORD(wParam), session);
    return true;
}

bool OnHorizontalScroll(Session *session, WPARAM wParam) {
    if (LOWORD(wParam) == SB_THUMBTRACK)
        TrackHorizontal(session, static_cast<short>(HIWORD(wParam)));
    else
        Act(horizontal_codes, LOWORD(wParam), session);
    return true;
}

bool OnPaint(Session *session, WPARAM) {
    PAINTSTRUCT paint;
    BeginPaint(session->device.Window, &paint);
    EndPaint(session->device.Window, &paint);
    ResizeCanvas(session);
    PaintPreview(session);
    return true;
}

bool OnClose(Session *session, WPARAM) {
    if (session->run.RunPhase != PHASE_CLOSING) StopOrEnd(session);
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
};

// In the middle of a print job the window still shows the run's pages at its own scale.
class WindowTurn {
public:
    explicit WindowTurn(Session *session) : session_(session->job.InForce ? session : nullptr) {
        if (session_) SwapJobState(session_);
    }
    WindowTurn(const WindowTurn &) = delete;
    WindowTurn &operator=(const WindowTurn &) = delete;
    ~WindowTurn() {
        if (session_) SwapJobState(session_);
    }

private:
    Session *session_; // null: no job's state is in force
};

bool Handle(Session *session, UINT message, WPARAM wParam) {
    const WindowTurn turn(session);
    for (const MessageRow &row : messages) {
        if (row.message != message) continue;
        if (!row.handle(session, wParam)) return false;
        if (!SessionStands(session)) return true;
        SetMenuState(session);
        UpdateScrollBars(session);
        return true;
    }
    return false;
}

// Handles the message, and the close that waited for its end.
bool HandleWhole(Session *session, UINT message, WPARAM wParam) {
    ++session->view.MessagesInHand;
    const bool handled = Guarded(session, true, [&] { return Handle(session, message, wParam); });
    if (!SessionStands(session)) return true;
    --session->view.MessagesInHand;
    EndIfClosed(session);
    return handled;
}

} // namespace

void EndIfClosed(Session *session) {
    const ViewState &view = session->view;
    if (view.CloseWanted && view.MessagesInHand == 0 && session->UnwindPoint == 0)
        session->EndSession(session);
}

LRESULT CALLBACK RepWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Session *session = GetSessionPointer(window, 0);
    const bool deaf = !session || session->IgnoreMessages || session->WindowInMaking;
    if (!deaf && HandleWhole(session, message, wParam)) return 0;
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace tessarine
