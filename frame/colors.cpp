#include "frame/colors.h"

namespace tessarine {

namespace {

constexpr int CUSTOM_COLORS = 16;

} // namespace

uint32_t EditColor(HWND owner, uint32_t color, int fullOpen) {
    COLORREF greys[CUSTOM_COLORS];
    for (int shade = 0; shade < CUSTOM_COLORS; ++shade) {
        const int value = (shade + 1) * 255 / CUSTOM_COLORS;
        greys[shade] = RGB(value, value, value);
    }
    CHOOSECOLORA choice{};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = owner;
    choice.rgbResult = color;
    choice.lpCustColors = greys;
    choice.Flags = CC_RGBINIT | (fullOpen ? CC_FULLOPEN : CC_PREVENTFULLOPEN);
    return ChooseColorA(&choice) ? choice.rgbResult : color;
}

} // namespace tessarine
