// Expression text cut into tokens.
#pragma once

#include "state/session.h"

namespace tessarine {

// Reads the next token at the start of text: its class letter, its text into token (110 bytes)
// and its end, counted from text. "E" after a message.
char NextToken(Session *session, const char *text, char *token, int32_t *consumed);

} // namespace tessarine
