#pragma once

#include <cstdarg>
#include <string>

// Sentences for the user: what happened, to what, and what to do.

// Prints a sentence to the standard error, after the program's name and ": ". The format is
// printf's.
[[gnu::format(printf, 1, 2)]] void report_sentence(const char *format, ...);

// The text of a format of printf's.
std::string sentence_text(const char *format, std::va_list arguments);

// Sets the program's name, "vorel" at first. The text must outlive all reports.
void report_set_program(const char *name);

// Calls `prepare` before each sentence, for example to remove a line of progress; null for nothing.
void report_set_prepare(void (*prepare)());

// Also passes each sentence to `show`, for users without a standard error; null for none.
void report_set_show(void (*show)(const char *sentence));
