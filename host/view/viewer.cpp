#include "host/view/viewer.h"

#include <algorithm>
#include <cmath>

#include <windowsx.h>

#include <commdlg.h>
#include <shellapi.h>

#include "host/base/failure.h"
#include "host/view/go_to_dialog.h"
#include "host/view/resource_ids.h"
#include "host/view/sheet_paint.h"

namespace {

constexpr const char *WINDOW_CLASS = "TessView";
constexpr int LINE = 40; // pixels of an arrow key or a click on a bar's arrow
constexpr int LINES_A_NOTCH = 3;
constexpr double FIRST_HEIGHT = 0.9; // of the screen's free height

const HINSTANCE instance = GetModuleHandleA(nullptr);

double ScreenPixelsPerInch() {
    const HDC screen = GetDC(nullptr);
    const int resolution = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return resolution;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto *viewer = reinterpret_cast<Viewer *>(GetWindowLongA(window, GWL_USERDATA));
    return viewer ? viewer->Serve(window, message, wParam, lParam)
                  : DefWindowProcA(window, message, wParam, lParam);
}

void RegisterViewer() {
    WNDCLASSA window_class{};
    window_class.style = CS_HREDRAW | CS_VREDRAW;
    window_class.lpfnWndProc = Procedure;
    window_class.hInstance = instance;
    window_class.hIcon = LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_APPLICATION));
    window_class.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    window_class.lpszMenuName = MAKEINTRESOURCEA(VIEWER_MENU);
    window_class.lpszClassName = WINDOW_CLASS;
    RegisterClassA(&window_class);
}

// As high as the screen allows, and as wide as the paper wants then.
SIZE FirstSize(PaperSize paper) {
    RECT free{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &free, 0);
    const int height = static_cast<int>((free.bottom - free.top) * FIRST_HEIGHT);
    const int frame = GetSystemMetrics(SM_CXVSCROLL) + 2 * GetSystemMetrics(SM_CXSIZEFRAME);
    const int width = static_cast<int>(height * paper.width / paper.height) + frame;
    return {std::min<LONG>(width, free.right - free.left), height};
}

bool HasBar(HWND window, int bar) {
    return GetWindowLongA(window, GWL_STYLE) & (bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL);
}

// A bar that has nothing to scroll hides; with stay, one that shows stays empty.
void SetBar(HWND window, int bar, SCROLLINFO info, bool stay) {
    if (stay && HasBar(window, bar)) info.fMask |= SIF_DISABLENOSCROLL;
    SetScrollInfo(window, bar, &info, TRUE);
}

std::string FileNameOf(const std::string &path) {
    return path.substr(path.find_last_of("\\/:") + 1);
}

} // namespace

Viewer::Viewer(const std::string &path) {
    Open(path);
    RegisterViewer();
    const SIZE size = FirstSize(report_->Paper());
    window_ = CreateWindowExA(WS_EX_ACCEPTFILES, WINDOW_CLASS, "",
                              WS_OVERLAPPEDWINDOW | WS_HSCROLL | WS_VSCROLL, CW_USEDEFAULT,
                              CW_USEDEFAULT, size.cx, size.cy, nullptr, nullptr, instance, nullptr);
    if (!window_) throw Failure("view: the window can't be made");
    keys_ = LoadAcceleratorsA(instance, MAKEINTRESOURCEA(VIEWER_KEYS));
    SetWindowLongA(window_, GWL_USERDATA, reinterpret_cast<LONG>(this));
    RECT client{};
    GetClientRect(window_, &client);
    view_->Resize({client.right, client.bottom});
    Update();
    ShowWindow(window_, SW_SHOW);
}

Viewer::~Viewer() {
    if (!window_) return;
    SetWindowLongA(window_, GWL_USERDATA, 0);
    DestroyWindow(window_);
}

