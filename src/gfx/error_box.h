#pragma once

// Error boxes, for code that has a window but no other way to inform the user. Their texts are
// appended to "graphics_error.log" in the working directory.

// Appends a line to the log: date, time and the text. Reports in a sentence if that fails.
void gfx_log_error(const char *text);

// Logs the text, shows it in a box and returns when the user has answered.
void gfx_warning_box(const char *text);

// Logs the text, shows it in a box, closes the context and ends the program with status 1.
[[noreturn]] void gfx_fatal_box(const char *text);
