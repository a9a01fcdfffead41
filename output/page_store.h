// Finished pages on their way to and from the report file.
#pragma once

#include "state/session.h"

namespace tessarine {

void AllocPageStore(Session *session);   // the page table and the copy buffer; fatal, code 3
void ReleasePageStore(Session *session); // frees both, ends the recording, deletes scratch files
void StartRecorder(Session *session, const char *failure); // a new PageRecorder; fatal, code 1

// Moves the finished page from PageRecorder to the report file and starts a new recording. The
// caller advances PageCount. Fatal with code 1; also at page 5001, after its bytes were appended.
void TransferMetaFile(Session *session);

// Gets page pageIndex, from 0, out of the report file by way of scratchPath. oldHandle is deleted
// first. Fatal with code 1.
HMETAFILE ReadMetaFilePage(Session *session, int pageIndex, const char *scratchPath,
                           HMETAFILE oldHandle);

// Opens a file to write, also one that stands, which keeps its bytes. Fatal with code 1 and the
// failure of a file that stands or of one to be made.
HANDLE OpenOutput(Session *session, const char *path, const char *standing, const char *made);
// Copies bytes between two files; an existing output is never cut short. Fatal with code 1.
void CopyFileData(Session *session, const char *inputPath, int64_t inputOffset,
                  const char *outputPath, int64_t outputOffset, int64_t byteCount);

} // namespace tessarine
