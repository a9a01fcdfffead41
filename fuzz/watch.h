// Watches over the case that runs: a crash, an abort or a hang leaves its input in a file, tells
// where it was and ends the program.
#pragma once

#include <string>

constexpr int EXIT_CRASHED = 99;
constexpr int EXIT_HUNG = 98;

// folder: where inputs are left; empty when they are there already.
void StartWatch(const std::string &folder);
// The case that begins; the input must outlive it.
void WatchCase(const char *kind, const std::string &input);

[[noreturn]] void TellAndEnd(const char *what, int code = EXIT_CRASHED);
