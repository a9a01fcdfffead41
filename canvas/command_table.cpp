#include "canvas/command_table.h"

#include <algorithm>

namespace tessarine {

bool RunCommand(Session *session, CommandTable table, int number) {
    const auto row = std::ranges::find(table, number, &CommandRow::number);
    if (row == table.end()) return false;
    row->action(session);
    return true;
}

bool EnableCommands(const Session *session, CommandTable table, HMENU menu) {
    bool changed = false;
    for (const CommandRow &row : table) {
        if (!row.enabled) continue;
        const UINT state = row.enabled(session) ? MF_ENABLED : MF_GRAYED;
        const auto before = static_cast<UINT>(
            EnableMenuItem(menu, static_cast<UINT>(row.number), MF_BYCOMMAND | state));
        changed |= (before & MF_GRAYED) != state;
    }
    return changed;
}

} // namespace tessarine
