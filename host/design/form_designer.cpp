#include "host/design/form_designer.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "commands.h"
#include "host/base/failure.h"
#include "host/base/interrupt.h"
#include "host/design/column_dialog.h"
#include "host/design/item_sheets.h"
#include "host/design/resource_ids.h"

namespace {

constexpr const char *OWNER_CLASS = "TessDesign";
constexpr UINT BEGIN_EDIT = WM_APP;
constexpr int LINES_A_NOTCH = 3;
constexpr int FIRST_PLACE = 20; // pixels from the screen's corner
constexpr int FIRST_WIDTH = 1000;
constexpr int FIRST_HEIGHT = 720;

FormDesigner *DesignerAt(HWND window) {
    return reinterpret_cast<FormDesigner *>(GetWindowLongA(window, GWL_USERDATA));
}

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    FormDesigner *designer = DesignerAt(window);
    return designer ? designer->OnOwner(message, wParam, lParam)
                    : DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK DesignerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    FormDesigner *designer = DesignerAt(window);
    return designer ? designer->OnDesigner(message, wParam, lParam)
                    : DefWindowProcA(window, message, wParam, lParam);
}

// The window that owns the designer's and hears what the library tells; it never shows.
HWND MakeOwner(FormDesigner *designer) {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = OwnerProcedure;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.lpszClassName = OWNER_CLASS;
    RegisterClassA(&window_class);
    const HWND owner = CreateWindowExA(0, OWNER_CLASS, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                       window_class.hInstance, nullptr);
    if (!owner) throw Failure("design: the window can't be made");
    SetWindowLongA(owner, GWL_USERDATA, reinterpret_cast<LONG>(designer));
    return owner;
}

// Messages that a click or a command begins with: what was typed before belongs to the form first.
bool EndsEditing(UINT message) {
    constexpr UINT messages[] = {WM_LBUTTONDOWN, WM_MBUTTONDOWN,    WM_RBUTTONDOWN, WM_COMMAND,
                                 WM_VSCROLL,     WM_HSCROLL,        WM_MOUSEWHEEL,  WM_CLOSE,
                                 WM_SIZE,        WM_QUERYENDSESSION};
    return std::find(std::begin(messages), std::end(messages), message) != std::end(messages);
}

} // namespace

FormDesigner::FormDesigner(const std::string &form, std::vector<FieldRecord> columns,
                           bool label_form)
    : columns_(std::move(columns)), owner_(MakeOwner(this)) {
    GiveRoutines(label_form);
    try {
        Open(form);
    } catch (const Failure &) {
        Close();
        throw;
    }
}

FormDesigner::~FormDesigner() { Close(); }

void FormDesigner::Close() {
    editor_.reset();
    if (window_) SetWindowLongA(window_, GWL_WNDPROC, reinterpret_cast<LONG>(procedure_));
    SetWindowLongA(owner_, GWL_USERDATA, 0);
    DestroyWindow(owner_);
    RemoveCRepData(&data_);
}

void FormDesigner::GiveRoutines(bool label_form) {
    label_form_ = label_form;
    data_.ItemPropertiesCallback = Properties;
    data_.EditAllowed = &edit_allowed_;
    data_.LabelForm = &label_form_;
    data_.HostContext = this;
    SetCRepData(&data_);
}

void FormDesigner::Open(const std::string &form_path) {
    FormParams params{};
    params.WindowX = params.WindowY = FIRST_PLACE;
    params.WindowWidth = std::min(FIRST_WIDTH, GetSystemMetrics(SM_CXSCREEN) - 2 * FIRST_PLACE);
    params.WindowHeight = std::min(FIRST_HEIGHT, GetSystemMetrics(SM_CYSCREEN) - 3 * FIRST_PLACE);
    params.PickFieldProc = Pick;
    params.CheckFieldProc = Check;
    lstrcpynA(params.FormFile, form_path.c_str(), sizeof params.FormFile);
    params.ShowMenu = params.HorzScroll = params.VertScroll = 1;
    params.ParentWindow = owner_;
    params.WindowStyle = WS_OVERLAPPEDWINDOW;
    if (form(&params)) throw Failure(form_path + ": the designer doesn't open it", EXIT_FAILED);
    window_ = params.FormWindow;
    char title[MAX_PATH] = "";
    GetWindowTextA(window_, title, sizeof title);
    title_ = title;
    keys_ = LoadAcceleratorsA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(DESIGN_KEYS));
    reinterpret_cast<SessionHead *>(GetSessionPointer(window_, 0))->Desk.AccelTable = keys_;
    editor_.emplace(window_);
    SetWindowLongA(window_, GWL_USERDATA, reinterpret_cast<LONG>(this));
    procedure_ = reinterpret_cast<WNDPROC>(
        SetWindowLongA(window_, GWL_WNDPROC, reinterpret_cast<LONG>(DesignerProcedure)));
    InvalidateRect(window_, nullptr, FALSE);
}

// An interrupt closes the window as its user does, who may keep what has changed.
bool FormDesigner::Run() {
    bool interrupted = false;
    MSG message;
    while (window_) {
        if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (Translate(message)) continue;
            TranslateMessage(&message);
            DispatchMessageA(&message);
        } else if (interrupted) {
            WaitMessage();
        } else if (!AwaitMessage()) {
            interrupted = true;
            SendMessageA(window_, WM_CLOSE, 0, 0);
        }
    }
    return !interrupted;
}

void FormDesigner::ShowTitle(bool modified) {
    SetWindowTextA(window_, (title_ + (modified ? " *" : "")).c_str());
}

