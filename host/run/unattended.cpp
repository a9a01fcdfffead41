#include "host/run/unattended.h"

#include <utility>

namespace {

constexpr int PROMPT_TEXT = 835;
constexpr int PROMPT_INPUT = 836;
constexpr int PROMPT_NEXT = 837;
constexpr int PROMPT_PREVIOUS = 838;
constexpr int BOX_TEXT = 0xFFFF;
constexpr int PROGRESS_PAGES = 844;

Unattended *current = nullptr;

std::string TextOf(HWND window) {
    std::string text(static_cast<size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(
        static_cast<size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

} // namespace

Unattended::Unattended(std::map<std::string, std::string> answers, Person person)
    : hook_(SetWindowsHookExA(WH_CBT, Hook, nullptr, GetCurrentThreadId())), person_(person),
      answers_(std::move(answers)) {
    current = this;
}

Unattended::~Unattended() {
    UnhookWindowsHookEx(hook_);
    for (const auto &[timer, dialog] : waiting_) KillTimer(nullptr, timer);
    current = nullptr;
}

std::vector<std::string> Unattended::TakeTexts() { return std::exchange(texts_, {}); }

// A dialog is served once its message loop runs.
LRESULT CALLBACK Unattended::Hook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && current) {
        const HWND window = reinterpret_cast<HWND>(wParam);
        char name[16] = "";
        GetClassNameA(window, name, sizeof name);
        if (!lstrcmpA(name, "#32770")) current->waiting_[SetTimer(nullptr, 0, 1, Tick)] = window;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void CALLBACK Unattended::Tick(HWND, UINT, UINT_PTR id, DWORD) {
    KillTimer(nullptr, id);
    if (!current || !current->waiting_.count(id)) return;
    const HWND dialog = current->waiting_[id];
    current->waiting_.erase(id);
    if (IsWindow(dialog)) current->Serve(dialog);
}

void Unattended::Serve(HWND dialog) {
    if (GetDlgItem(dialog, PROMPT_INPUT)) {
        AnswerPrompt(dialog);
        return;
    }
    if (GetDlgItem(dialog, PROGRESS_PAGES)) return; // a progress dialog goes by itself
    texts_.push_back(TextOf(GetDlgItem(dialog, BOX_TEXT)));
    box_since_prompt_ = true;
    if (person_ == Person::PRESENT) return;
    for (const int button : {IDOK, IDYES, IDCANCEL})
        if (GetDlgItem(dialog, button)) {
            PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
            return;
        }
    PostMessageA(dialog, WM_CLOSE, 0, 0);
}

// A prompt that comes again behind a box was refused: going back from the first one ends the run.
void Unattended::AnswerPrompt(HWND dialog) {
    const std::string prompt = TextOf(GetDlgItem(dialog, PROMPT_TEXT));
    const auto answer = answers_.find(prompt);
    if (person_ == Person::PRESENT && (answer == answers_.end() || box_since_prompt_)) return;
    if (box_since_prompt_ && prompt == asked_) refused_ = prompt;
    if (!refused_.empty()) {
        PostMessageA(dialog, WM_COMMAND, PROMPT_PREVIOUS, 0);
        return;
    }
    asked_ = prompt;
    box_since_prompt_ = false;
    if (answer != answers_.end()) SetDlgItemTextA(dialog, PROMPT_INPUT, answer->second.c_str());
    PostMessageA(dialog, WM_COMMAND, PROMPT_NEXT, 0);
}
