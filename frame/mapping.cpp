#include "frame/mapping.h"

namespace tessarine {

void ApplyMapping(const Session *session, HDC device) {
    SetMapMode(device, MM_ANISOTROPIC);
    SetWindowExtEx(device, UNITS_PER_INCH, UNITS_PER_INCH, nullptr);
    SetViewportExtEx(device, session->device.LogPixelsX, session->device.LogPixelsY, nullptr);
}

void TakePixels(Session *session, HDC device) {
    session->device.LogPixelsX = GetDeviceCaps(device, LOGPIXELSX);
    session->device.LogPixelsY = GetDeviceCaps(device, LOGPIXELSY);
}

} // namespace tessarine
