// A preview whose pages are printed, with the answers to its dialogs.
#pragma once

#include "tests/support/preview_run.h"
#include "tests/support/printer_calls.h"

// The run is going on; the progress dialog of a job is left alone.
class PreviewPrinting : public PreviewRun {
protected:
    PreviewPrinting();
    ~PreviewPrinting() override;

    // Goes on until this page is under construction.
    void FeedToPage(int page);
    // Enters a range in the dialog and, when it is refused, cancels.
    int Ask(const char *first, const char *last);
    int Print(int first, int last);
    DialogDriver Progress() const { return session->job.Progress.AbortDialog; }
    BoxRecord Last() const { return boxes.Log().empty() ? BoxRecord{} : boxes.Log().back(); }

    int focus_behind_refusal = 0;
};
