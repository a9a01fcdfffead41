// Pages drawn by the platform's own metafile player.
#pragma once

#include <windows.h>

// Where pages begin on the sheet: the offset of the default printer's reach, in pixels at
// pixels_per_inch; a usual one where there is no printer.
POINT PageOffset(double pixels_per_inch);

// Plays a page onto the sheet whose top left corner is at origin.
void PlayPage(HDC device, HMETAFILE page, POINT origin, double pixels_per_inch);
