// Values in a dialog's controls: texts, numbers, choices, bits, lists.
#pragma once

#include <cstdint>
#include <span>

#include "state/windows.h"

namespace tessarine {

// ---- text and numbers

// At most Size - 1 characters, as a control holds them.
template <size_t Size> void ReadTextItem(HWND dialog, int control, char (&text)[Size]) {
    text[0] = 0;
    GetDlgItemTextA(dialog, control, text, Size);
}
// The length that can be typed into an edit control.
void LimitTextItem(HWND dialog, int control, int length);
// The number that the text begins with, forced into 0 to most; 0 when there is none.
int ReadWholeItem(HWND dialog, int control, int most = INT16_MAX);

// ---- radio buttons, one for each value, and check boxes, one for each bit

struct ValueRow {
    int Control;
    int Value;
};

// Checks the button of the value and clears the others; a value with no button checks none.
void ShowChoice(HWND dialog, std::span<const ValueRow> rows, int value);
int ReadChoice(HWND dialog, std::span<const ValueRow> rows, int none); // none is checked
void ShowBits(HWND dialog, std::span<const ValueRow> rows, unsigned bits);
// bits with those of the rows as the user left them.
unsigned ReadBits(HWND dialog, std::span<const ValueRow> rows, unsigned bits);

bool IsChecked(HWND dialog, int control);
void EnableItems(HWND dialog, std::span<const int> items, bool enable);

// ---- the list of a dialog that offers one: LIST_CHOICE

int AddListRow(HWND dialog, const char *text); // its place
void SelectListRow(HWND dialog, int row);
int SelectedListRow(HWND dialog); // -1: none

} // namespace tessarine
