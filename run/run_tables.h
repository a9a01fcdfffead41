// The field tables of a run and the texts that their rows own.
#pragma once

#include "state/session.h"

namespace tessarine {

// The session of a run that can take a host's call. Null for any other id: a start that failed, a
// viewing, a run that has ended or is being released, and one that is inside a call already.
Session *RunOf(int sessionId);

// The page store and the run's tables, with a block for every text. Fatal with code 3.
void AllocRepMem(Session *session);
void FreeRunTables(Session *session);

// Gives a row a new block for its width, with an empty text. Fatal with code 3.
void RenewRowText(Session *session, FieldRecord *row);
// Copies a text into a row's own block, cut to what the block holds.
void SetRowText(FieldRecord *row, const char *text);

// Fills values in from the form: empty texts, constants, user fields.
void SetStartValues(Session *session);
// Makes InputTable a copy of the field table in which every text row keeps its own block.
void CopyToInputTable(Session *session);
// Copies the sort field rows to BreakTable.
void CopyToBreakTable(Session *session);

} // namespace tessarine
