#include "format/postnet.h"

#include <cstring>
#include <string_view>

namespace tessarine {

namespace {

constexpr int MAX_ZIP_DIGITS = 11;
constexpr int FRAME_AND_CHECK = 3; // the two frame bars and the check digit

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

bool IsZipLength(int digits) { return digits == 5 || digits == 9 || digits == MAX_ZIP_DIGITS; }

} // namespace

int PostnetText(char *text, int length, int limit) {
    if (length < 0) return 0;
    const std::string_view zip = Trimmed({text, strnlen(text, static_cast<size_t>(length))});
    if (static_cast<int>(zip.size()) + FRAME_AND_CHECK >= limit) return 0;
    char barcode[MAX_ZIP_DIGITS + FRAME_AND_CHECK + 1] = "!";
    int digits = 0;
    int sum = 0;
    for (char c : zip) {
        if (c == '-') continue;
        if (c < '0' || c > '9') return 0;
        if (digits < MAX_ZIP_DIGITS) barcode[1 + digits] = c;
        ++digits;
        sum += c - '0';
    }
    if (!IsZipLength(digits)) return 0;
    // The check digit is the sum's last digit itself and not its complement to ten.
    barcode[1 + digits] = static_cast<char>('0' + sum % 10);
    barcode[2 + digits] = '!';
    barcode[3 + digits] = 0;
    std::memcpy(text, barcode, static_cast<size_t>(digits) + FRAME_AND_CHECK + 1);
    return 1;
}

} // namespace tessarine
