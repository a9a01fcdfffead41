// A host's window: the parent of sessions, which logs what they tell it.
#pragma once

#include <algorithm>
#include <vector>

#include "state/windows.h"

class HostWindow {
public:
    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow &) = delete;
    HostWindow &operator=(const HostWindow &) = delete;

    HWND Get() const { return window_; }
    // How often a message of the library came.
    int Count(UINT message) const {
        return static_cast<int>(std::count(messages_.begin(), messages_.end(), message));
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_;
    std::vector<UINT> messages_;
};
