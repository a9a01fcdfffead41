#include "run/record_driver.h"

#include <utility>

#include "expr/evaluator.h"
#include "frame/boundary.h"
#include "frame/memory.h"
#include "frame/message_box.h"
#include "output/preview_paint.h"
#include "output/preview_window.h"
#include "output/print_job.h"
#include "run/breaks.h"
#include "run/calculations.h"
#include "run/message_pump.h"
#include "run/run_tables.h"
#include "run/sections.h"
#include "run/summaries.h"
#include "run/system_fields.h"

namespace tessarine {

namespace {

enum class Selection { Accepted, Refused, Failed };

// While one stands, all field references read the record that the host handed in. A failure
// below puts the true table back as well.
class OnInputTable {
public:
    explicit OnInputTable(Session *session)
        : session_(session),
          true_fields_(std::exchange(session->form.Fields, session->run.InputTable)) {}
    OnInputTable(const OnInputTable &) = delete;
    OnInputTable &operator=(const OnInputTable &) = delete;
    ~OnInputTable() { session_->form.Fields = true_fields_; }

private:
    Session *session_;
    FieldRecord *true_fields_;
};

Selection SelectRecord(Session *session) {
    const Cell *filter = session->form.Header.ReportFilter;
    if (filter[0] == CELL_END) return Selection::Accepted;
    FieldRecord result{};
    int outcome;
    {
        const OnInputTable swapped(session);
        outcome = EvaluateExpression(session, filter, &result, 1);
    }
    if (outcome == CELL_END && result.ValueType == TYPE_LOGICAL)
        return result.LongValue ? Selection::Accepted : Selection::Refused;
    if (outcome == CELL_END && result.ValueType == TYPE_TEXT) OurFree(result.TextValue);
    ShowSessionBox(session, "Error In Record Filter");
    return Selection::Failed;
}

void OpenOutput(Session *session) {
    if (session->OutputToScreen)
        SetMenuState(session);
    else if (session->OutputToPrinter)
        StartPrinterRun(session);
    else
        StartFileRun(session);
}

// PageFresh ahead of each opening section makes "advance page before" idle: none of them can
// leave an empty first page.
void PrintOpeningSections(Session *session) {
    RunState &run = session->run;
    const SectionRecord &report_header = session->form.Sections[SECTION_REPORT_HEADER];
    if (session->form.Header.FormFlags & FORM_REPORT_HEADER_FIRST) {
        PrintSection(session, SECTION_REPORT_HEADER, 0);
        if (!(report_header.SectionFlags & SECTION_ADVANCE_AFTER)) {
            run.PageFresh = 1;
            PrintSection(session, SECTION_PAGE_HEADER, 0);
        }
    } else {
        PrintSection(session, SECTION_PAGE_HEADER, 0);
        run.PageFresh = 1;
        PrintSection(session, SECTION_REPORT_HEADER, 0);
    }
    for (int level = 0; level < session->form.BreakCount; ++level) {
        run.PageFresh = 1;
        PrintSection(session, session->form.Breaks[level].SectionIndex, 0);
    }
}

void StartPrinting(Session *session) {
    MoveRecord(session);
    CalcFields(session, SECTION_PAGE_HEADER, SECTION_PAGE_FOOTER);
    session->report.CancelState = CANCEL_NONE;
    OpenOutput(session);
    session->run.CurrentY = session->run.TopOrigin;
    session->run.PageFresh = 1;
    PrintOpeningSections(session);
}

// The strip is painted into the window directly, so not for every record.
void TurnToPreview(Session *session) {
    const int count = session->report.RecordCount;
    if (count < 50 ? count % 5 == 0 : count % 10 == 0) PaintStatusStrip(session);
    PumpMessages(session);
}

int ProcessRecord(Session *session, uint32_t outline) {
    session->State = STATE_RUNNING;
    if (session->view.WindowGone) FatalError(session, "", CODE_CANCELLED);
    session->report.RunPhase = PHASE_RECORDS;
    UpdateSystemFields(session);
    const Selection selection = SelectRecord(session);
    if (selection == Selection::Failed) return CODE_EXPRESSION;
    if (selection == Selection::Refused) return CODE_DONE;
    {
        const OnInputTable swapped(session);
        EvalBreakFields(session);
    }
    if (session->report.RecordCount == 0) StartPrinting(session);
    const int level = DetectBreak(session);
    MoveRecord(session);
    CalcFields(session, SECTION_PAGE_HEADER, SECTION_PAGE_FOOTER);
    PrintHeaders(session, level);
    for (int section = SECTION_DETAIL_1; section <= SECTION_DETAIL_9; ++section)
        PrintSection(session, section, outline);
    AccumulateSummaries(session);
    if (session->OutputToScreen) TurnToPreview(session);
    ++session->report.RecordCount;
    return CODE_DONE;
}

// A host may have raised the width of a text; the field table's width isn't raised, so its block
// is made anew for each such record.
void MoveText(Session *session, FieldRecord *field, const FieldRecord &input) {
    const int16_t own_width = field->FieldWidth;
    const bool wider = own_width < input.FieldWidth;
    if (wider) field->FieldWidth = input.FieldWidth;
    if (wider || !field->TextValue) RenewRowText(session, field);
    SetRowText(field, input.TextValue ? input.TextValue : "");
    field->FieldWidth = own_width;
}

} // namespace

void MoveRecord(Session *session) {
    for (int row = 0; row < session->form.FieldCount; ++row) {
        FieldRecord *field = &session->form.Fields[row];
        const FieldRecord &input = session->run.InputTable[row];
        if (field->ValueType == TYPE_TEXT)
            MoveText(session, field, input);
        else if (field->ValueType == TYPE_DOUBLE)
            field->DoubleValue = input.DoubleValue;
        else
            field->LongValue = input.LongValue;
    }
}

int RepRec(int sessionId, uint32_t outline) {
    Session *session = RunOf(sessionId);
    if (!session) return CODE_NO_SESSION;
    return AtEntry(
        session, [&] { return ProcessRecord(session, outline); },
        [&] { return session->ErrorCode; });
}

} // namespace tessarine
