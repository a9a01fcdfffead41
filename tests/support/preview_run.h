// A run previewed in its real window, for tests that drive the window with messages.
#pragma once

#include <gtest/gtest.h>

#include "frame/session_table.h"
#include "output/preview.h"
#include "tests/support/message_boxes.h"
#include "tests/support/report_run.h"

using enum tessarine::PreviewCommand;

constexpr int FILE_NAME = -1; // in place of a control: where a file dialog takes the name

// The edit control or the combo box of a file dialog, as the system has it.
HWND FileNameOf(HWND dialog);

// A list of five records a page.
struct FiveAPage : FormBuilder {
    FiveAPage();
};

// A preview while its run is going on, and behind it, in a window of half a page.
class PreviewRun : public testing::Test {
protected:
    explicit PreviewRun(const FormBuilder &form = FiveAPage{});
    ~PreviewRun() override;

    void SetUp() override { Start(); }
    void Start();
    int Feed(int records);    // the code of the first record that failed, or 0
    void Finish(int records); // a finished run of so many records

    bool Open() const; // the session stands
    HWND Window() const { return session->Window; }
    void Send(UINT message, WPARAM wParam) { SendMessageA(Window(), message, wParam, 0); }
    void Command(int number) { Send(WM_COMMAND, static_cast<WPARAM>(number)); }
    void Scroll(UINT message, int code, int position = 0) {
        Send(message, MAKEWPARAM(code, position));
    }
    // Dialogs of the title get the text in a control, unless that is 0, and a button.
    void AnswerDialog(const char *title, int control, const std::string &text, int button);

    std::string Enabled() const; // of Jump, Print, Preview, Save, Exit: 'x', or '-' when grey
    std::string MenuText(int number) const;
    int Page() const { return session->pages.ShownPageIndex + 1; }
    int FilesOfPages() const; // in the run's folder

    MessageBoxes boxes;
    ReportRun run;
    Session *session = nullptr;
};
