// Keyboard and wheel for the library's preview window, which knows commands alone.
#pragma once

#include <windows.h>

// While one stands, keys and wheel turns for a preview of this thread become its commands: page
// and arrow keys scroll, Ctrl+G jumps, Ctrl+P prints, Ctrl+S saves, Ctrl+Z zooms, Escape exits.
class PreviewKeys {
public:
    PreviewKeys();
    ~PreviewKeys();
    PreviewKeys(const PreviewKeys &) = delete;
    PreviewKeys &operator=(const PreviewKeys &) = delete;

private:
    HHOOK hook_;
};
