// Pictures of the designer's window.
#pragma once

#include <string>

#include <windows.h>

// Opens the designer on a form, with the columns of a table, and lets a routine show something and
// take the picture.
void TakeDesignerOn(const std::string &form, const std::string &data, const std::string &picture,
                    void (*show)(HWND window, const std::string &picture));

void ShowItem(HWND window, const std::string &picture);       // selected
void ShowGroup(HWND window, const std::string &picture);      // behind a rubber band
void ShowLabels(HWND window, const std::string &picture);     // a sheet of labels
void ShowExpression(HWND window, const std::string &picture); // in its dialog
