#pragma once

#include <cstdio>

#include "support/list.h"

// The user's settings: pairs of texts in the order of their file, which documents itself. A key may
// carry an explanation behind its short name, and is found by the short name alone. Case doesn't
// matter in keys.

using Settings = GrowList; // of SettingsEntry

struct SettingsEntry {
  char *key;   // owned; trimmed
  char *value; // owned; trimmed, may be empty
};

// Makes the list from a file with one "key<separator> value" a line; lines without a separator are
// left out. Empty if there is no such file. False, with errno, if it is there but can't be read:
// writing it anew would then lose what the user has.
bool Settings_load(Settings *list, const char *path, char separator);

// The same from the start of an open stream, which must be able to seek, and stays open.
bool Settings_read(Settings *list, FILE *stream, char separator);

// Value of the shortest key that begins with `key`, the last one in the file among equals; null if
// there is none. Valid until that value is set.
const char *Settings_get(const Settings *list, const char *key);

// Changes the value of the last entry whose key begins with `key`, or appends an entry.
void Settings_set(Settings *list, const char *key, const char *value);

// Appends an entry unless there is one with exactly this key.
void Settings_default(Settings *list, const char *key, const char *value);

// Replaces the file by the list, in the text mode of the system, whole or not at all. False, with
// errno, if it can't be written.
bool Settings_save(const Settings *list, const char *path, char separator);

// Releases all texts and the list.
void Settings_free(Settings *list);

// Whether a value means yes: it begins with t, y or 1, in any case. Null is no.
bool setting_is_true(const char *value);
