// Answers and logs the real message boxes and dialogs that the code under test opens on this
// thread, without a person.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "state/windows.h"
#include "tests/support/dialog_driver.h"

struct BoxRecord {
    std::string title;
    std::string text;
    std::vector<int> buttons; // IDOK, IDYES...

    bool operator==(const BoxRecord &other) const = default;
};

// While one stands, every message box that opens is logged and answered: with the next answer
// given to Answer, or else with its first button among OK, No, Cancel. A dialog whose title was
// given to OnDialog goes to that routine instead (posted, once its message loop runs).
class MessageBoxes {
public:
    MessageBoxes();
    ~MessageBoxes();
    MessageBoxes(const MessageBoxes &) = delete;
    MessageBoxes &operator=(const MessageBoxes &) = delete;

    void Answer(int button) { answers_.push_back(button); }
    void OnDialog(const std::string &title, std::function<void(HWND)> routine);
    // A dialog of the title gets a text in a control, if one is given, and a button.
    void AnswerDialog(const std::string &title, int control, const std::string &text, int button);
    void AnswerDialog(const std::string &title, int button) { AnswerDialog(title, 0, "", button); }

    // Decides of every box and dialog that has no routine of its own: the button, 0 for none.
    void OnAnyOther(std::function<int(HWND)> routine) { any_other_ = std::move(routine); }

    const std::vector<BoxRecord> &Log() const { return log_; }
    std::vector<std::string> Texts() const; // of all boxes, in order
    std::string LastText() const;           // "" when none came
    std::string LastTitle() const;
    void Clear() { log_.clear(); }

private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
    static void CALLBACK Tick(HWND window, UINT message, UINT_PTR id, DWORD time);
    void Serve(HWND dialog);

    HHOOK hook_;
    std::vector<int> answers_;
    std::vector<BoxRecord> log_;
    std::map<std::string, std::function<void(HWND)>> dialogs_;
    std::function<int(HWND)> any_other_;
    std::map<UINT_PTR, HWND> pending_; // timers that wait for a dialog's message loop
};
