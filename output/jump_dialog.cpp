#include <algorithm>
#include <cstdlib>

#include "frame/dialogs.h"
#include "frame/fatal_error.h"
#include "output/preview.h"
#include "output/report_file.h"
#include "rep_dlg.h"

namespace tessarine {

namespace {

constexpr int JUMP_HELP = 3037;
constexpr int NUMBER_LENGTH = 40;

// What is typed is forced into the finished pages, also a number too long for any integer; an
// empty text counts as 0.
int WantedPage(HWND dialog, const Session *session) {
    char text[NUMBER_LENGTH] = "";
    GetDlgItemTextA(dialog, JUMP_PAGE, text, sizeof text);
    const long last = FinishedPages(session);
    return static_cast<int>(std::max(std::min(std::strtol(text, nullptr, 10), last), 1L));
}

INT_PTR OnCommand(HWND dialog, Session *session, int control) {
    switch (control) {
    case IDOK: return EndDialog(dialog, WantedPage(dialog, session));
    case IDCANCEL: return EndDialog(dialog, 0);
    case DIALOG_HELP: ShowHelp(session, JUMP_HELP); return TRUE;
    default: return FALSE;
    }
}

} // namespace

INT_PTR CALLBACK JumpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        Session *session = reinterpret_cast<DialogStart *>(lParam)->session;
        CentreDialog(dialog);
        SetDialogSession(dialog, session);
        SetDlgItemInt(dialog, JUMP_PAGE, static_cast<UINT>(session->pages.ShownPageIndex + 1),
                      FALSE);
        return TRUE;
    }
    Session *session = DialogSession(dialog);
    if (message != WM_COMMAND || !session) return FALSE;
    return OnCommand(dialog, session, LOWORD(wParam));
}

} // namespace tessarine
