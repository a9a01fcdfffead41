#include "run/sections.h"

#include <algorithm>

#include "expr/evaluator.h"
#include "form/sections.h"
#include "frame/fatal_error.h"
#include "frame/memory.h"
#include "paint/text_measure.h"
#include "run/items.h"
#include "run/label_frame.h"
#include "run/page_break.h"

namespace tessarine {

namespace {

// A row across that another section interrupts is over, unfilled.
void EndRowAcross(Session *session, int section) {
    RunState &run = session->run;
    if (run.AcrossIndex == 0 || (section == run.LastSection && IsDetail(section))) return;
    run.AcrossIndex = 0;
    run.CurrentY = run.RowBottom;
}

// The first column settles for its whole row whether the page ends. A section that ends exactly
// at the body's bottom fits.
void StartRow(Session *session, int section) {
    RunState &run = session->run;
    const SectionRecord &record = session->form.Sections[section];
    if (run.AcrossIndex != 0) return;
    if ((record.SectionFlags & SECTION_ADVANCE_BEFORE) ||
        run.CurrentY + record.SectionHeight > run.BodyBottom)
        PageBreak(session, section);
    run.RowBottom = run.CurrentY;
}

void PaintRow(Session *session, int section, int row, uint32_t outline) {
    const ItemRecord &item = session->form.Items[row];
    if (session->LabelMode && item.ItemType == ITEM_BAR) {
        PrintLabelFrame(session, row, outline);
    } else if (session->report.RunPhase != PHASE_FILL) {
        if (item.ItemType == ITEM_GROUP || item.SectionIndex != section) return;
        PrintItem(session, PageDevice(session), row);
    }
    session->run.PageFresh = 0;
}

void PaintItems(Session *session, int section, uint32_t outline) {
    const SectionRecord &record = session->form.Sections[section];
    const int end = record.FirstItem + record.ItemTotal;
    for (int row = record.FirstItem; row < end; ++row) session->form.Items[row].RunOffset = 0;
    for (int row = record.FirstItem; row < end; ++row) PaintRow(session, section, row, outline);
    EndMeasuring(session->printer.InfoDevice);
}

void Advance(Session *session, const SectionRecord &record, bool compress) {
    RunState &run = session->run;
    run.CurrentY = compress ? run.RowBottom : run.CurrentY + record.SectionHeight;
    run.CurrentY = std::max(run.CurrentY, run.RowBottom);
    run.AcrossIndex = 0;
}

// Puts the next section past the body, so that it overflows.
void AdvancePage(RunState *run) { run->CurrentY = run->BodyBottom + 1; }

void AdvanceBand(Session *session, const SectionRecord &record) {
    Advance(session, record, record.SectionFlags & SECTION_COMPRESS_AFTER);
    if (record.SectionFlags & SECTION_ADVANCE_AFTER) AdvancePage(&session->run);
}

void AdvanceDetail(Session *session, const SectionRecord &record) {
    RunState &run = session->run;
    run.FirstOnPage = 0;
    run.FirstInGroup = 0;
    if (++run.AcrossIndex < record.Across) return;
    const bool compress = record.SectionFlags & SECTION_COMPRESS_AFTER;
    Advance(session, record, compress && !session->LabelMode);
    if (record.Across == 1 && (record.SectionFlags & SECTION_ADVANCE_AFTER)) AdvancePage(&run);
}

} // namespace

HDC PageDevice(const Session *session) {
    return session->OutputToPrinter ? session->drawing.OutputDevice : session->pages.PageRecorder;
}

int SectionSelected(Session *session, int section) {
    SectionRecord *record = &session->form.Sections[section];
    record->PrintNow = 0;
    if (!record->InUse) return 0;
    record->PrintNow = 1;
    if (record->SectionFilter[0] == CELL_END) return 1;
    FieldRecord result{};
    if (EvaluateExpression(session, record->SectionFilter, &result, 1) != CELL_END)
        FatalError(session, "Error In Section Filter", CODE_EXPRESSION);
    if (result.ValueType == TYPE_TEXT) OurFree(result.TextValue);
    record->PrintNow = static_cast<int16_t>(result.LongValue);
    return record->PrintNow;
}

int PrintSection(Session *session, int section, uint32_t outline) {
    const SectionRecord &record = session->form.Sections[section];
    if (!record.InUse || !SectionSelected(session, section) || record.ItemTotal == 0) return 0;
    RunState &run = session->run;
    EndRowAcross(session, section);
    StartRow(session, section);
    run.CurrentX = session->form.Items[record.BarItem].width * run.AcrossIndex + run.LeftOrigin;
    PaintItems(session, section, outline);
    if (IsDetail(section))
        AdvanceDetail(session, record);
    else
        AdvanceBand(session, record);
    run.LastSection = section;
    return 1;
}

} // namespace tessarine
