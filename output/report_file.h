// Header and page table of a report file.
#pragma once

#include "frame/session.h"

namespace tessarine {

// What file dialogs offer, and the ending of a name that has none.
const char *ReportFileFilter();
const char *ReportFileEnding();

int WriteEmptyHeader(Session *session, const char *path);   // non-zero for success
void WriteOutputHdrFtr(Session *session, const char *path); // fatal with code 1
int ReadReportHeader(Session *session, const char *path);   // non-zero for success
int ReadPageTable(Session *session, const char *path);      // non-zero for success
int32_t FinishedPages(const Session *session);              // PageCount at the end, one less before

} // namespace tessarine
