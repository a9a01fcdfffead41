// The last call of the help.
#pragma once

#include <string>

#include "tests/support/failing_call.h"

// While one stands, the help isn't opened; what was asked of it is noted.
class HelpCall {
public:
    HelpCall() : call_("WinHelpA", Note) {
        window = nullptr;
        file.clear();
        command = 0;
        number = 0;
        calls = 0;
    }

    static inline HWND window;
    static inline std::string file;
    static inline UINT command;
    static inline ULONG_PTR number;
    static inline int calls;

private:
    static BOOL WINAPI Note(HWND owner, LPCSTR name, UINT asked, ULONG_PTR data) {
        window = owner;
        file = name;
        command = asked;
        number = data;
        ++calls;
        return TRUE;
    }
    ReplacedCall call_;
};
