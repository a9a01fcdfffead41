// Finished pages on their way to and from the report file.
#pragma once

#include "frame/session.h"

namespace tessarine {

void AllocPageStore(Session *session);    // the page table and the copy buffer; fatal, code 3
void ReleasePageStore(Session *session);  // frees both, ends the recording, deletes scratch files
void MakePageFileNames(Session *session); // ReportPath and the three scratch paths
void StartRecorder(Session *session, const char *failure); // a new PageRecorder; fatal, code 1
void TransferMetaFile(Session *session); // moves the finished page to the report file
HMETAFILE ReadMetaFilePage(Session *session, int pageIndex, const char *scratchPath,
                           HMETAFILE oldHandle);
void CopyFileData(Session *session, const char *inputPath, int inputOffset,
                  const char *outputPath, int outputOffset, int byteCount);

} // namespace tessarine
