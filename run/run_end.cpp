#include "run/run_end.h"

#include <climits>

#include "form/sections.h"
#include "frame/boundary.h"
#include "frame/session_table.h"
#include "output/page_store.h"
#include "output/preview_paint.h"
#include "output/preview_window.h"
#include "output/print_job.h"
#include "output/report_file.h"
#include "output/saved_report.h"
#include "run/calculations.h"
#include "run/run_tables.h"
#include "run/sections.h"
#include "session/session_life.h"

namespace tessarine {

namespace {

// A label that asks for a new page has no room on the sheet that stands.
bool SheetHasRoom(const Session *session) {
    const RunState &run = session->run;
    const SectionRecord &label = session->form.Sections[SECTION_DETAIL_1];
    if (run.AcrossIndex >= 1) return true;
    return !(label.SectionFlags & SECTION_ADVANCE_BEFORE) &&
           run.CurrentY + label.SectionHeight <= run.BodyBottom;
}

// The rest of the sheet shows empty labels. A label that doesn't print, or whose row takes no room,
// would never fill it, so the sheet is left as it is then.
void FillSheet(Session *session, uint32_t outline) {
    RunState &run = session->run;
    const int phase = session->report.RunPhase;
    session->report.RunPhase = PHASE_FILL;
    int row_top = INT_MIN;
    while (SheetHasRoom(session)) {
        if (run.AcrossIndex == 0) {
            if (run.CurrentY <= row_top) break;
            row_top = run.CurrentY;
        }
        if (!PrintSection(session, SECTION_DETAIL_1, outline)) break;
    }
    session->report.RunPhase = phase;
}

void PrintClosingSections(Session *session) {
    RunState &run = session->run;
    session->report.RunPhase = PHASE_CLOSING;
    CalcFields(session, SECTION_SORT_FOOTER_9, SECTION_REPORT_FOOTER);
    for (int level = session->form.BreakCount - 1; level >= 0; --level)
        PrintSection(session, FooterOf(session->form.Breaks[level].SectionIndex), 0);
    PrintSection(session, SECTION_REPORT_FOOTER, 0);
    run.AcrossIndex = 0; // a row left open would pull the page footer up to its own bottom
    run.CurrentY = run.BodyBottom;
    run.InPageBreak = 1; // no page break can come any more
    run.PageFresh = 1;
    PrintSection(session, SECTION_PAGE_FOOTER, 0);
}

void FinishPages(Session *session) {
    session->report.RunPhase = PHASE_FINISHED;
    if (session->OutputToPrinter) {
        EndPage(session->drawing.OutputDevice);
        RaisePending(session);
        return;
    }
    TransferMetaFile(session);
    WriteOutputHdrFtr(session, session->pages.ReportPath);
    if (!session->OutputToScreen) return;
    SetMenuState(session);
    PaintPreview(session);
}

// What the host called for: the closing sections, the last page and the page count.
void FinishRun(Session *session, int fill, int32_t *pageCount) {
    const bool cancelled = session->report.CancelState == CANCEL_STOP;
    if (session->LabelMode && fill && !cancelled) FillSheet(session, static_cast<uint32_t>(fill));
    if (!cancelled && session->report.RecordCount >= 1) PrintClosingSections(session);
    if (session->report.CancelState != CANCEL_STOP) FinishPages(session);
    if (pageCount)
        *pageCount = session->report.PageCount > 1 || session->report.RecordCount != 0
                         ? session->report.PageCount
                         : 0;
}

// The host has no further call for this run, whatever came: a preview stays to be read, until its
// user closes it, and all else is released.
int LeaveRun(Session *session, int code) {
    if (session->State == STATE_FINISHED || session->State == STATE_ENDING) return code;
    const bool whole = code == CODE_DONE;
    if (!session->OutputToScreen || session->report.CancelState == CANCEL_STOP ||
        session->view.WindowGone) {
        EndRun(session, whole);
        return code;
    }
    if (!whole)
        session->report.RunPhase = PHASE_CLOSING; // the page in hand isn't one of the report
    session->State = STATE_FINISHED;
    return code;
}

// A page that could not be kept has left no recording to go on with.
bool PagesAreLost(const Session *session) {
    return !session->OutputToPrinter && !session->pages.PageRecorder;
}

} // namespace

int RepExit(int sessionId, int fill, int32_t *pageCount) {
    Session *session = RunOf(sessionId);
    if (!session) return CODE_NO_SESSION;
    return AtEntry(
        session,
        [&] {
            if (PagesAreLost(session)) return LeaveRun(session, session->ErrorCode);
            FinishRun(session, fill, pageCount);
            RaisePending(session);
            return LeaveRun(session, CODE_DONE);
        },
        [&] { return LeaveRun(session, session->ErrorCode); });
}

void EndRun(Session *session, bool whole) {
    session->job.CancelState = CANCEL_STOP;
    if (session->OutputToPrinter || session->OutputToFile) FinishOutput(session, whole);
    WantEnd(session);
}

void ReleaseRun(Session *session) {
    FreeRunTables(session);
    EndPageSession(session);
}

} // namespace tessarine
