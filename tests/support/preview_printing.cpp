#include "tests/support/preview_printing.h"

#include "commands.h"
#include "output/page_printing.h"

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
    boxes.OnDialog("Print Selected Pages", [this, first, last](DialogDriver dialog) {
        dialog.SetText(PRINT_FIRST_PAGE, first);
        dialog.SetText(PRINT_LAST_PAGE, last);
        SetFocus(dialog.Control(IDOK));
        dialog.Send(IDOK);
        if (IsWindowEnabled(Window())) return; // it was accepted
        focus_behind_refusal = dialog.Focus();
        dialog.Press(IDCANCEL);
    });
    return tessarine::PrintPages(session, 1);
}

int PreviewPrinting::Print(int first, int last) {
    session->job.FirstPrintPage = first;
    session->job.LastPrintPage = last;
    return tessarine::PrintPages(session, 0);
}
