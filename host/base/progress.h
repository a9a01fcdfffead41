// How far a command has come, on standard error.
#pragma once

#include <cstddef>

class Progress {
public:
    // Shows every step-th of total things.
    Progress(size_t total, const char *things, size_t step);
    void Show(size_t done) const;

private:
    size_t total_;
    const char *things_;
    size_t step_;
    bool live_;
};
