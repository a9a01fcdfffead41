#include "run/trial_print.h"

#include <algorithm>

#include "form/sections.h"
#include "frame/message_box.h"
#include "run/page_break.h"
#include "run/sections.h"

namespace tessarine {

namespace {

void PrintAllSections(Session *session) {
    for (int section = 0; section < MAX_SECTIONS; ++section) {
        const int across = session->form.Sections[section].Across;
        const int times = section == SECTION_DETAIL_1 ? std::max(across, 1) : 1;
        for (int time = 0; time < times; ++time) PrintSection(session, section, 0);
    }
}

// The trial is no page of the report.
void EjectTrial(Session *session) {
    for (int section = 0; section < MAX_SECTIONS; ++section) {
        if (IsDetail(section)) continue;
        if (!session->form.Sections[section].InUse) continue;
        PageBreak(session, section);
        break;
    }
    session->report.PageCount = 1;
}

bool Asks(const Session *session, const char *text, const char *title) {
    return ShowSessionBox(session, text, title, MB_YESNO) == IDYES;
}

} // namespace

void TrialPrint(Session *session) {
    if (!Asks(session, "Print a Trial Record Now?", "Trial Print")) return;
    do {
        session->run.TrialMode = 1;
        PrintAllSections(session);
        EjectTrial(session);
        session->run.TrialMode = 0;
    } while (Asks(session, "Print another Trial Record?", "Trial Record"));
}

} // namespace tessarine
