// The functions of expressions as lists show them: usage, a tab, explanation.
#pragma once

#include "state/session.h"

namespace tessarine {

constexpr int FUNCTION_ROW_HEIGHT = 18; // pixels, of a row that DrawFunctionRow draws
constexpr int FUNCTION_CALL_SIZE = static_cast<int>(sizeof OperatorRow::Text) + 1;

// The name and "(" of the function whose call begins a row's text; false when none does.
bool FunctionCall(const Session *session, const char *text, char (&call)[FUNCTION_CALL_SIZE]);

// Draws a row of an owner-drawn combo box with strings, in two columns.
void DrawFunctionRow(const DRAWITEMSTRUCT &row);

} // namespace tessarine
