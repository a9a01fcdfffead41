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

// Drawing the bar takes longer than turning a page, so it is drawn only when it changes.
void SetMenuState(Session *session) {
    if (!session->device.Menu) return;
    const int finished = FinishedPages(session);
    bool changed = false;
    for (const MenuRow &row : menu_rows) {
        const UINT state = row.enabled(session, finished) ? MF_ENABLED : MF_GRAYED;
        const auto before = static_cast<UINT>(
            EnableMenuItem(session->device.Menu, row.command, MF_BYCOMMAND | state));
        changed |= (before & MF_GRAYED) != state;
    }
    if (changed) DrawMenuBar(session->device.Window);
}

void SetFitText(Session *session) {
    ModifyMenuA(session->device.Menu, COMMAND_FIT, MF_BYCOMMAND | MF_STRING, COMMAND_FIT,
                session->view.FitPage ? "&Zoom" : "Pre&view");
    DrawMenuBar(session->device.Window);
}

} // namespace tessarine
