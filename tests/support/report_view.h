// A saved report of three pages, and views of it.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/failing_call.h"
#include "tests/support/host_window.h"
#include "tests/support/message_boxes.h"
#include "tests/support/report_run.h"

class ReportView : public testing::Test {
protected:
    ReportView();
    ~ReportView() override;

    // Views a page, by default on the session's own printer; false when none came.
    bool Show(int wanted, HGLOBAL devNames = nullptr, HGLOBAL devMode = nullptr);

    MessageBoxes boxes;
    HostWindow host;
    ReportRun run;
    RepViewParams block{};
    int32_t number = 0;
    HMETAFILE page = nullptr;
};

// While one stands, a test can look at the session that is viewing when it reads its page.
class ViewingSession {
public:
    ViewingSession(const RepViewParams &block, std::function<void(Session *)> look);

private:
    static HMETAFILE WINAPI Read(LPCSTR path);

    static inline const RepViewParams *block_;
    static inline std::function<void(Session *)> look_;
    ReplacedCall call_;
};
