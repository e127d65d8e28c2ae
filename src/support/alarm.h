#pragma once

// Something to do while the program works: there are no threads.

// Calls `ring` once, that many seconds from now. It interrupts the program anywhere, so it may only
// use atomic variables and stderr_write. False if the system can't interrupt a program.
bool alarm_start(double seconds, void (*ring)());

// Writes a text to the standard error at once; also from `ring`.
void stderr_write(const char *text);
