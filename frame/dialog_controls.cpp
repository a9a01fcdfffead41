#include "frame/dialog_controls.h"

#include <algorithm>

#include "commands.h"
#include "frame/text_numbers.h"

namespace tessarine {

void LimitTextItem(HWND dialog, int control, int length) {
    SendDlgItemMessageA(dialog, control, EM_LIMITTEXT, static_cast<WPARAM>(length), 0);
}

int ReadWholeItem(HWND dialog, int control, int most) {
    char text[40];
    ReadTextItem(dialog, control, text);
    return std::clamp(WholeNumberIn(text), int32_t{0}, int32_t{most});
}

// A radio button that is checked or cleared gains or loses its tab stop.
void ShowChoice(HWND dialog, std::span<const ValueRow> rows, int value) {
    const bool known = std::any_of(rows.begin(), rows.end(),
                                   [value](const ValueRow &row) { return row.Value == value; });
    if (!known) return;
    for (const ValueRow &row : rows)
        CheckDlgButton(dialog, row.Control, row.Value == value ? BST_CHECKED : BST_UNCHECKED);
}

int ReadChoice(HWND dialog, std::span<const ValueRow> rows, int none) {
    const auto found = std::find_if(rows.begin(), rows.end(), [dialog](const ValueRow &row) {
        return IsChecked(dialog, row.Control);
    });
    return found == rows.end() ? none : found->Value;
}

void ShowBits(HWND dialog, std::span<const ValueRow> rows, unsigned bits) {
    for (const ValueRow &row : rows)
        CheckDlgButton(dialog, row.Control,
                       bits & static_cast<unsigned>(row.Value) ? BST_CHECKED : BST_UNCHECKED);
}

unsigned ReadBits(HWND dialog, std::span<const ValueRow> rows, unsigned bits) {
    for (const ValueRow &row : rows) {
        const auto bit = static_cast<unsigned>(row.Value);
        bits = IsChecked(dialog, row.Control) ? bits | bit : bits & ~bit;
    }
    return bits;
}

bool IsChecked(HWND dialog, int control) {
    return IsDlgButtonChecked(dialog, control) == BST_CHECKED;
}

void EnableItems(HWND dialog, std::span<const int> items, bool enable) {
    for (const int item : items) EnableWindow(GetDlgItem(dialog, item), enable);
}

int AddListRow(HWND dialog, const char *text) {
    return static_cast<int>(
        SendDlgItemMessageA(dialog, LIST_CHOICE, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
}

void SelectListRow(HWND dialog, int row) {
    SendDlgItemMessageA(dialog, LIST_CHOICE, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

int SelectedListRow(HWND dialog) {
    return static_cast<int>(SendDlgItemMessageA(dialog, LIST_CHOICE, LB_GETCURSEL, 0, 0));
}

} // namespace tessarine
