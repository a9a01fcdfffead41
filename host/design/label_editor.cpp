#include "host/design/label_editor.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int EDIT_ID = 1; // no command of the designer has this number
constexpr int ROOM = 8;    // pixels around the text
constexpr int LEAST_WIDTH = 160;
constexpr size_t PREFIX = 6; // the library may put "CALC->" in front

FormDesk *DeskOf(Session *session) { return &reinterpret_cast<SessionHead *>(session)->Desk; }

// In the edit control a line ends in two characters.
std::string ForControl(const std::string &text) {
    std::string lines;
    for (const char c : text) {
        if (c == '\n' && (lines.empty() || lines.back() != '\r')) lines += '\r';
        lines += c;
    }
    return lines;
}

HWND MakeControl(HWND designer) {
    return CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_BORDER | ES_MULTILINE | ES_AUTOHSCROLL, 0,
                           0, 0, 0, designer, reinterpret_cast<HMENU>(EDIT_ID),
                           GetModuleHandleA(nullptr), nullptr);
}

} // namespace

LabelEditor::LabelEditor(HWND designer)
    : designer_(designer), session_(GetSessionPointer(designer, 0)), desk_(DeskOf(session_)),
      edit_(MakeControl(designer)) {
    SendMessageA(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
    SendMessageA(edit_, EM_SETLIMITTEXT, MAX_LABEL_TEXT, 0);
    desk_->EditWndProc = reinterpret_cast<WNDPROC>(
        SetWindowLongA(edit_, GWL_WNDPROC, reinterpret_cast<LONG>(FrEditSubclass)));
    desk_->EditWindow = edit_;
}

LabelEditor::~LabelEditor() {
    if (GetSessionPointer(designer_, 0) != session_) return; // the window took the control along
    desk_->EditWindow = nullptr;
    DestroyWindow(edit_);
}

void LabelEditor::Show(const char *text) {
    if (!Editing()) SetWindowTextA(edit_, ForControl(text).c_str());
}

// The designer's own context shows where its form units lie in the window.
RECT LabelEditor::Place() const {
    const ItemRecord &item = desk_->Items[*desk_->SelectedItem];
    RECT place{item.x, item.y, item.x + item.width, item.y + item.height};
    const HDC device = GetDC(designer_);
    LPtoDP(device, reinterpret_cast<POINT *>(&place), 2);
    ReleaseDC(designer_, device);
    return place;
}

void LabelEditor::Begin() {
    const int row = *desk_->SelectedItem;
    if (Editing() || !may_edit_ || row < 0) return;
    const ItemRecord &item = desk_->Items[row];
    if (item.ItemType != ITEM_LABEL) return;
    before_ = item.LabelText;
    row_ = row;
    const RECT place = Place();
    SetWindowTextA(edit_, ForControl(before_).c_str());
    SetWindowPos(edit_, HWND_TOP, place.left - ROOM / 2, place.top - ROOM / 2,
                 std::max<int>(place.right - place.left + ROOM, LEAST_WIDTH),
                 place.bottom - place.top + ROOM, SWP_SHOWWINDOW);
    SetFocus(edit_);
    SendMessageA(edit_, EM_SETSEL, 0, -1);
}

// The focus goes back last, since its loss finishes the editing too.
void LabelEditor::Finish(bool take) {
    if (!Editing()) return;
    std::vector<char> text(MAX_LABEL_TEXT + PREFIX + 1);
    GetWindowTextA(edit_, text.data(), MAX_LABEL_TEXT + 1);
    const bool same_label = *desk_->SelectedItem == row_;
    const bool empty = text[0] == 0; // a label without a text couldn't be found again
    row_ = -1;
    ShowWindow(edit_, SW_HIDE);
    if (take && same_label && !empty && ForControl(before_) != text.data())
        UpdateLabelText(session_, text.data());
    if (GetFocus() == edit_ || !GetFocus()) SetFocus(designer_);
}

bool LabelEditor::Translate(const MSG &message) {
    const bool escape =
        message.hwnd == edit_ && message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
    if (escape) Finish(false);
    return escape;
}

bool LabelEditor::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (reinterpret_cast<HWND>(lParam) != edit_) return false;
    if (HIWORD(wParam) == EN_SETFOCUS) Begin();
    if (HIWORD(wParam) == EN_KILLFOCUS) Finish(true);
    return true;
}
