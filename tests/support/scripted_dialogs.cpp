#include "tests/support/scripted_dialogs.h"

#include "frame/dialogs.h"

namespace {

ScriptedDialogs *standing = nullptr; // a replaced call knows no other way to it

bool IsList(const std::string &name) {
    return name == "NewSecParam" || name == "SysParam" || name == "DlgParam";
}

} // namespace

ScriptedDialogs::ScriptedDialogs() : call_("DialogBoxParamA", Run) { standing = this; }
ScriptedDialogs::~ScriptedDialogs() { standing = nullptr; }

INT_PTR WINAPI ScriptedDialogs::Run(HINSTANCE, LPCSTR name, HWND, DLGPROC, LPARAM start) {
    ScriptedDialogs &script = *standing;
    script.shown_.push_back(name);
    const auto routine = script.routines_.find(name);
    if (routine == script.routines_.end()) return IsList(name) ? -1 : 0;
    return routine->second(reinterpret_cast<const tessarine::DialogStart *>(start)->session);
}
