// Answers the library's dialogs and boxes for a person who said beforehand what to answer.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <windows.h>

enum class Person { ABSENT, PRESENT };

// While one stands, the texts of this thread's message boxes are kept, and the prompts for user
// fields are answered. With no person present, boxes are closed by their first button and a prompt
// without an answer keeps the form's own; else both wait for the person.
class Unattended {
public:
    // Answers by the prompt's text.
    Unattended(std::map<std::string, std::string> answers, Person person);
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
    Person person_;
    std::map<std::string, std::string> answers_;
    std::map<UINT_PTR, HWND> waiting_;
    std::vector<std::string> texts_;
    std::string asked_;
    std::string refused_;
    bool box_since_prompt_ = false;
};
