// Runs to the printer and to disk under the user's eyes.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "frame/session_table.h"
#include "tests/support/host_window.h"
#include "tests/support/message_boxes.h"
#include "tests/support/report_run.h"

// Five records a page. The report footer, if wanted, takes a page of its own.
struct ListForm : FormBuilder {
    explicit ListForm(bool footer = false);
};

// A report header on a page of its own, ahead of all records.
struct TitlePage : ListForm {
    TitlePage();
};

// A run with a window of the host and, unless a test asks for silence, with dialogs.
class VisibleRun : public testing::Test {
protected:
    VisibleRun();

    int Start(char device, const FormBuilder &form = ListForm());
    int Feed(int records); // the code of the first record that failed, or 0
    bool Open() const {
        return tessarine::GetSessionPointer(nullptr, run->params.SessionId) != nullptr;
    }
    DialogDriver Dialog() const { return session->progress.AbortDialog; }
    BoxRecord Last() const { return boxes.Log().empty() ? BoxRecord{} : boxes.Log().back(); }

    HostWindow host;
    MessageBoxes boxes;
    std::unique_ptr<ReportRun> run;
    Session *session = nullptr;
    uint32_t silent = 0;
    HWND owner = host.Get();
    std::string output; // "": a file in the run's folder
};
