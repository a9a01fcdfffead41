#include "designer/dialogs/calculation_name.h"

#include <cstdio>
#include <cstring>

#include "frame/dialog_controls.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr char PREFIX[] = "CALC->";
constexpr int NAME_LENGTH = 43;

} // namespace

void ShowCalculationName(HWND dialog, int control, const char *name) {
    SetDlgItemTextA(dialog, control, HasPrefix(name, PREFIX) ? name + std::strlen(PREFIX) : name);
}

bool ReadCalculationName(HWND dialog, int control, char *name, size_t size) {
    char typed[NAME_LENGTH + 1];
    ReadTextItem(dialog, control, typed);
    RepStrTrim(typed);
    if (!*typed) return false;
    std::snprintf(name, size, "%s%s", PREFIX, typed);
    return true;
}

} // namespace tessarine
