// What holds of every form in a designer's hands.
#pragma once

#include <string>

#include "state/session.h"

// "" when all holds: the order of the item table, section bars and their rows, break rows, fields
// behind items, shared rows of expressions counted as often as they are used.
std::string FaultOfForm(Session *session);
