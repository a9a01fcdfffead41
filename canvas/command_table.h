// What a window can be asked to do, as rows: one table serves the dispatcher and the menu.
#pragma once

#include <span>

#include "state/session.h"

namespace tessarine {

struct CommandRow {
    int number;
    void (*action)(Session *session);
    bool (*enabled)(const Session *session) = nullptr; // null: no entry of the menu to grey
};

using CommandTable = std::span<const CommandRow>;

// Carries out the row with this number; false when there is none.
bool RunCommand(Session *session, CommandTable table, int number);
// Greys the entries of the menu whose condition doesn't hold. True when one has changed.
bool EnableCommands(const Session *session, CommandTable table, HMENU menu);

} // namespace tessarine
