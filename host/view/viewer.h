// The window in which a saved report is read.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include <windows.h>

#include "host/view/page_view.h"
#include "host/view/report_reader.h"

class Viewer {
public:
    // Opens the window on a report. Throws Failure when it can't be read.
    explicit Viewer(const std::string &path);
    ~Viewer();
    Viewer(const Viewer &) = delete;
    Viewer &operator=(const Viewer &) = delete;

    HWND Window() const { return window_; }
    const PageView &View() const { return *view_; }
    // Serves the window until the user closes it.
    void Run();
    // True when the message was a key of the viewer's, and is served.
    bool Translate(MSG *message) const;

    // What the window's procedure and its commands do; public for their tables.
    LRESULT Serve(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Command(WORD id);

private:
    void Open(const std::string &path);
    void AskAndOpen();
    void TryOpen(const std::string &path);
    void GoTo();
    void Paint();
    void Update();
    void UpdateBars();
    void CheckMenu();
    void OnScroll(int bar, WORD code);
    void OnWheel(WPARAM wParam, LPARAM lParam);
    void OnDrop(HDROP drop);
    void BeginDrag(POINT at);
    void Drag(POINT at);

    std::unique_ptr<ReportReader> report_;
    std::optional<PageView> view_;
    HWND window_ = nullptr;
    HACCEL keys_ = nullptr;
    bool updating_bars_ = false;
    int wheel_rest_ = 0; // turned, not yet scrolled
    std::optional<POINT> drag_;
};
