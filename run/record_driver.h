// The steps of a record: system fields, calculations, breaks, headers, summaries.
#pragma once

#include "frame/session.h"

namespace tessarine {

void UpdateSystemFields(Session *session);
void SetSystemField(Session *session, FieldRecord *row);
void EvalBreakFields(Session *session);
void CalcFields(Session *session, int low, int high);
int DetectBreak(Session *session); // the level, or BreakCount for none; prints the footers due
void PrintHeaders(Session *session, int level);
void ResetSummaries(Session *session, int section, const FieldRecord *values);
void AccumulateSummaries(Session *session);
void MoveRecord(Session *session, bool checkWidth); // InputTable's values to the field table
void PumpMessages(Session *session);

} // namespace tessarine
