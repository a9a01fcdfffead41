#include "host/forms/record_json.h"

#include <cctype>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <windows.h>

#include "host/data/csv_source.h"

namespace {

constexpr double UNITS_IN_INCH = 250.0;

template <typename Number> Number Load(const char *from) {
    Number number;
    std::memcpy(&number, from, sizeof number);
    return number;
}

template <typename Number> void Store(char *to, Number number) {
    std::memcpy(to, &number, sizeof number);
}

// The shortest decimal text that reads back as the same single.
double ShortestSingle(float value) {
    char text[40];
    for (int digits = 1; digits <= 9; ++digits) {
        std::snprintf(text, sizeof text, "%.*g", digits, static_cast<double>(value));
        if (std::strtof(text, nullptr) == value) break;
    }
    return std::strtod(text, nullptr);
}

std::string ColorText(uint32_t color) {
    char text[16];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", color & 0xFF, color >> 8 & 0xFF,
                  color >> 16 & 0xFF);
    return text;
}

uint32_t TakeColor(const JsonPlace &place) {
    const std::string text = place.Text();
    unsigned red = 0;
    unsigned green = 0;
    unsigned blue = 0;
    if (text.size() != 7 || text.find_first_not_of("0123456789abcdefABCDEF", 1) != text.npos ||
        std::sscanf(text.c_str(), "#%2x%2x%2x", &red, &green, &blue) != 3)
        place.Fail("\"" + text + "\" is no colour; write it as \"#rrggbb\"");
    return red | green << 8 | blue << 16;
}

Json DumpMember(const Member &member, const char *from) {
    switch (member.kind) {
    case MemberKind::Byte8: return Load<uint8_t>(from);
    case MemberKind::Units:
    case MemberKind::Int16: return Load<int16_t>(from);
    case MemberKind::Word16: return Load<uint16_t>(from);
    case MemberKind::Int32: return Load<int32_t>(from);
    case MemberKind::Word32: return Load<uint32_t>(from);
    case MemberKind::Float: return ShortestSingle(Load<float>(from));
    case MemberKind::Double: return Load<double>(from);
    case MemberKind::Color: return ColorText(Load<uint32_t>(from));
    case MemberKind::Text: return ToUtf8(std::string(from, strnlen(from, member.size - 1)));
    }
    return {};
}

void TakeText(const JsonPlace &place, char *to, size_t size) {
    const std::string text = place.CodePageText();
    if (text.size() >= size)
        place.Fail("the text has " + std::to_string(text.size()) + " characters and only " +
                   std::to_string(size - 1) + " fit");
    std::memset(to, 0, size);
    std::memcpy(to, text.data(), text.size());
}

uint32_t TakeWord32(const JsonPlace &place) {
    const double number = place.Number();
    if (number != std::floor(number) || number < 0 || number > UINT32_MAX)
        place.Fail("a whole number from 0 to 4294967295 is expected here");
    return static_cast<uint32_t>(number);
}

float TakeSingle(const JsonPlace &place) {
    const double number = place.Number();
    if (std::fabs(number) > static_cast<double>(FLT_MAX)) place.Fail("the number is too large");
    return static_cast<float>(number);
}

void TakeMember(const Member &member, const JsonPlace &place, char *to) {
    switch (member.kind) {
    case MemberKind::Byte8: Store(to, static_cast<uint8_t>(place.Whole(0, UINT8_MAX))); break;
    case MemberKind::Int16:
        Store(to, static_cast<int16_t>(place.Whole(INT16_MIN, INT16_MAX)));
        break;
    case MemberKind::Word16: Store(to, static_cast<uint16_t>(place.Whole(0, UINT16_MAX))); break;
    case MemberKind::Int32: Store(to, place.Whole(INT32_MIN, INT32_MAX)); break;
    case MemberKind::Word32: Store(to, TakeWord32(place)); break;
    case MemberKind::Float: Store(to, TakeSingle(place)); break;
    case MemberKind::Double: Store(to, place.Number()); break;
    case MemberKind::Color: Store(to, TakeColor(place)); break;
    case MemberKind::Units: Store(to, static_cast<int16_t>(place.Measure())); break;
    case MemberKind::Text: TakeText(place, to, member.size); break;
    }
}

} // namespace

bool JsonPlace::Has(const std::string &name) const {
    Object();
    asked_->insert(PointerTo(name));
    return value_.contains(name);
}

JsonPlace JsonPlace::At(const std::string &name) const {
    if (!Has(name)) Fail("\"" + name + "\" is missing");
    return {*value_.find(name), PointerTo(name), asked_};
}

JsonPlace JsonPlace::At(size_t index) const {
    return {value_[index], PointerTo(std::to_string(index)), asked_};
}

// A slash and a tilde in a name are written ~1 and ~0.
std::string JsonPlace::PointerTo(const std::string &name) const {
    std::string pointer = pointer_ + "/";
    for (const char c : name)
        if (c == '~' || c == '/')
            pointer += c == '~' ? "~0" : "~1";
        else
            pointer += c;
    return pointer;
}

