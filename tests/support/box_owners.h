// Whose the message boxes are.
#pragma once

#include <vector>

#include "tests/support/failing_call.h"

// While one stands, message boxes aren't shown: OK answers them and their owners are noted.
class BoxOwners {
public:
    BoxOwners() : box_("MessageBoxA", Note) { noted_.clear(); }

    const std::vector<HWND> &Noted() const { return noted_; }

private:
    static int WINAPI Note(HWND owner, const char *, const char *, UINT) {
        noted_.push_back(owner);
        return IDOK;
    }

    static inline std::vector<HWND> noted_;
    ReplacedCall box_;
};
