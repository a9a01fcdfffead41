// Answers the library's dialogs and boxes where no person sits.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <windows.h>

// While one stands, every message box of this thread is closed and its text kept, and the prompts
// for user fields are answered. A warning box is answered with its first button; no dialog shows.
class Unattended {
public:
    // Answers by the prompt's text. A prompt without an answer keeps the form's own.
    explicit Unattended(std::map<std::string, std::string> answers);
    ~Unattended();
    Unattended(const Unattended &) = delete;
    Unattended &operator=(const Unattended &) = delete;

    // Texts of the boxes since the last call.
    std::vector<std::string> TakeTexts();
    // The prompt whose answer the library refused; "" when none was.
    const std::string &Refused() const { return refused_; }

private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
    static void CALLBACK Tick(HWND window, UINT message, UINT_PTR id, DWORD time);
    void Serve(HWND dialog);
    void AnswerPrompt(HWND dialog);

    HHOOK hook_;
    std::map<std::string, std::string> answers_;
    std::map<UINT_PTR, HWND> waiting_;
    std::vector<std::string> texts_;
    std::string asked_;
    std::string refused_;
    bool box_since_prompt_ = false;
};
