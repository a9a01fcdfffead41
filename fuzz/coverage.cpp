#include "fuzz/coverage.h"

namespace {

uint8_t map[COVERAGE_SIZE];

} // namespace

extern "C" __attribute__((no_sanitize_coverage)) uint8_t *CoverageMap() { return map; }

extern "C" __attribute__((no_sanitize_coverage)) void __sanitizer_cov_trace_pc() {
    const auto place = reinterpret_cast<uintptr_t>(__builtin_return_address(0));
    uint8_t *count = &map[(place ^ (place >> 16)) % COVERAGE_SIZE];
    if (*count < 255) ++*count;
}
