#include "frame/text.h"

#include <cstdarg>
#include <cstring>

#include "frame/message_box.h"
#include "state/windows.h"

namespace tessarine {

namespace {

constexpr int ENDING_LENGTH = 4;

char *ChangeCase(char *text, char (*change)(char)) {
    for (char *c = text; *c; ++c) *c = change(*c);
    return text;
}

} // namespace

void TrimRight(char *text) {
    size_t length = std::strlen(text);
    while (length > 0 && text[length - 1] == ' ') text[--length] = 0;
}

void TrimLeft(char *text) {
    const size_t blanks = std::strspn(text, " ");
    if (blanks) std::memmove(text, text + blanks, std::strlen(text + blanks) + 1);
}

char *RepStrTrim(char *text) {
    TrimRight(text);
    TrimLeft(text);
    return text;
}

void PadLeft(char *text, int width) {
    const int length = static_cast<int>(std::strlen(text));
    if (length >= width) return;
    std::memmove(text + width - length, text, static_cast<size_t>(length) + 1);
    std::memset(text, ' ', static_cast<size_t>(width - length));
}

void PadRight(char *text, int width) {
    const int length = static_cast<int>(std::strlen(text));
    if (length >= width) return;
    std::memset(text + length, ' ', static_cast<size_t>(width - length));
    text[width] = 0;
}

char *UpperText(char *text) { return ChangeCase(text, UpperLetter); }
char *LowerText(char *text) { return ChangeCase(text, LowerLetter); }

int HasPrefix(const char *text, const char *other) {
    return std::strncmp(text, other, std::strlen(other)) == 0;
}

const char *FindText(const char *text, const char *other) { return std::strstr(text, other); }

int FindCharAt(const char *memory, char character, int count) {
    for (int index = 0; index < count; ++index)
        if (memory[index] == character) return index;
    return count;
}

int FindTextAt(const char *text, const char *other) {
    const char *found = FindText(text, other);
    return static_cast<int>(found ? found - text : std::strlen(text));
}

void FillBytes(void *memory, int value, size_t count) { std::memset(memory, value, count); }

void CopyBytes(const void *source, void *destination, size_t count) {
    std::memmove(destination, source, count);
}

void CopyText(const char *source, char *destination, size_t size) {
    const size_t length = strnlen(source, size - 1);
    std::memmove(destination, source, length);
    destination[length] = 0;
}

bool HasFileEnding(const char *name) {
    const int length = static_cast<int>(std::strlen(name));
    for (int index = length - 1; index >= 0 && index >= length - ENDING_LENGTH; --index) {
        if (name[index] == '.') return true;
        if (name[index] == ':' || name[index] == '\\') return false;
    }
    return false;
}

void AddFileEnding(char *name, const char *ending, size_t size) {
    const size_t length = std::strlen(name);
    if (HasFileEnding(name) || length + std::strlen(ending) >= size) return;
    CopyText(ending, name + length, size - length);
}

void DebugMessage(const char *format, ...) {
    char text[1100]; // wvsprintfA writes at most 1024 characters
    va_list arguments;
    va_start(arguments, format);
    wvsprintfA(text, format, arguments);
    va_end(arguments);
    if (!FindWindowA("DBWin", nullptr)) {
        ShowBox(nullptr, text);
        return;
    }
    CopyText("\n", text + std::strlen(text), sizeof text - std::strlen(text));
    OutputDebugStringA(text);
}

} // namespace tessarine
