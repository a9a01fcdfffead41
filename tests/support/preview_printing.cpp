#include "tests/support/preview_printing.h"

#include "rep_dlg.h"

PreviewPrinting::PreviewPrinting() {
    boxes.OnDialog("Printing In Progress...", [](HWND) {});
}

PreviewPrinting::~PreviewPrinting() {
    if (session && Open()) session->ViewingFile = 0;
}

void PreviewPrinting::FeedToPage(int page) {
    while (session->report.PageCount < page) ASSERT_EQ(run.Feed({{"NAME", "record"}}), 0);
}

int PreviewPrinting::Ask(const char *first, const char *last) {
    boxes.OnDialog("Print Selected Pages", [this, first, last](HWND dialog) {
        SetDlgItemTextA(dialog, PRINT_FIRST_PAGE, first);
        SetDlgItemTextA(dialog, PRINT_LAST_PAGE, last);
        SetFocus(GetDlgItem(dialog, IDOK));
        SendMessageA(dialog, WM_COMMAND, IDOK, 0);
        if (IsWindowEnabled(Window())) return; // it was accepted
        focus_behind_refusal = GetDlgCtrlID(GetFocus());
        PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    return tessarine::PrintPages(session, 1);
}

int PreviewPrinting::Print(int first, int last) {
    session->job.FirstPrintPage = first;
    session->job.LastPrintPage = last;
    return tessarine::PrintPages(session, 0);
}
