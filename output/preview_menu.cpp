#include "output/preview.h"
#include "output/report_file.h"

namespace tessarine {

namespace {

struct MenuRow {
    UINT command;
    bool (*enabled)(const Session *session, int finishedPages);
};

constexpr MenuRow menu_rows[] = {
    {COMMAND_JUMP, [](const Session *, int finished) { return finished >= 2; }},
    {COMMAND_PRINT, [](const Session *, int finished) { return finished >= 1; }},
    {COMMAND_FIT, [](const Session *, int finished) { return finished >= 1; }},
    {COMMAND_SAVE,
     [](const Session *session, int) {
         return session->run.RunPhase == PHASE_FINISHED && !session->run.ViewingFile;
     }},
    {COMMAND_EXIT, [](const Session *, int) { return true; }},
};

} // namespace

void SetMenuState(Session *session) {
    if (!session->device.Menu) return;
    const int finished = FinishedPages(session);
    for (const MenuRow &row : menu_rows) {
        const UINT state = row.enabled(session, finished) ? MF_ENABLED : MF_GRAYED;
        EnableMenuItem(session->device.Menu, row.command, MF_BYCOMMAND | state);
    }
    DrawMenuBar(session->device.Window);
}

void SetFitText(Session *session) {
    ModifyMenuA(session->device.Menu, COMMAND_FIT, MF_BYCOMMAND | MF_STRING, COMMAND_FIT,
                session->view.FitPage ? "&Zoom" : "Pre&view");
}

} // namespace tessarine
