#include "host/view/go_to_dialog.h"

#include <algorithm>

#include "host/view/resource_ids.h"

namespace {

struct Question {
    int current;
    int count;
};

INT_PTR CALLBACK Serve(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto *question = reinterpret_cast<const Question *>(lParam);
        SetWindowLongA(dialog, DWL_USER, question->count);
        char range[40];
        wsprintfA(range, "of %d", question->count);
        SetDlgItemTextA(dialog, GO_TO_RANGE, range);
        SetDlgItemInt(dialog, GO_TO_PAGE, static_cast<UINT>(question->current), FALSE);
        SendDlgItemMessageA(dialog, GO_TO_PAGE, EM_SETSEL, 0, -1);
        return TRUE;
    }
    if (message != WM_COMMAND) return FALSE;
    if (LOWORD(wParam) == IDCANCEL) EndDialog(dialog, 0);
    if (LOWORD(wParam) == IDOK) {
        const int count = GetWindowLongA(dialog, DWL_USER);
        BOOL whole = FALSE;
        const UINT page = GetDlgItemInt(dialog, GO_TO_PAGE, &whole, FALSE);
        EndDialog(dialog,
                  whole ? std::clamp(static_cast<int>(std::min(page, 1'000'000U)), 1, count) : 0);
    }
    return TRUE;
}

} // namespace

int AskForPage(HWND owner, int current, int count) {
    Question question{current, count};
    return static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr),
                                            MAKEINTRESOURCEA(GO_TO_DIALOG), owner, Serve,
                                            reinterpret_cast<LPARAM>(&question)));
}
