// The text of a POSTNET barcode.
#pragma once

namespace tessarine {

// Changes a zip code in place; 1 when it became a barcode, 0 when it couldn't.
int PostnetText(char *text, int length, int limit);

} // namespace tessarine
