// The text of a POSTNET barcode.
#pragma once

namespace tessarine {

// Changes a zip code of length characters, in a buffer of limit bytes, to its barcode text. 1, or
// 0 when it isn't a zip code of 5, 9 or 11 digits or there is no room: the text stays as it is.
int PostnetText(char *text, int length, int limit);

} // namespace tessarine
