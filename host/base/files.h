// Whole files in memory. Failures name the file and what the system says.
#pragma once

#include <cstdint>
#include <string>

std::string ReadFileBytes(const std::string &path);
// At most count bytes from an offset on; fewer where the file ends.
std::string ReadFilePart(const std::string &path, uint32_t offset, size_t count);
// Writes beside the file first, so that an earlier file is replaced only by a whole one.
void WriteFileBytes(const std::string &path, const std::string &bytes);
// Throws Failure when the file to write is one that is read, by whatever names they go.
void KeepInput(const std::string &output, const std::string &input);
// False when there was none. Throws Failure.
bool RemoveFile(const std::string &path);
std::string SystemMessage(unsigned long error);
