#pragma once

#include <cstdio>

#include "support/list.h"

// The user's settings: pairs of texts, in the order of their file. A key may have an explanation
// after its short name and is found by the short name. Keys ignore case.

using Settings = GrowList; // of SettingsEntry

struct SettingsEntry {
  char *key;   // owned; trimmed
  char *value; // owned; trimmed, may be empty
};

// Reads a file with one "key<separator> value" per line; lines without a separator are skipped. The
// list is empty if there is no such file. False, with errno, if the file exists but can't be read,
// is larger than 1 MiB (EFBIG) or is UTF-16 (EILSEQ): it must then not be replaced.
bool Settings_load(Settings *list, const char *path, char separator);

// The same for an open stream at its start. It must be seekable and stays open.
bool Settings_read(Settings *list, FILE *stream, char separator);

// The value of the shortest key that starts with `key`, the last one among equals; null if there is
// none. Valid until that value is set.
const char *Settings_get(const Settings *list, const char *key);

// Changes the value of the last entry whose key starts with `key`, or appends an entry.
void Settings_set(Settings *list, const char *key, const char *value);

// Appends an entry unless there is one with exactly this key.
void Settings_default(Settings *list, const char *key, const char *value);

// Replaces the file, in text mode, whole or not at all. False, with errno, on failure.
bool Settings_save(const Settings *list, const char *path, char separator);

// Frees all texts and the list.
void Settings_free(Settings *list);

// Whether a value starts with t, y or 1, in any case. Null counts as no.
bool setting_is_true(const char *value);
