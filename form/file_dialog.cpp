#include "form/file_dialog.h"

#include <algorithm>
#include <cstring>

#include "frame/drop_messages.h"
#include "frame/fatal_error.h"
#include "frame/host_data.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr size_t NAME_LENGTH = 129; // 128 characters of path

} // namespace

bool AskFileName(Session *session, char *name, const char *filter, const char *title, bool save) {
    char chosen[NAME_LENGTH];
    char parts[256];
    CopyText(name, chosen, sizeof chosen);
    CopyText(filter, parts, sizeof parts - 1);
    const size_t length = std::strlen(parts);
    parts[length + 1] = 0;
    std::replace(parts, parts + length, '|', '\0');

    const HWND window = session->Window ? session->Window : session->ParentWindow;
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = window;
    dialog.lpstrFilter = parts;
    dialog.lpstrFile = chosen;
    dialog.nMaxFile = sizeof chosen;
    dialog.lpstrTitle = title;
    dialog.Flags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR | (save ? OFN_OVERWRITEPROMPT : 0);
    if (host_data.FileDialogDir && *host_data.FileDialogDir)
        dialog.lpstrInitialDir = host_data.FileDialogDir;
    const bool done = save ? GetSaveFileNameA(&dialog) : GetOpenFileNameA(&dialog);
    if (!done && session->ParentWindow)
        SendMessageA(session->ParentWindow, MESSAGE_NO_RESULT, 0, 0);
    if (window) DropMessages(window, WM_MOUSEFIRST, WM_MOUSELAST); // a double click on the dialog
    if (done) std::strcpy(name, chosen);
    RaisePending(session);
    return done;
}

} // namespace tessarine
