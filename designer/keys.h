// The few keys that the designer's window knows itself, while the form may be edited.
#pragma once

#include <span>

#include "state/session.h"

namespace tessarine {

struct KeyRow {
    WPARAM key;
    void (*down)(Session *session);
    void (*up)(Session *session); // null: nothing
};

std::span<const KeyRow> DesignerKeys();

void KeyGoesDown(Session *session, WPARAM key);
void KeyComesUp(Session *session, WPARAM key);

} // namespace tessarine
