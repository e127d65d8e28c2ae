#pragma once

// A timer that interrupts the program: there are no threads.

// Calls `ring` once, `seconds` (above 0) from now, in a signal handler: it may use only atomic
// variables and stderr_write. Replaces an earlier alarm. False if the system has none.
bool alarm_start(double seconds, void (*ring)());

// Writes a text to the standard error at once; also from `ring`.
void stderr_write(const char *text);
