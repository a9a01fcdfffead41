#include "host/base/progress.h"

#include <cstdio>

#include <io.h>

Progress::Progress(size_t total, const char *things, size_t step)
    : total_(total), things_(things), step_(step), live_(_isatty(_fileno(stderr)) != 0) {}

void Progress::Show(size_t done) const {
    if (done % step_ && done != total_) return;
    std::fprintf(stderr, live_ ? "\r%zu of %zu %s" : "%zu of %zu %s\n", done, total_, things_);
    if (live_ && done == total_) std::fprintf(stderr, "\n");
    std::fflush(stderr);
}