void Viewer::Run() {
    MSG message;
    while (window_ && GetMessageA(&message, nullptr, 0, 0)) {
        if (Translate(&message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

bool Viewer::Translate(MSG *message) const {
    return TranslateAcceleratorA(window_, keys_, message) != 0;
}

// The report that shows stays when the new one can't be opened.
void Viewer::Open(const std::string &path) {
    auto report = std::make_unique<ReportReader>(path);
    const bool same = report_ && report_->Path() == report->Path();
    PageView view(report->Paper(), report->PageCount(), ScreenPixelsPerInch());
    if (view_) view.SetFit(view_->Fitting());
    if (same) {
        if (view_->Fitting() == Fit::NONE) view.SetZoom(view_->Zoom(), {0, 0});
        view.GoTo(view_->Page());
    }
    report_ = std::move(report);
    view_ = view;
    if (!window_) return;
    RECT client{};
    GetClientRect(window_, &client);
    view_->Resize({client.right, client.bottom});
    Update();
}

void Viewer::TryOpen(const std::string &path) {
    try {
        Open(path);
    } catch (const Failure &failure) {
        MessageBoxA(window_, failure.what(), "View a Report", MB_OK | MB_ICONWARNING);
    }
}

void Viewer::AskAndOpen() {
    char path[MAX_PATH] = "";
    OPENFILENAMEA ask{};
    ask.lStructSize = sizeof ask;
    ask.hwndOwner = window_;
    ask.lpstrFilter = "Reports (*.frc; *.fr)\0*.frc;*.fr\0All files\0*.*\0";
    ask.lpstrFile = path;
    ask.nMaxFile = sizeof path;
    ask.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (GetOpenFileNameA(&ask)) TryOpen(path);
}

void Viewer::OnDrop(HDROP drop) {
    char path[MAX_PATH] = "";
    DragQueryFileA(drop, 0, path, sizeof path);
    DragFinish(drop);
    TryOpen(path);
}

void Viewer::GoTo() {
    const int page = AskForPage(window_, view_->Page(), view_->PageCount());
    if (page) view_->GoTo(page);
}

namespace {

constexpr struct {
    WORD id;
    void (*act)(PageView *view);
} view_commands[] = {
    {VIEW_ZOOM_IN, [](PageView *view) { view->StepZoom(1); }},
    {VIEW_ZOOM_OUT, [](PageView *view) { view->StepZoom(-1); }},
    {VIEW_ACTUAL_SIZE,
     [](PageView *view) {
         view->SetZoom(1.0, {0, 0});
     }},
    {VIEW_FIT_PAGE, [](PageView *view) { view->SetFit(Fit::PAGE); }},
    {VIEW_FIT_WIDTH, [](PageView *view) { view->SetFit(Fit::WIDTH); }},
    {VIEW_FIRST, [](PageView *view) { view->GoTo(1); }},
    {VIEW_PREVIOUS, [](PageView *view) { view->GoTo(view->Page() - 1); }},
    {VIEW_NEXT, [](PageView *view) { view->GoTo(view->Page() + 1); }},
    {VIEW_LAST, [](PageView *view) { view->GoTo(view->PageCount()); }},
    {VIEW_UP, [](PageView *view) { view->ScrollBy(0, -LINE); }},
    {VIEW_DOWN, [](PageView *view) { view->ScrollBy(0, LINE); }},
    {VIEW_LEFT, [](PageView *view) { view->ScrollBy(-LINE, 0); }},
    {VIEW_RIGHT, [](PageView *view) { view->ScrollBy(LINE, 0); }},
    {VIEW_PAGE_UP, [](PageView *view) { view->Turn(-1); }},
    {VIEW_PAGE_DOWN, [](PageView *view) { view->Turn(1); }},
};

} // namespace

void Viewer::Command(WORD id) {
    for (const auto &row : view_commands)
        if (row.id == id) row.act(&*view_);
    if (id == VIEW_OPEN) AskAndOpen();
    if (id == VIEW_RELOAD) TryOpen(report_->Path());
    if (id == VIEW_GO_TO) GoTo();
    if (id == VIEW_EXIT) PostMessageA(window_, WM_CLOSE, 0, 0);
    Update();
}

// A bar that comes or goes resizes the client area, and a fitted page with it, which may want the
// bar back: what the second round shows stays.
void Viewer::UpdateBars() {
    updating_bars_ = true;
    for (const bool stay : {false, true}) {
        SetBar(window_, SB_VERT, view_->Vertical(), stay);
        SetBar(window_, SB_HORZ, view_->Horizontal(), stay);
    }
    updating_bars_ = false;
}

void Viewer::Update() {
    UpdateBars();
    CheckMenu();
    char title[MAX_PATH + 60];
    wsprintfA(title, "%s - page %d of %d - %d%%", FileNameOf(report_->Path()).c_str(),
              view_->Page(), view_->PageCount(),
              static_cast<int>(std::lround(view_->Zoom() * 100)));
    SetWindowTextA(window_, title);
    InvalidateRect(window_, nullptr, FALSE);
}

void Viewer::CheckMenu() {
    const HMENU menu = GetMenu(window_);
    const bool first = view_->Page() == 1;
    const bool last = view_->Page() == view_->PageCount();
    const struct {
        UINT id;
        bool enabled;
    } entries[] = {{VIEW_FIRST, !first},
                   {VIEW_PREVIOUS, !first},
                   {VIEW_NEXT, !last},
                   {VIEW_LAST, !last},
                   {VIEW_GO_TO, view_->PageCount() > 1},
                   {VIEW_ZOOM_IN, view_->Zoom() < PageView::ZOOM_MOST},
                   {VIEW_ZOOM_OUT, view_->Zoom() > PageView::ZOOM_LEAST}};
    for (const auto &entry : entries)
        EnableMenuItem(menu, entry.id, entry.enabled ? MF_ENABLED : MF_GRAYED);
    const Fit fit = view_->Fitting();
    CheckMenuItem(menu, VIEW_FIT_PAGE, fit == Fit::PAGE ? MF_CHECKED : MF_UNCHECKED);
    CheckMenuItem(menu, VIEW_FIT_WIDTH, fit == Fit::WIDTH ? MF_CHECKED : MF_UNCHECKED);
}

void Viewer::Paint() {
    PAINTSTRUCT paint;
    const HDC device = BeginPaint(window_, &paint);
    RECT client{};
    GetClientRect(window_, &client);
    HMETAFILE page = nullptr;
    std::string failure;
    try {
        page = report_->Page(view_->Page());
    } catch (const Failure &told) {
        failure = told.what();
    }
    PaintSheet(device, client, view_->Sheet(), {page, failure, view_->PixelsPerInch()});
    EndPaint(window_, &paint);
}

void Viewer::OnScroll(int bar, WORD code) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(window_, bar, &info);
    const bool down = bar == SB_VERT;
    const int page = static_cast<int>(info.nPage);
    switch (code) {
    case SB_LINEUP: view_->ScrollBy(down ? 0 : -LINE, down ? -LINE : 0); break;
    case SB_LINEDOWN: view_->ScrollBy(down ? 0 : LINE, down ? LINE : 0); break;
    case SB_PAGEUP: down ? view_->Turn(-1) : view_->ScrollBy(-page, 0); break;
    case SB_PAGEDOWN: down ? view_->Turn(1) : view_->ScrollBy(page, 0); break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        down ? view_->ScrollToVertical(info.nTrackPos) : view_->ScrollToHorizontal(info.nTrackPos);
        break;
    case SB_TOP: view_->GoTo(1); break;
    case SB_BOTTOM: view_->GoTo(view_->PageCount()); break;
    default: return;
    }
    Update();
}

// Wheels of fine steps send parts of a notch: what is no whole pixel yet is kept.
void Viewer::OnWheel(WPARAM wParam, LPARAM lParam) {
    const int delta = GET_WHEEL_DELTA_WPARAM(wParam);
    if (GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) {
        POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        ScreenToClient(window_, &at);
        view_->StepZoom(delta > 0 ? 1 : -1, at);
    } else {
        wheel_rest_ += delta * LINE * LINES_A_NOTCH;
        const int pixels = wheel_rest_ / WHEEL_DELTA;
        wheel_rest_ -= pixels * WHEEL_DELTA;
        const bool across = GET_KEYSTATE_WPARAM(wParam) & MK_SHIFT;
        view_->ScrollBy(across ? -pixels : 0, across ? 0 : -pixels);
    }
    Update();
}

void Viewer::BeginDrag(POINT at) {
    drag_ = at;
    SetCapture(window_);
    SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_SIZEALL)));
}

