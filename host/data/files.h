// Whole files in memory. Failures name the file and what the system says.
#pragma once

#include <string>

std::string ReadFileBytes(const std::string &path);
// At most the first count bytes.
std::string ReadFileStart(const std::string &path, size_t count);
// Writes beside the file first, so that an earlier file is replaced only by a whole one.
void WriteFileBytes(const std::string &path, const std::string &bytes);
// Puts a finished file in the place of another. Throws Failure.
void PutInPlace(const std::string &from, const std::string &to);
std::string SystemMessage(unsigned long error);
