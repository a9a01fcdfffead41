// Records as JSON objects: a table of members says where each stands, and a member that has its
// default is left out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

// A mistake in a form's JSON, at a place.
struct JsonMistake {
    std::string pointer;
    std::string text;
};

// The pointers of all members that were asked for: a member that nobody asked for is a mistake.
using AskedMembers = std::set<std::string>;

// A JSON value with the pointer that leads to it.
class JsonPlace {
public:
    JsonPlace(const Json &value, std::string pointer, AskedMembers *asked)
        : value_(value), pointer_(std::move(pointer)), asked_(asked) {}

    const Json &Value() const { return value_; }
    [[noreturn]] void Fail(const std::string &text) const { throw JsonMistake{pointer_, text}; }

    bool Has(const std::string &name) const;
    JsonPlace At(const std::string &name) const; // a member that must be there
    JsonPlace At(size_t index) const;
    size_t Size() const; // of a list; anything else is a mistake
    std::string Text() const;
    std::string CodePageText() const; // a mistake where the code page lacks a character
    bool Flag() const;
    double Number() const;
    int Whole(int low, int high) const;
    // Form units: a whole number, or a text such as "1.5in".
    int Measure() const;
    void Object() const;
    // Every member here and below must have been asked for by one of the readers.
    void RefuseUnknown() const;

private:
    std::string PointerTo(const std::string &name) const;
    [[noreturn]] void FailUnknown(const std::string &name) const;

    const Json &value_;
    std::string pointer_;
    AskedMembers *asked_;
};

enum class MemberKind { Byte8, Int16, Word16, Int32, Word32, Float, Double, Text, Color, Units };

struct Member {
    const char *name;
    size_t offset;
    size_t size;
    MemberKind kind;
};

#define MEMBER(record, field, kind, name)                                                          \
    Member { name, offsetof(record, field), sizeof(record::field), MemberKind::kind }

// Writes the members that differ from the defaults' into object.
void DumpMembers(const Member *members, size_t count, const void *record, const void *defaults,
                 Json *object);
// Takes the members that object has.
void TakeMembers(const Member *members, size_t count, const JsonPlace &object, void *record);

// A set of flags as a list of words; bits that have no word stand in it as a number.
struct FlagWord {
    const char *name;
    int flag;
};
Json DumpFlags(const FlagWord *words, size_t count, int flags);
int TakeFlags(const FlagWord *words, size_t count, const JsonPlace &list);

// Single-byte text of code page 1252 to UTF-8, for JSON.
std::string ToUtf8(const std::string &text);
