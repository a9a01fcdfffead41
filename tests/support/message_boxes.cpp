#include "tests/support/message_boxes.h"

#include <algorithm>

#include "tests/support/window_driver.h"

namespace {

MessageBoxes *current = nullptr;

} // namespace

MessageBoxes::MessageBoxes() {
    current = this;
    hook_ = SetWindowsHookExA(WH_CBT, Hook, nullptr, GetCurrentThreadId());
}

MessageBoxes::~MessageBoxes() {
    UnhookWindowsHookEx(hook_);
    for (const auto &[timer, dialog] : pending_) KillTimer(nullptr, timer);
    current = nullptr;
}

void MessageBoxes::OnDialog(const std::string &title, std::function<void(HWND)> routine) {
    dialogs_[title] = std::move(routine);
}

void MessageBoxes::AnswerDialog(const std::string &title, int control, const std::string &text,
                                int button) {
    OnDialog(title, [=](DialogDriver dialog) {
        if (control) dialog.SetText(control, text);
        dialog.Press(button);
    });
}

std::vector<std::string> MessageBoxes::Texts() const {
    std::vector<std::string> texts;
    for (const BoxRecord &box : log_) texts.push_back(box.text);
    return texts;
}

std::string MessageBoxes::LastText() const { return log_.empty() ? "" : log_.back().text; }
std::string MessageBoxes::LastTitle() const { return log_.empty() ? "" : log_.back().title; }

// A dialog is served from a timer, when its message loop runs and its controls stand.
LRESULT CALLBACK MessageBoxes::Hook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && current) {
        const HWND window = reinterpret_cast<HWND>(wParam);
        char name[32] = "";
        GetClassNameA(window, name, sizeof name);
        const bool waiting = std::any_of(current->pending_.begin(), current->pending_.end(),
                                         [&](const auto &row) { return row.second == window; });
        if (!strcmp(name, "#32770") && !waiting)
            current->pending_[SetTimer(nullptr, 0, 1, Tick)] = window;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void CALLBACK MessageBoxes::Tick(HWND, UINT, UINT_PTR id, DWORD) {
    KillTimer(nullptr, id);
    if (!current || !current->pending_.count(id)) return;
    const HWND dialog = current->pending_[id];
    current->pending_.erase(id);
    if (IsWindow(dialog)) current->Serve(dialog);
}

void MessageBoxes::Serve(HWND dialog) {
    const std::string title = WindowText(dialog);
    if (const auto found = dialogs_.find(title); found != dialogs_.end()) {
        found->second(dialog);
        return;
    }
    if (any_other_) {
        if (const int button = any_other_(dialog))
            PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
        return;
    }
    BoxRecord box{title, "", {}};
    if (const HWND text = GetDlgItem(dialog, 0xFFFF)) box.text = WindowText(text);
    for (int id : {IDOK, IDCANCEL, IDABORT, IDRETRY, IDIGNORE, IDYES, IDNO})
        if (const HWND button = GetDlgItem(dialog, id); button && IsWindowVisible(button))
            box.buttons.push_back(id);
    log_.push_back(box);
    int answer = box.buttons.empty() ? IDCANCEL : box.buttons.front();
    for (int id : {IDCANCEL, IDNO, IDOK})
        if (std::find(box.buttons.begin(), box.buttons.end(), id) != box.buttons.end()) answer = id;
    if (!answers_.empty()) {
        answer = answers_.front();
        answers_.erase(answers_.begin());
    }
    PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(answer), 0);
}