LRESULT FormDesigner::OnOwner(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case MESSAGE_SESSION_ENDED: window_ = nullptr; return 0;
    case MESSAGE_MODIFIED:
    case MESSAGE_UNMODIFIED: ShowTitle(message == MESSAGE_MODIFIED); return 0;
    case MESSAGE_MAY_EDIT:
        if (editor_) editor_->MayEdit(lParam != 0);
        return 0;
    case MESSAGE_EDITABLE_TEXT:
        if (editor_) editor_->Show(reinterpret_cast<const char *>(lParam));
        return 0;
    case BEGIN_EDIT:
        if (editor_) editor_->Begin();
        return 0;
    case WM_COMMAND: // the item's menu belongs to the owner
        SendMessageA(window_, WM_COMMAND,
                     LOWORD(wParam) == COMMAND_MENU_PROPERTIES ? COMMAND_ITEM_PROPERTIES
                                                               : LOWORD(wParam),
                     0);
        return 0;
    default: return DefWindowProcA(owner_, message, wParam, lParam);
    }
}

LRESULT FormDesigner::OnDesigner(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    const WNDPROC procedure = procedure_;
    if (message == WM_ENTERIDLE && GetKeyState(VK_F1) < 0) help_wanted_ = true;
    if (message == WM_COMMAND && OnCommand(wParam, lParam)) return 0;
    if (editor_ && EndsEditing(message)) editor_->Finish(true);
    if (message == WM_MOUSEWHEEL || message == WM_MOUSEHWHEEL) {
        const bool across = message == WM_MOUSEHWHEEL || LOWORD(wParam) & MK_SHIFT;
        const int delta = GET_WHEEL_DELTA_WPARAM(wParam);
        OnWheel(across ? WM_HSCROLL : WM_VSCROLL, message == WM_MOUSEHWHEEL ? -delta : delta);
        return 0;
    }
    if (message == WM_NCDESTROY) {
        editor_.reset();
        SetWindowLongA(window, GWL_USERDATA, 0);
    }
    return CallWindowProcA(procedure, window, message, wParam, lParam);
}

// Exit goes the way of the window's close box, which keeps the form when the answer is Cancel; the
// filter's entry of the menu does what it says.
bool FormDesigner::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (editor_ && editor_->OnCommand(wParam, lParam)) return true;
    if (std::exchange(help_wanted_, false)) return false; // the library shows help on the entry
    constexpr struct {
        WORD from;
        UINT message;
        WPARAM wParam;
    } turned[] = {
        {COMMAND_CLOSE_FORM, WM_CLOSE, 0},
        {COMMAND_REPORT_FILTER_ENTRY, WM_COMMAND, COMMAND_REPORT_FILTER},
    };
    for (const auto &row : turned) {
        if (LOWORD(wParam) != row.from) continue;
        SendMessageA(window_, row.message, row.wParam, 0);
        return true;
    }
    return false;
}

void FormDesigner::OnWheel(UINT bar, int delta) {
    wheel_rest_ += delta * LINES_A_NOTCH;
    const WPARAM code = wheel_rest_ > 0 ? SB_LINEUP : SB_LINEDOWN;
    const int lines = std::abs(wheel_rest_) / WHEEL_DELTA;
    wheel_rest_ %= WHEEL_DELTA;
    for (int line = 0; line < lines; ++line) SendMessageA(window_, bar, code, 0);
}

int32_t __stdcall FormDesigner::Properties(Session *session, uint32_t code, uint32_t writable,
                                           void *designer) {
    constexpr uint32_t LABEL = 41027;
    auto *self = static_cast<FormDesigner *>(designer);
    if (!writable) {
        MessageBoxA(self->window_,
                    "This form can only be read: its file is held by another program or may not be "
                    "written.",
                    "Properties", MB_OK | MB_ICONINFORMATION);
        return 0;
    }
    if (code != LABEL) return OpenItemSheet(self->window_, session, code);
    PostMessageA(self->owner_, BEGIN_EDIT, 0, 0);
    return 0;
}

const FieldRecord *FormDesigner::Find(const std::string &name) const {
    for (const FieldRecord &field : columns_)
        if (!lstrcmpiA(field.FieldName, name.c_str())) return &field;
    return nullptr;
}

namespace {

void TakeColumn(const FieldRecord &column, FieldRecord *record) {
    lstrcpynA(record->FieldName, column.FieldName, sizeof record->FieldName);
    lstrcpynA(record->Caption, column.FieldName, sizeof record->Caption);
    record->HostTable = column.HostTable;
    record->HostField = column.HostField;
    record->ValueType = column.ValueType;
    record->FieldWidth = column.FieldWidth;
    record->Decimals = column.Decimals;
}

} // namespace

int32_t __stdcall FormDesigner::Pick(HWND window, FieldRecord *record, int32_t level,
                                     void *designer) {
    const auto &columns = static_cast<FormDesigner *>(designer)->columns_;
    if (columns.empty()) {
        MessageBoxA(window, "There is no table to take fields from; name one with --data.",
                    "Data Field", MB_OK | MB_ICONINFORMATION);
        return 0;
    }
    const std::string title =
        level > 0 ? "Field of Sort Level " + std::to_string(level) : std::string("Data Field");
    const int place = AskForColumn(window, columns, title, record->FieldName);
    if (place < 0) return 0;
    TakeColumn(columns[static_cast<size_t>(place)], record);
    return 1;
}

int32_t __stdcall FormDesigner::Check(HWND, FieldRecord *record, int32_t, void *designer) {
    const FieldRecord *column = static_cast<FormDesigner *>(designer)->Find(record->FieldName);
    if (!column) return 0;
    TakeColumn(*column, record);
    return 1;
}
