// What a person can set of an item beyond the menu, by the library's own dialogs.
#pragma once

#include <windows.h>

#include "tessarine.h"

// Opens what there is for the code of ItemPropertiesCallback; true when something was changed.
bool OpenItemSheet(HWND designer, struct Session *session, uint32_t code);
