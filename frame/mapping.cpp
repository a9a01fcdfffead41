#include "frame/mapping.h"

namespace tessarine {

namespace {

void Map(HDC device, int pixelsX, int pixelsY) {
    SetMapMode(device, MM_ANISOTROPIC);
    SetWindowExtEx(device, UNITS_PER_INCH, UNITS_PER_INCH, nullptr);
    SetViewportExtEx(device, pixelsX, pixelsY, nullptr);
}

} // namespace

void ApplyMapping(const Session *session, HDC device) {
    Map(device, session->drawing.LogPixelsX, session->drawing.LogPixelsY);
}

void ApplyOwnMapping(HDC device) {
    Map(device, GetDeviceCaps(device, LOGPIXELSX), GetDeviceCaps(device, LOGPIXELSY));
}

void TakePixels(Session *session, HDC device) {
    session->drawing.LogPixelsX = GetDeviceCaps(device, LOGPIXELSX);
    session->drawing.LogPixelsY = GetDeviceCaps(device, LOGPIXELSY);
}

} // namespace tessarine
