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

int ReadRepLogbrush(const RepLogbrush *packed, LOGBRUSH *brush) {
    brush->lbStyle = packed->Style;
    brush->lbColor = packed->Color;
    brush->lbHatch = static_cast<ULONG_PTR>(packed->Hatch);
    return 1;
}

int WriteRepLogbrush(const LOGBRUSH *brush, RepLogbrush *packed) {
    packed->Color = brush->lbColor;
    const auto hatch = static_cast<LONG_PTR>(brush->lbHatch);
    if (brush->lbStyle <= UINT16_MAX) packed->Style = static_cast<uint16_t>(brush->lbStyle);
    if (hatch >= INT16_MIN && hatch <= INT16_MAX) packed->Hatch = static_cast<int16_t>(hatch);
    return brush->lbStyle <= UINT16_MAX && hatch >= INT16_MIN && hatch <= INT16_MAX;
}

} // namespace tessarine
