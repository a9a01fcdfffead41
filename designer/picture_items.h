// Pictures from the clipboard and from BMP files.
#pragma once

#include "state/session.h"

namespace tessarine {

void BeginPicture(Session *session, int command); // COMMAND_PICTURE_PASTED or COMMAND_PICTURE_FILE
void PlacePicture(Session *session);
int PictureFromClipboard(Session *session); // 1 with the row in NewPicture, 0 after a message
int PictureFromFile(Session *session);      // 0 also on Cancel

} // namespace tessarine
