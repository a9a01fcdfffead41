// Ctrl+C as a wish that a command looks at between two steps.
#pragma once

void WatchInterrupt();
bool StopWanted();
