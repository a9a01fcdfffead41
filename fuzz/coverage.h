// What code ran: filled by the calls that the compiler puts into every branch of a build for
// fuzzing, empty in any other.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr size_t COVERAGE_SIZE = 1 << 16;

extern "C" __declspec(dllexport) uint8_t *CoverageMap();
