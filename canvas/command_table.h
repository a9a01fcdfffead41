// What a window can be asked to do, as rows: one table serves the dispatcher and the menu.
#pragma once

#include <span>

#include "state/session.h"

namespace tessarine {

struct CommandRow {
    int number;
    void (*action)(Session *session);
    bool (*enabled)(const Session *session) = nullptr; // null: no entry of the menu to grey
    bool keeps_undo = false; // what could be undone before it can be undone after it
};

using CommandTable = std::span<const CommandRow>;

const CommandRow *FindCommand(CommandTable table, int number); // null: there is none
// Carries out the row with this number; false when there is none.
bool RunCommand(Session *session, CommandTable table, int number);
// Greys the entries of the menu whose condition doesn't hold, all that have one unless idle. True
// when one has changed.
bool EnableCommands(const Session *session, CommandTable table, HMENU menu, bool idle = true);

} // namespace tessarine