void Viewer::Drag(POINT at) {
    view_->ScrollToHorizontal(view_->Horizontal().nPos + (drag_->x - at.x));
    view_->DragBy(drag_->y - at.y);
    drag_ = at;
    Update();
}

LRESULT Viewer::Serve(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
    case WM_PAINT: Paint(); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_SIZE:
        if (wParam == SIZE_MINIMIZED) return 0;
        view_->Resize({LOWORD(lParam), HIWORD(lParam)});
        if (!updating_bars_) Update();
        return 0;
    case WM_COMMAND: Command(LOWORD(wParam)); return 0;
    case WM_VSCROLL: OnScroll(SB_VERT, LOWORD(wParam)); return 0;
    case WM_HSCROLL: OnScroll(SB_HORZ, LOWORD(wParam)); return 0;
    case WM_MOUSEWHEEL: OnWheel(wParam, lParam); return 0;
    case WM_LBUTTONDOWN: BeginDrag(at); return 0;
    case WM_MOUSEMOVE:
        if (drag_) Drag(at);
        return 0;
    case WM_LBUTTONUP: ReleaseCapture(); return 0;
    case WM_CAPTURECHANGED: drag_.reset(); return 0;
    case WM_DROPFILES: OnDrop(reinterpret_cast<HDROP>(wParam)); return 0;
    case WM_DESTROY:
        SetWindowLongA(window, GWL_USERDATA, 0);
        window_ = nullptr;
        return 0;
    default: return DefWindowProcA(window, message, wParam, lParam);
    }
}
