#include "run/breaks.h"

#include "form/sections.h"
#include "run/calculations.h"
#include "run/sections.h"
#include "run/summaries.h"

namespace tessarine {

namespace {

bool TextChanged(const FieldRecord &before, const FieldRecord &now) {
    if (!before.TextValue || !now.TextValue) return true;
    return lstrcmpA(before.TextValue, now.TextValue) != 0;
}

bool ValueChanged(const FieldRecord &before, const FieldRecord &now) {
    if (before.ValueType == TYPE_TEXT) return TextChanged(before, now);
    if (before.ValueType == TYPE_DOUBLE && before.DoubleValue != now.DoubleValue) return true;
    return before.LongValue != now.LongValue;
}

int ChangedLevel(const Session *session) {
    const FormState &form = session->form;
    int level = 0;
    for (; level < form.BreakCount; ++level) {
        const int row = form.Breaks[level].BreakField;
        if (ValueChanged(form.Fields[row], session->run.InputTable[row])) break;
    }
    return level;
}

void PrintFooter(Session *session, int level) {
    const int header = session->form.Breaks[level].SectionIndex;
    const int footer = FooterOf(header);
    CalcFields(session, footer, footer);
    PrintSection(session, footer, 0);
    if (session->form.Sections[header].SectionFlags & SECTION_RESET_PAGE)
        session->run.ResetPageNumber = 1;
}

// Fields that are summed up to the footer of this header start anew behind it.
void ResetSummariesOf(Session *session, int header) {
    const int footer = FooterOf(header);
    for (int row = 0; row < session->form.FieldCount; ++row) {
        FieldRecord *field = &session->form.Fields[row];
        if (!field->InUse || field->SummarySection != footer || (field->FieldFlags & FIELD_RETAIN))
            continue;
        ResetSummary(field, field->LongValue, field->DoubleValue);
    }
}

} // namespace

int DetectBreak(Session *session) {
    const int found = ChangedLevel(session);
    if (found == session->form.BreakCount) return found;
    session->run.ResetPageNumber = 0;
    for (int level = session->form.BreakCount - 1; level >= found; --level)
        PrintFooter(session, level);
    return found;
}

void PrintHeaders(Session *session, int level) {
    if (level >= session->form.BreakCount) return;
    session->run.FirstInGroup = 1;
    for (; level < session->form.BreakCount; ++level) {
        const int header = session->form.Breaks[level].SectionIndex;
        PrintSection(session, header, 0);
        ResetSummariesOf(session, header);
    }
}

} // namespace tessarine
