#include "frame/colors.h"

namespace tessarine {

namespace {

constexpr int CUSTOM_COLORS = 16;
constexpr double GREY_STEP = 15.9375;

} // namespace

uint32_t EditColor(HWND owner, uint32_t color, int fullOpen) {
    COLORREF greys[CUSTOM_COLORS];
    for (int shade = 0; shade < CUSTOM_COLORS; ++shade) {
        const int value = static_cast<int>((shade + 1) * GREY_STEP);
        greys[shade] = RGB(value, value, value);
    }
    CHOOSECOLORA choice{};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = owner;
    choice.rgbResult = color;
    choice.lpCustColors = greys;
    choice.Flags = CC_RGBINIT | (fullOpen ? CC_FULLOPEN : 0);
    return ChooseColorA(&choice) ? choice.rgbResult : color;
}

} // namespace tessarine
