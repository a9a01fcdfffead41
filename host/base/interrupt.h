// Ctrl+C as a wish that a command looks at between two steps, or while it waits.
#pragma once

void WatchInterrupt();
bool StopWanted();
// Waits for a message in the thread's queue; false when an interrupt came first.
bool AwaitMessage();
