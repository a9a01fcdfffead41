#include "run/system_fields.h"

#include <cstdio>
#include <iterator>

#include "run/run_tables.h"

namespace tessarine {

namespace {

// What prints once the body is full lands on the next page.
void SetPage(Session *session, FieldRecord *row) {
    const RunState &run = session->run;
    row->LongValue = run.PageNumber + (run.CurrentY >= run.BodyBottom ? 1 : 0);
}

void SetDate(Session *session, FieldRecord *row) { row->LongValue = session->report.RunDate; }

// The clock at the start of the run, as hours, minutes and, in the 12-hour form, a suffix.
void SetTime(Session *session, FieldRecord *row) {
    const char *clock = session->report.TimeText;
    int hours = (clock[0] - '0') * 10 + (clock[1] - '0');
    const bool twelve_hours = row->TimeForm == 0;
    const char *suffix = !twelve_hours ? "" : hours >= 12 ? "PM" : "AM";
    if (twelve_hours && hours > 12) hours -= 12;
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%.2s%s", hours % 100, clock + 3, suffix);
    SetRowText(row, text);
}

void SetRecordCount(Session *session, FieldRecord *row) {
    row->LongValue = session->report.RecordCount + 1;
}

void SetParagraphBreak(Session *, FieldRecord *row) { SetRowText(row, "\r"); }

void SetReportName(Session *session, FieldRecord *row) {
    SetRowText(row, session->form.Header.ReportName);
}

constexpr void (*setters[])(Session *, FieldRecord *) = {
    SetPage, SetDate, SetTime, SetRecordCount, SetParagraphBreak, SetReportName,
};
static_assert(std::size(setters) == SYSTEM_REPORT_NAME + 1);

} // namespace

void SetSystemField(Session *session, FieldRecord *row) {
    if (row->TableIndex < 0 || row->TableIndex >= static_cast<int>(std::size(setters))) return;
    setters[row->TableIndex](session, row);
}

void UpdateSystemFields(Session *session) {
    for (int row = 0; row < session->form.FieldCount; ++row)
        if (session->form.Fields[row].FieldKind == FIELD_SYSTEM)
            SetSystemField(session, &session->run.InputTable[row]);
}

} // namespace tessarine
