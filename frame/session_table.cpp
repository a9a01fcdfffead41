#include "frame/session_table.h"

#include "frame/memory.h"
#include "frame/text.h"

namespace tessarine {

HINSTANCE module_instance = nullptr;
UINT help_message = 0;
uint32_t frc_format = 0;
SessionTableState session_table{};

namespace {

constexpr int WITHOUT_SLOT = -1;
constexpr const char *window_classes[] = {"FrClass32", "RepClass32"};

bool IsOwnWindow(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId();
}

// A window of another process holds an address of that process, and one of a second copy of this
// library a session of its own.
Session *SessionOfWindow(HWND window) {
    if (!IsOwnWindow(window)) return nullptr;
    char name[20] = "";
    GetClassNameA(window, name, sizeof name);
    for (const char *known : window_classes)
        if (!lstrcmpiA(name, known)) {
            auto *session = reinterpret_cast<Session *>(GetWindowLongA(window, 0));
            return SessionStands(session) ? session : nullptr;
        }
    return nullptr;
}

Session *SessionOfSlot(int slot) {
    if (slot < 0 || slot >= session_table.SessionHighMark) return nullptr;
    return session_table.SessionTable[slot];
}

} // namespace

Session *GetSessionPointer(HWND window, int slot) {
    return window ? SessionOfWindow(window) : SessionOfSlot(slot);
}

bool SessionStands(const Session *session) {
    const Session *live = session_table.LiveSessions;
    while (live && live != session) live = live->NextLive;
    return live != nullptr;
}

namespace {

Session *TakeEndedSession() {
    Session *session = session_table.EndedSessions;
    if (session) session_table.EndedSessions = session->NextLive;
    return session;
}

Session *AllocateSession() { return static_cast<Session *>(OurAlloc(sizeof(Session))); }

int BeginSession(Session *session, int slot) {
    if (!session) return CODE_MEMORY;
    FillBytes(session, 0, sizeof(Session));
    session->SessionId = slot;
    session->NextLive = session_table.LiveSessions;
    session_table.LiveSessions = session;
    return CODE_DONE;
}

void Unlink(const Session *session) {
    Session **link = &session_table.LiveSessions;
    while (*link != session) link = &(*link)->NextLive;
    *link = session->NextLive;
}

} // namespace

int OpenSession(Session **session) {
    *session = TakeEndedSession();
    if (!*session) *session = AllocateSession();
    return BeginSession(*session, WITHOUT_SLOT);
}

int OpenRunSession(Session **session) {
    *session = nullptr;
    int slot = 0;
    while (slot < session_table.SessionHighMark && session_table.SessionTable[slot]) ++slot;
    if (slot == session_table.SessionHighMark && session_table.SessionHighMark < MAX_SESSIONS)
        ++session_table.SessionHighMark;
    if (slot == session_table.SessionHighMark) return CODE_NO_SLOT;
    *session = AllocateSession();
    if (const int code = BeginSession(*session, slot)) return code;
    session_table.SessionTable[slot] = *session;
    return CODE_DONE;
}

void FreeSession(Session *session) {
    Unlink(session);
    if (session->SessionId != WITHOUT_SLOT) {
        session_table.SessionTable[session->SessionId] = nullptr;
        session_table.PrinterContextTable[session->SessionId] = nullptr;
    }
    OurFree(session);
}

void RetireSession(Session *session) {
    Unlink(session);
    session->NextLive = session_table.EndedSessions;
    session_table.EndedSessions = session;
}

// The entry of a job that is over may stand for a handle that the system has given out again.
void NotePrinterContext(const Session *session, HDC device) {
    for (HDC &noted : session_table.PrinterContextTable)
        if (noted == device) noted = nullptr;
    session_table.PrinterContextTable[session->SessionId] = device;
}

HWND RepGetParent(HWND window, int slot) {
    Session *session = GetSessionPointer(window, slot);
    if (!session && window) {
        const HWND parent = GetParent(window);
        if (parent) session = GetSessionPointer(parent, slot);
    }
    return session ? session->ParentWindow : nullptr;
}

int RepSetMsgCallback(HWND window, int slot, MessageRoutine routine) {
    Session *session = GetSessionPointer(window, slot);
    if (!session) return 0;
    session->MessageCallback = routine;
    return 1;
}

} // namespace tessarine
