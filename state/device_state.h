// The printer that a session is bound to, and the display resources that it draws with.
#pragma once

#include "state/measures_state.h"
#include "state/windows.h"
#include "tessarine_numbers.h"

namespace tessarine {

struct PrinterState {
    char DeviceName[60];
    char DriverName[60]; // ends in ".drv" or ".DRV"
    char PortName[60];
    HGLOBAL DevModeMemory;
    DEVMODEA *DevMode;                // locked for the life of the session
    HDC InfoDevice;                   // a context of the printer, for measuring
    int32_t InfoPixelsX;              // pixels per inch of that context
    TextMeasures Measures[MAX_FONTS]; // by font row on that context
    float PaperWidth;                 // inches, as the next three
    float PaperHeight;
    float UsableWidth;
    float UsableHeight;
    int32_t ReportWidth;  // form units: PaperWidth
    int32_t PrintOffsetX; // form units: unprintable margin, as the next
    int32_t PrintOffsetY;
};

struct DeviceState {
    HMENU Menu;
    HBRUSH BackBrush;
    HBRUSH ForeBrush;
    HBRUSH GreyBrush;
    HPEN SolidPen;
    HPEN DotPen;
    HPEN GroupPen;
    HCURSOR WaitCursor;
    HCURSOR ArrowCursor;
    HCURSOR CrossCursor; // of a designer session alone, as the next four
    HCURSOR SizeWECursor;
    HCURSOR SizeNSCursor;
    HCURSOR SizeNESWCursor;
    HCURSOR SizeNWSECursor;
    TEXTMETRICA Metrics; // of font row 0
    int32_t FontHeight;  // form units, height of font row 0
    UINT ClipFormat;
    uint32_t PropertiesMade; // InitDeviceProp has run
};

} // namespace tessarine
