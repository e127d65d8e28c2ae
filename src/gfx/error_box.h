#pragma once

// Errors that are shown in a box of their own, for code that has a window but no other way to
// tell the user. All are kept in "graphics_error.log" in the working directory.

// Appends one line to the log: date, time and the text. Reports a log that can't be written.
void gfx_log_error(const char *text);

// Logs, shows the text and returns when the user has answered.
void gfx_warning_box(const char *text);

// Logs, shows the text, closes the window's context and ends the program with status 1.
[[noreturn]] void gfx_fatal_box(const char *text);
