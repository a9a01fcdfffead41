// The process-wide list of live sessions and table of run sessions, and how a session is found.
#pragma once

#include "state/session.h"

namespace tessarine {

struct SessionTableState {
    Session *SessionTable[MAX_SESSIONS]; // by slot, which is the SessionId
    int32_t SessionHighMark;             // slots from here up have never been in use
    HDC PrinterContextTable[MAX_SESSIONS];
    Session *LiveSessions;  // of all kinds, linked by NextLive
    Session *EndedSessions; // memory of designers that have ended, linked in the same way
};

extern HINSTANCE module_instance; // taken at load
extern UINT help_message;         // of the common dialogs, by its registered name
extern uint32_t frc_format;       // "FrcFormat": selects the ending .FRC over .FR
extern SessionTableState session_table;

// The session of a window of class "FrClass32" or "RepClass32" of this process, or of a slot when
// the window is null; null when there is none.
Session *GetSessionPointer(HWND window, int slot);

// True while the session is alive, of whatever kind.
bool SessionStands(const Session *session);

// Makes a zeroed session without a slot, as a designer has it, in the memory of one that has ended
// if there is any. CODE_MEMORY or 0.
int OpenSession(Session **session);
// The same with a free slot of the table. CODE_NO_SLOT, CODE_MEMORY or 0.
int OpenRunSession(Session **session);

// Clears the session's slots, if it has any, and frees its memory.
void FreeSession(Session *session);
// Ends a session without a slot and keeps its memory, into which a host may go on looking.
void RetireSession(Session *session);

// Leads the abort procedures of a job on this device to its session, until the session closes.
void NotePrinterContext(const Session *session, HDC device);

HWND RepGetParent(HWND window, int slot);
int RepSetMsgCallback(HWND window, int slot, MessageRoutine routine);

} // namespace tessarine
