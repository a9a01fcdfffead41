// Plain text helpers. Texts are zero-terminated single-byte strings, changed in place.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tessarine {

void TrimRight(char *text); // cuts trailing blanks
void TrimLeft(char *text);  // cuts leading blanks
char *RepStrTrim(char *text);
void PadLeft(char *text, int width);
void PadRight(char *text, int width);

// Letters and digits are the plain ones, whatever locale a host has set.
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr char UpperLetter(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
constexpr char LowerLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr bool IsLetter(char c) { return UpperLetter(c) >= 'A' && UpperLetter(c) <= 'Z'; }
char *UpperText(char *text);
char *LowerText(char *text);

int HasPrefix(const char *text, const char *other);
const char *FindText(const char *text, const char *other);     // the first occurrence or null
int FindCharAt(const char *memory, char character, int count); // count when it isn't there
int FindTextAt(const char *text, const char *other);           // the text's length when absent
void FillBytes(void *memory, int value, size_t count);
void CopyBytes(const void *source, void *destination, size_t count); // safe for overlaps
// Terminates a text that may fill its room.
template <size_t Size> void EndText(char (&text)[Size]) { text[Size - 1] = 0; }
// Copies at most size - 1 characters and terminates.
void CopyText(const char *source, char *destination, size_t size);

// Appends the ending when none of the name's last four characters is a point; a ":" or "\" met
// on the way back ends the look. Does nothing when the result would pass size bytes.
void AddFileEnding(char *name, const char *ending, size_t size);
bool HasFileEnding(const char *name);

// Shows or traces an internal inconsistency: to the debugger when a window of class "DBWin"
// exists, otherwise in a message box.
void DebugMessage(const char *format, ...);

} // namespace tessarine
