#include "run/page_break.h"

#include "frame/fatal_error.h"
#include "output/page_store.h"
#include "output/preview_paint.h"
#include "output/preview_window.h"
#include "output/print_job.h"
#include "output/report_file.h"
#include "run/calculations.h"
#include "run/sections.h"
#include "run/summaries.h"
#include "run/system_fields.h"

namespace tessarine {

namespace {

// A report header that stands on a page of its own has no page footer.
bool FooterPrints(const Session *session) {
    const bool own_page =
        (session->form.Header.FormFlags & FORM_REPORT_HEADER_FIRST) &&
        (session->form.Sections[SECTION_REPORT_HEADER].SectionFlags & SECTION_ADVANCE_AFTER);
    return session->report.PageCount != 1 || !own_page;
}

// False when the run was cancelled while it finishes; a run that is still going unwinds.
bool GoesOn(Session *session) {
    if (session->report.CancelState != CANCEL_STOP) return true;
    if (session->report.RunPhase == PHASE_FINISHED) return false;
    FatalError(session, "", CODE_CANCELLED);
}

bool FinishPrinterPage(Session *session) {
    EndPrinterPage(session);
    if (!GoesOn(session)) return false;
    StartPrinterPage(session);
    return true;
}

// A cancelled file stays valid with the pages done.
bool FinishFilePage(Session *session) {
    TransferMetaFile(session);
    FilePrintPump(session);
    if (session->report.CancelState == CANCEL_STOP)
        WriteOutputHdrFtr(session, session->pages.ReportPath);
    return GoesOn(session);
}

bool FinishPage(Session *session) {
    if (session->OutputToPrinter) return FinishPrinterPage(session);
    if (session->OutputToFile) return FinishFilePage(session);
    TransferMetaFile(session);
    return true;
}

void NumberPage(Session *session) {
    RunState *run = &session->run;
    ++session->report.PageCount;
    run->PageNumber = run->ResetPageNumber ? 1 : run->PageNumber + 1;
    run->ResetPageNumber = 0;
}

// A summary in the page footer is a summary of the page.
void RenewPageFields(Session *session) {
    for (int row = 0; row < session->form.FieldCount; ++row) {
        FieldRecord *field = &session->form.Fields[row];
        if (field->InUse && field->SummarySection == SECTION_PAGE_FOOTER &&
            !(field->FieldFlags & FIELD_RETAIN)) {
            const FieldRecord &input = session->run.InputTable[row];
            ResetSummary(field, input.LongValue, input.DoubleValue);
        }
        if (field->FieldKind == FIELD_SYSTEM && field->TableIndex == SYSTEM_PAGE)
            field->LongValue = session->run.PageNumber;
    }
    UpdateSystemFields(session);
    CalcFields(session, SECTION_PAGE_HEADER, SECTION_PAGE_FOOTER);
}

// Titles print in their own order, whatever the level of the break.
void ReprintTitles(Session *session) {
    bool calculated = false;
    for (int level = 0; level < session->form.BreakCount; ++level) {
        const int header = session->form.Breaks[level].SectionIndex;
        if (!(session->form.Sections[header].SectionFlags & SECTION_REPRINT)) continue;
        if (!calculated) CalcFields(session, SECTION_PAGE_HEADER, SECTION_SORT_HEADER_9);
        calculated = true;
        PrintSection(session, header, 0);
    }
}

void PrintPageTop(Session *session, int section) {
    const bool header_first = session->form.Header.FormFlags & FORM_REPORT_HEADER_FIRST;
    if (section != SECTION_REPORT_HEADER || !header_first)
        PrintSection(session, SECTION_PAGE_HEADER, 0);
    if (section >= SECTION_DETAIL_1 && section <= SECTION_SORT_FOOTER_1) ReprintTitles(session);
}

void TurnToPreview(Session *session) {
    if (session->report.PageCount == 2) {
        SetMenuState(session);
        PaintPreview(session);
    } else if (session->report.PageCount == 3) {
        SetMenuState(session);
    }
}

} // namespace

int PageBreak(Session *session, int section) {
    RunState &run = session->run;
    // A Cancel that the host's own loop gave to the progress dialog waits for this page end.
    if (session->report.CancelState == CANCEL_STOP && !session->progress.AbortDialog) return 1;
    if (run.PageFresh || run.InPageBreak) return 0;
    run.InPageBreak = 1;
    run.CurrentY = run.BodyBottom;
    if (FooterPrints(session)) PrintSection(session, SECTION_PAGE_FOOTER, 0);
    if (!FinishPage(session)) return 0;
    NumberPage(session);
    run.CurrentY = run.TopOrigin;
    RenewPageFields(session);
    if (!run.TrialMode) PrintPageTop(session, section);
    run.InPageBreak = 0;
    run.PageFresh = 1;
    if (session->OutputToScreen) TurnToPreview(session);
    run.FirstOnPage = 1;
    return 1;
}

} // namespace tessarine
