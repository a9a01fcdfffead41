#include "paint/text_measure.h"

#include <cmath>
#include <cstring>

#include "tessarine_numbers.h"

namespace tessarine {

namespace {

constexpr int COPIES = 64; // of a character, by which its advance is told exactly
constexpr uint16_t UNKNOWN = 0;
constexpr uint16_t ODD = UINT16_MAX; // no whole number of device pixels

// The font stays selected for the section's next item: selecting one is dearer than measuring with
// it.
void SelectForMeasuring(const MeasuredFont &font) {
    const HGDIOBJ wanted = font.font ? font.font : GetStockObject(SYSTEM_FONT);
    if (GetCurrentObject(font.device, OBJ_FONT) != wanted) SelectObject(font.device, wanted);
}

SIZE Ask(const MeasuredFont &font, const char *text, int length) {
    SIZE size{};
    SelectForMeasuring(font);
    GetTextExtentPoint32A(font.device, text, length, &size);
    return size;
}

// Devices place characters by whole pixels; the measure in form units is rounded once a text.
uint16_t LearnAdvance(const MeasuredFont &font, char character) {
    char copies[COPIES];
    std::memset(copies, character, sizeof copies);
    const double scale = static_cast<double>(font.pixels_x) / int{UNITS_PER_INCH};
    const double pixels = Ask(font, copies, COPIES).cx * scale / COPIES;
    const double whole = std::round(pixels);
    const double doubt = 0.5 * scale / COPIES; // of the rounding to form units
    if (whole < 1 || whole >= ODD - 1 || std::fabs(pixels - whole) > doubt + 1e-9) return ODD;
    return static_cast<uint16_t>(whole);
}

// False when the sum of the advances doesn't tell what the device would say.
bool SumAdvances(const MeasuredFont &font, const char *text, LONG *width) {
    uint16_t *advances = font.known->Advances;
    int64_t pixels = 0;
    for (const char *c = text; *c; ++c) {
        uint16_t &advance = advances[static_cast<unsigned char>(*c)];
        if (advance == UNKNOWN) advance = LearnAdvance(font, *c);
        if (advance == ODD) return false;
        pixels += advance;
    }
    // A half may be rounded either way; then the device is asked.
    const int64_t doubled = pixels * UNITS_PER_INCH * 2;
    const int64_t unit = font.pixels_x;
    if (doubled % unit == 0 && doubled / unit % 2 == 1) return false;
    *width = static_cast<LONG>((doubled + unit) / (2 * unit));
    return true;
}

} // namespace

SIZE TextExtent(const MeasuredFont &font, const char *text, bool height_alone) {
    int32_t &height = font.known->Height;
    SIZE size{0, height};
    if (height && (height_alone || SumAdvances(font, text, &size.cx))) return size;
    size = Ask(font, text, static_cast<int>(std::strlen(text)));
    if (*text) height = size.cy;
    return size;
}

void EndMeasuring(HDC device) {
    const HGDIOBJ stock = GetStockObject(SYSTEM_FONT);
    if (device && GetCurrentObject(device, OBJ_FONT) != stock) SelectObject(device, stock);
}

} // namespace tessarine