void JsonPlace::RefuseUnknown() const {
    if (value_.is_object()) {
        for (const auto &[name, value] : value_.items())
            if (!asked_->count(PointerTo(name))) FailUnknown(name);
        for (const auto &[name, value] : value_.items())
            JsonPlace(value, PointerTo(name), asked_).RefuseUnknown();
    } else if (value_.is_array()) {
        for (size_t index = 0; index < value_.size(); ++index) At(index).RefuseUnknown();
    }
}

void JsonPlace::FailUnknown(const std::string &name) const {
    std::string known;
    const std::string start = pointer_ + "/";
    for (auto row = asked_->lower_bound(start); row != asked_->end(); ++row) {
        if (row->compare(0, start.size(), start)) break;
        if (row->find('/', start.size()) != row->npos) continue;
        known += (known.empty() ? "" : ", ") + row->substr(start.size());
    }
    throw JsonMistake{PointerTo(name), "\"" + name + "\" is not known here; known are: " + known};
}

size_t JsonPlace::Size() const {
    if (!value_.is_array()) Fail("a list in [ ] is expected here");
    return value_.size();
}

void JsonPlace::Object() const {
    if (!value_.is_object()) Fail("an object in { } is expected here");
}

std::string JsonPlace::Text() const {
    if (!value_.is_string()) Fail("a text in quotes is expected here");
    return value_.get<std::string>();
}

std::string JsonPlace::CodePageText() const {
    const std::string text = Text();
    const std::string converted = ToCodePage(text);
    if (ToUtf8(converted) != text)
        Fail("\"" + text + "\" holds a character that the forms' code page 1252 lacks");
    if (text.find('\0') != text.npos) Fail("the text holds a character of the number 0");
    return converted;
}

bool JsonPlace::Flag() const {
    if (!value_.is_boolean()) Fail("true or false is expected here");
    return value_.get<bool>();
}

double JsonPlace::Number() const {
    if (!value_.is_number()) Fail("a number is expected here");
    return value_.get<double>();
}

int JsonPlace::Whole(int low, int high) const {
    const double number = Number();
    if (number != std::floor(number) || number < low || number > high)
        Fail("a whole number from " + std::to_string(low) + " to " + std::to_string(high) +
             " is expected here");
    return static_cast<int>(number);
}

int JsonPlace::Measure() const {
    if (value_.is_number()) return Whole(INT16_MIN, INT16_MAX);
    const std::string text = Text();
    char *end = nullptr;
    const double inches = std::strtod(text.c_str(), &end);
    if (end == text.c_str() || std::strcmp(end, "in") || !(std::fabs(inches) <= 130.0))
        Fail("\"" + text +
             "\" is no measure; write form units as a number, or inches as \"1.5in\"");
    return static_cast<int>(inches * UNITS_IN_INCH);
}

void DumpMembers(const Member *members, size_t count, const void *record, const void *defaults,
                 Json *object) {
    for (size_t index = 0; index < count; ++index) {
        const Member &member = members[index];
        const char *from = static_cast<const char *>(record) + member.offset;
        const char *usual = static_cast<const char *>(defaults) + member.offset;
        if (std::memcmp(from, usual, member.size))
            (*object)[member.name] = DumpMember(member, from);
    }
}

void TakeMembers(const Member *members, size_t count, const JsonPlace &object, void *record) {
    for (size_t index = 0; index < count; ++index)
        if (object.Has(members[index].name))
            TakeMember(members[index], object.At(members[index].name),
                       static_cast<char *>(record) + members[index].offset);
}

Json DumpFlags(const FlagWord *words, size_t count, int flags) {
    Json list = Json::array();
    for (size_t index = 0; index < count; ++index) {
        if (flags & words[index].flag) list.push_back(words[index].name);
        flags &= ~words[index].flag;
    }
    if (flags) list.push_back(flags);
    return list;
}

int TakeFlags(const FlagWord *words, size_t count, const JsonPlace &list) {
    int flags = 0;
    for (size_t place = 0; place < list.Size(); ++place) {
        const JsonPlace word = list.At(place);
        if (word.Value().is_number()) {
            flags |= word.Whole(0, UINT16_MAX);
            continue;
        }
        const std::string text = word.Text();
        int flag = 0;
        std::string known;
        for (size_t index = 0; index < count; ++index) {
            if (text == words[index].name) flag = words[index].flag;
            known += std::string(index ? ", " : "") + "\"" + words[index].name + "\"";
        }
        if (!flag) word.Fail("\"" + text + "\" is none of " + known);
        flags |= flag;
    }
    return flags;
}

std::string ToUtf8(const std::string &text) {
    if (text.empty()) return text;
    const int size = static_cast<int>(text.size());
    const int wide_size = MultiByteToWideChar(1252, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<size_t>(wide_size), L'\0');
    MultiByteToWideChar(1252, 0, text.data(), size, wide.data(), wide_size);
    const int narrow_size =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), wide_size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<size_t>(narrow_size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), wide_size, narrow.data(), narrow_size, nullptr,
                        nullptr);
    return narrow;
}
