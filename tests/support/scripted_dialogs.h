// The library's own dialogs by their results alone, for tests of what comes behind them.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "state/session.h"
#include "tests/support/failing_call.h"

// While one stands, a dialog isn't shown: the routine for its template does what its user would
// have done to the session, and gives its result. A dialog without a routine is cancelled with -1
// when it is a list, otherwise with 0.
class ScriptedDialogs {
public:
    using Routine = std::function<INT_PTR(Session *session)>;

    ScriptedDialogs();
    ~ScriptedDialogs();
    ScriptedDialogs(const ScriptedDialogs &) = delete;
    ScriptedDialogs &operator=(const ScriptedDialogs &) = delete;

    void On(const std::string &name, Routine routine) { routines_[name] = std::move(routine); }
    void On(const std::string &name, INT_PTR result) {
        On(name, [result](Session *) { return result; });
    }
    const std::vector<std::string> &Shown() const { return shown_; } // templates, in order

private:
    static INT_PTR WINAPI Run(HINSTANCE module, LPCSTR name, HWND owner, DLGPROC procedure,
                              LPARAM start);

    std::map<std::string, Routine> routines_;
    std::vector<std::string> shown_;
    ReplacedCall call_;
};
