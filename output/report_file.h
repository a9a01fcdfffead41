// Header and page table of a report file.
#pragma once

#include "state/session.h"

namespace tessarine {

const char *ReportFileFilter(); // of file dialogs
// Asks for the whole name of a report to be written. False when cancelled or empty.
bool AskReportName(Session *session, char *name, size_t size, const char *title);

int WriteEmptyHeader(Session *session, const char *path);   // non-zero for success
void WriteOutputHdrFtr(Session *session, const char *path); // fatal with code 1
int ReadReportHeader(Session *session, const char *path);   // non-zero for success
int ReadPageTable(Session *session, const char *path);      // non-zero for success
int32_t FinishedPages(const Session *session);              // PageCount at the end, one less before

} // namespace tessarine
