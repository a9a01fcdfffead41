// A run previewed in its real window, for tests that drive the window with messages.
#pragma once

#include <gtest/gtest.h>

#include "commands.h"
#include "frame/session_table.h"
#include "output/preview_window.h"
#include "tests/support/message_boxes.h"
#include "tests/support/report_run.h"
#include "tests/support/window_driver.h"

// A list of five records a page.
struct FiveAPage : FormBuilder {
    FiveAPage();
};

// A preview while its run is going on, and behind it, in a window of half a page.
class PreviewRun : public testing::Test, public WindowDriver {
protected:
    explicit PreviewRun(const FormBuilder &form = FiveAPage{});
    ~PreviewRun() override;

    void SetUp() override { Start(); }
    void Start();
    int Feed(int records);    // the code of the first record that failed, or 0
    void Finish(int records); // a finished run of so many records

    bool Open() const; // the session stands
    HWND Window() const override { return session->Window; }

    std::string Enabled() const; // of Jump, Print, Preview, Save, Exit: 'x', or '-' when grey
    int Page() const { return session->pages.ShownPageIndex + 1; }
    int FilesOfPages() const; // in the run's folder

    MessageBoxes boxes;
    ReportRun run;
    Session *session = nullptr;
};
