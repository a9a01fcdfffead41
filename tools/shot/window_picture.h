// Pictures of windows.
#pragma once

#include <string>

#include <windows.h>

void ServeMessages();
// Brings the window to the size of all pictures and paints it.
void Settle(HWND window);
// The window with its frame, as it stands.
void TakePicture(HWND window, const std::string &path);
// The same, settled before.
void TakeWindow(HWND window, const std::string &path);
