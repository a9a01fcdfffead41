#include "host/export/page_play.h"

#include <cmath>

#include <winspool.h>

#include "tessarine.h"

namespace {

constexpr double USUAL_OFFSET = 0.25; // inches that most printers can't reach

struct Offset {
    double x; // inches
    double y;
};

Offset AskPrinter() {
    char name[200] = "";
    DWORD size = sizeof name;
    const HDC printer =
        GetDefaultPrinterA(name, &size) ? CreateICA("WINSPOOL", name, nullptr, nullptr) : nullptr;
    if (!printer) return {USUAL_OFFSET, USUAL_OFFSET};
    const auto inches = [&](int offset, int resolution) {
        return static_cast<double>(GetDeviceCaps(printer, offset)) /
               GetDeviceCaps(printer, resolution);
    };
    const Offset offset{inches(PHYSICALOFFSETX, LOGPIXELSX), inches(PHYSICALOFFSETY, LOGPIXELSY)};
    DeleteDC(printer);
    return offset;
}

LONG Pixels(double inches, double pixels_per_inch) { return std::lround(inches * pixels_per_inch); }

} // namespace

POINT PageOffset(double pixels_per_inch) {
    static const Offset offset = AskPrinter();
    return {Pixels(offset.x, pixels_per_inch), Pixels(offset.y, pixels_per_inch)};
}

void PlayPage(HDC device, HMETAFILE page, POINT origin, double pixels_per_inch) {
    constexpr int INCHES = 100; // an extent of one inch would round the scale
    const POINT offset = PageOffset(pixels_per_inch);
    const int extent = static_cast<int>(Pixels(INCHES, pixels_per_inch));
    SetMapMode(device, MM_ANISOTROPIC);
    SetWindowExtEx(device, INCHES * UNITS_PER_INCH, INCHES * UNITS_PER_INCH, nullptr);
    SetViewportExtEx(device, extent, extent, nullptr);
    SetViewportOrgEx(device, origin.x + offset.x, origin.y + offset.y, nullptr);
    PlayMetaFile(device, page);
}
