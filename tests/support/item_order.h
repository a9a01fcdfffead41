// The order that the item table keeps, whatever works on it.
#pragma once

#include <string>

#include "state/session.h"

// What is wrong with the table's order, empty when all holds: row 0 is a section bar, exactly one
// row is the group, the sections ascend, each in use with one bar in front of its items, and the
// BarItem of each names that bar.
std::string WhatIsWrong(const Session *session);

// The first row that doesn't stand behind the one before it by y and x in its section; empty when
// all do. The commands that make room write places where they stand, so behind them it need not be.
std::string WhatIsUnsorted(const Session *session);
