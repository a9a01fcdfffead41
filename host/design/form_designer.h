// The library's designer as a program: its window, its keys, its answers.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include "host/design/label_editor.h"
#include "tessarine.h"

class FormDesigner {
public:
    // Opens the window on a form, or on a new one when there is none; columns are the fields that
    // the host knows. Throws Failure when the library doesn't open it.
    FormDesigner(const std::string &form, std::vector<FieldRecord> columns, bool label_form);
    ~FormDesigner();
    FormDesigner(const FormDesigner &) = delete;
    FormDesigner &operator=(const FormDesigner &) = delete;

    HWND Window() const { return window_; }
    // Serves the window until it is closed; false when an interrupt asked for that.
    bool Run();
    // True when the message was a key of the designer's host, and is served.
    bool Translate(const MSG &message) { return editor_ && editor_->Translate(message); }

    // What the two windows' procedures do; public for them.
    LRESULT OnOwner(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnDesigner(UINT message, WPARAM wParam, LPARAM lParam);

private:
    static int32_t __stdcall Properties(struct Session *session, uint32_t code, uint32_t writable,
                                        void *designer);
    static int32_t __stdcall Pick(HWND window, FieldRecord *record, int32_t level, void *designer);
    static int32_t __stdcall Check(HWND window, FieldRecord *record, int32_t level, void *designer);

    void GiveRoutines(bool label_form);
    void Open(const std::string &form);
    void Close();
    void ShowTitle(bool modified);
    bool OnCommand(WPARAM wParam, LPARAM lParam);
    void OnWheel(UINT bar, int delta);
    const FieldRecord *Find(const std::string &name) const;

    std::vector<FieldRecord> columns_;
    uint32_t edit_allowed_ = 1;
    uint32_t label_form_ = 0;
    HostData data_{};
    HWND owner_ = nullptr;
    HWND window_ = nullptr; // null once it is closed
    WNDPROC procedure_ = nullptr;
    HACCEL keys_ = nullptr;
    std::optional<LabelEditor> editor_;
    bool help_wanted_ = false; // by F1 on an open menu
    int wheel_rest_ = 0;       // turned, not yet scrolled
    std::string title_;
};
