// Makes calls of the system fail, for tests of what comes then.
#pragma once

#include <climits>
#include <type_traits>

#include "state/windows.h"

constexpr int EVERY_CALL = INT_MAX;

// The slot of a module's import table through which it calls a routine; null when it doesn't.
void **ImportSlot(HMODULE module, const char *name);
void *ReplaceImport(void **slot, void *routine); // the routine that stood there

// Puts a routine in place of one that this program imports by name and returns the true one; the
// library is linked into the test programs, so its calls go there too.
void *ReplaceImport(const char *name, void *routine);

// The routine stands in place of the import for as long as the object does.
class ReplacedCall {
public:
    template <typename Routine>
    ReplacedCall(const char *name, Routine *routine)
        : name_(name), real_(ReplaceImport(name, reinterpret_cast<void *>(routine))) {}
    ~ReplacedCall() { ReplaceImport(name_, real_); }
    ReplacedCall(const ReplacedCall &) = delete;
    ReplacedCall &operator=(const ReplacedCall &) = delete;

private:
    const char *name_;
    void *real_;
};

// While one stands, calls of one routine of the system fail: `times` of them, the first being the
// one with this number. They return `failure` and do nothing.
class FailingCall {
public:
    template <typename Result, typename... Args>
    FailingCall(const char *name, Result(WINAPI *)(Args...), std::type_identity_t<Result> failure,
                int number = 1, int times = 1)
        : name_(name) {
        using Stub = Replacement<Result, Args...>;
        Stub::failure = failure;
        Stub::number = number;
        Stub::times = times;
        Stub::seen = 0;
        seen_ = &Stub::seen;
        real_ = ReplaceImport(name, reinterpret_cast<void *>(Stub::Call));
        Stub::real = reinterpret_cast<Result(WINAPI *)(Args...)>(real_);
    }
    ~FailingCall() { ReplaceImport(name_, real_); }
    FailingCall(const FailingCall &) = delete;
    FailingCall &operator=(const FailingCall &) = delete;

    int Seen() const { return *seen_; } // calls so far

private:
    template <typename Result, typename... Args> struct Replacement {
        static inline Result(WINAPI *real)(Args...);
        static inline Result failure;
        static inline int number;
        static inline int times;
        static inline int seen;

        static Result WINAPI Call(Args... args) {
            ++seen;
            return seen >= number && seen - number < times ? failure : real(args...);
        }
    };

    const char *name_;
    void *real_;
    const int *seen_;
};
