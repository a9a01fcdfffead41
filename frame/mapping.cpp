#include "frame/mapping.h"

namespace tessarine {

void ApplyMapping(const Session *session, HDC device) {
    SetMapMode(device, MM_ANISOTROPIC);
    SetWindowExtEx(device, UNITS_PER_INCH, UNITS_PER_INCH, nullptr);
    SetViewportExtEx(device, session->device.LogPixelsX, session->device.LogPixelsY, nullptr);
}

} // namespace tessarine
