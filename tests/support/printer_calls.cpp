#include "tests/support/printer_calls.h"

#include <algorithm>
#include <cstring>

#include "tests/support/failing_call.h"

PrinterCalls::Hook PrinterCalls::hooks[] = {
    {"SetAbortProc", reinterpret_cast<void *>(OnSetAbortProc), nullptr},
    {"StartDocA", reinterpret_cast<void *>(OnStartDoc), nullptr},
    {"StartPage", reinterpret_cast<void *>(OnStartPage), nullptr},
    {"EndPage", reinterpret_cast<void *>(OnEndPage), nullptr},
    {"EndDoc", reinterpret_cast<void *>(OnEndDoc), nullptr},
    {"AbortDoc", reinterpret_cast<void *>(OnAbortDoc), nullptr},
};

PrinterCalls::PrinterCalls(Way way) : way_(way) {
    current_ = this;
    for (Hook &hook : hooks) hook.real = ReplaceImport(hook.name, hook.routine);
}

PrinterCalls::~PrinterCalls() {
    for (const Hook &hook : hooks) ReplaceImport(hook.name, hook.real);
    current_ = nullptr;
}

int PrinterCalls::Count(const std::string &name) const {
    return static_cast<int>(std::count(log_.begin(), log_.end(), name));
}

void PrinterCalls::Before(const std::string &name, std::function<void(HDC)> routine) {
    routines_.emplace_back(name, std::move(routine));
}

void PrinterCalls::Note(const char *name, HDC device) {
    log_.push_back(name);
    for (const auto &[wanted, routine] : routines_)
        if (wanted == name) routine(device);
}

int PrinterCalls::Pass(const char *name, HDC device) {
    current_->Note(name, device);
    if (current_->way_ == PRETEND) return 1;
    for (const Hook &hook : hooks)
        if (!std::strcmp(hook.name, name))
            return reinterpret_cast<int(WINAPI *)(HDC)>(hook.real)(device);
    return 0;
}

int WINAPI PrinterCalls::OnSetAbortProc(HDC device, ABORTPROC routine) {
    current_->Note("SetAbortProc", device);
    current_->abort_ = routine;
    return reinterpret_cast<decltype(&SetAbortProc)>(hooks[0].real)(device, routine);
}

int WINAPI PrinterCalls::OnStartDoc(HDC device, const DOCINFOA *info) {
    current_->document = info->lpszDocName;
    current_->document_size = info->cbSize;
    current_->Note("StartDocA", device);
    if (current_->way_ == PRETEND) return 1;
    return reinterpret_cast<decltype(&StartDocA)>(hooks[1].real)(device, info);
}

int WINAPI PrinterCalls::OnStartPage(HDC device) { return Pass("StartPage", device); }

int WINAPI PrinterCalls::OnEndPage(HDC device) {
    const int result = Pass("EndPage", device);
    if (current_->way_ == PRETEND && current_->abort_) current_->abort_(device, 0);
    return result;
}

int WINAPI PrinterCalls::OnEndDoc(HDC device) { return Pass("EndDoc", device); }
int WINAPI PrinterCalls::OnAbortDoc(HDC device) { return Pass("AbortDoc", device); }
