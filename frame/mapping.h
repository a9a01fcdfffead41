// One logical unit is 1/250 inch on every device.
#pragma once

#include "state/session.h"

namespace tessarine {

// Sets MM_ANISOTROPIC with window extent 250 by 250 and the session's LogPixelsX and LogPixelsY.
void ApplyMapping(const Session *session, HDC device);

// The same with the device's own pixels per inch.
void ApplyOwnMapping(HDC device);

// Makes the device's pixels per inch the session's.
void TakePixels(Session *session, HDC device);

// While one stands, the session's pixels per inch are those of this device.
class PixelsOf {
public:
    PixelsOf(Session *session, HDC device)
        : session_(session), x_(session->drawing.LogPixelsX), y_(session->drawing.LogPixelsY) {
        TakePixels(session, device);
    }
    PixelsOf(const PixelsOf &) = delete;
    PixelsOf &operator=(const PixelsOf &) = delete;
    ~PixelsOf() {
        session_->drawing.LogPixelsX = x_;
        session_->drawing.LogPixelsY = y_;
    }

private:
    Session *session_;
    int32_t x_;
    int32_t y_;
};

// Inches to form units: multiplied by 250.0 and truncated.
inline int InchesToUnits(double inches) { return static_cast<int>(inches * 250.0); }

} // namespace tessarine
