#include "output/jump_dialog.h"

#include <algorithm>

#include "commands.h"
#include "frame/dialogs.h"
#include "frame/text_numbers.h"
#include "output/report_file.h"

namespace tessarine {

namespace {

constexpr int JUMP_HELP = 3037;
constexpr int NUMBER_LENGTH = 40;

// What is typed is forced into the finished pages, also a number too long for any integer; an
// empty text counts as 0.
int WantedPage(HWND dialog, const Session *session) {
    char text[NUMBER_LENGTH] = "";
    GetDlgItemTextA(dialog, JUMP_PAGE, text, sizeof text);
    return std::max(std::min(WholeNumberIn(text), FinishedPages(session)), 1);
}

bool Open(HWND dialog, Session *session, LPARAM) {
    SetDlgItemInt(dialog, JUMP_PAGE, static_cast<UINT>(session->pages.ShownPageIndex + 1), FALSE);
    return true;
}

void GoTo(HWND dialog, Session *session) { EndDialog(dialog, WantedPage(dialog, session)); }

constexpr ControlRow controls[] = {{IDOK, GoTo}};
constexpr Dialog jump_dialog{JUMP_HELP, Open, controls};

} // namespace

INT_PTR CALLBACK JumpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(jump_dialog, dialog, message, wParam, lParam);
}

} // namespace tessarine
