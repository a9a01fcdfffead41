// What a random walk answers in the dialogs that it opens.
#pragma once

#include <cstdint>

#include "state/windows.h"

// Settles all answers up to the next call.
void SetWalkAnswer(uint32_t answer);
// Fills a dialog's controls and tells its button, for MessageBoxes::OnAnyOther. A dialog that
// refuses what was typed is cancelled.
int WalkAnswer(HWND dialog);
