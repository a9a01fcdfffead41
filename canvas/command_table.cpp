#include "canvas/command_table.h"

#include <algorithm>

namespace tessarine {

const CommandRow *FindCommand(CommandTable table, int number) {
    const auto row = std::ranges::find(table, number, &CommandRow::number);
    return row == table.end() ? nullptr : &*row;
}

bool RunCommand(Session *session, CommandTable table, int number) {
    const CommandRow *row = FindCommand(table, number);
    if (row) row->action(session);
    return row != nullptr;
}

bool EnableCommands(const Session *session, CommandTable table, HMENU menu, bool idle) {
    bool changed = false;
    for (const CommandRow &row : table) {
        if (!row.enabled) continue;
        const UINT state = idle && row.enabled(session) ? MF_ENABLED : MF_GRAYED;
        const auto before = static_cast<UINT>(
            EnableMenuItem(menu, static_cast<UINT>(row.number), MF_BYCOMMAND | state));
        changed |= (before & MF_GRAYED) != state;
    }
    return changed;
}

} // namespace tessarine
