// The steps of a record: system fields, calculations, breaks, headers, summaries.
#pragma once

#include "state/session.h"

namespace tessarine {

void UpdateSystemFields(Session *session); // in InputTable
void SetSystemField(Session *session, FieldRecord *row);

// Computes the calculated break fields of the table that the session works on. Fatal, code 4.
void EvalBreakFields(Session *session);
// Computes the calculations whose SummarySection lies from low to high. Fatal, code 4.
void CalcFields(Session *session, int low, int high);

int DetectBreak(Session *session); // the level, or BreakCount for none; prints the footers due
void PrintHeaders(Session *session, int level);

// Starts a field's summary anew; a maximum or minimum starts at the values' own.
void ResetSummary(FieldRecord *field, int32_t longValue, double doubleValue);
void AccumulateSummaries(Session *session);

void MoveRecord(Session *session); // InputTable's values to the field table

// Gives waiting messages their turn. A cancelled run unwinds here with code 5.
void PumpMessages(Session *session);

} // namespace tessarine
