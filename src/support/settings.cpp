#include "support/settings.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "support/file.h"
#include "support/memory.h"
#include "support/strings.h"

namespace {

// An owned copy of [from, to) without white space at its ends.
char *trimmed_copy(const char *from, const char *to) {
  while (from < to && ascii_is_space(*from))
    from++;
  while (from < to && ascii_is_space(to[-1]))
    to--;
  const size_t length = static_cast<size_t>(to - from);
  char *copy = static_cast<char *>(memory_block(length + 1));
  std::memcpy(copy, from, length);
  copy[length] = '\0';
  return copy;
}

void append_line(Settings *list, const char *line, char separator) {
  const char *split = std::strchr(line, separator);
  if (split == nullptr) return;
  const SettingsEntry entry = {trimmed_copy(line, split),
                               trimmed_copy(split + 1, line + std::strlen(line))};
  GrowList_append(list, &entry);
}

void append_entry(Settings *list, const char *key, const char *value) {
  SettingsEntry entry;
  str_dup_into(&entry.key, key);
  str_dup_into(&entry.value, value);
  GrowList_append(list, &entry);
}

// Skips the byte order mark that some editors put before UTF-8. False, with errno, for UTF-16.
bool skip_byte_order_mark(FILE *stream) {
  unsigned char mark[3] = {};
  const size_t length = std::fread(mark, 1, sizeof mark, stream);
  const bool is_marked =
      (mark[0] == 0xFF && mark[1] == 0xFE) || (mark[0] == 0xFE && mark[1] == 0xFF);
  if (length >= 2 && is_marked) {
    errno = EILSEQ;
    return false;
  }
  const bool is_utf_8 = mark[0] == 0xEF && mark[1] == 0xBB && mark[2] == 0xBF;
  return is_utf_8 || std::fseek(stream, 0, SEEK_SET) == 0;
}

// Whether a file can be meant as settings. Otherwise false, with errno: a very large file, or one
// with many NULs, such as UTF-16 without a mark.
bool is_text(FILE *stream) {
  constexpr long max_size = 1 << 20; // bytes
  const long size = file_size(stream);
  if (size > max_size) errno = EFBIG;
  if (size < 0 || size > max_size) return false;
  std::string text(static_cast<size_t>(size), ' ');
  text.resize(std::fread(text.data(), 1, text.size(), stream));
  const bool has_many = std::count(text.begin(), text.end(), '\0') * 4 > size;
  if (has_many) errno = EILSEQ;
  return !has_many && std::fseek(stream, 0, SEEK_SET) == 0;
}

} // namespace

bool Settings_load(Settings *list, const char *path, char separator) {
  FILE *file = file_open(path);
  const int reason = errno;
  if (file == nullptr) {
    GrowList_init(list, sizeof(SettingsEntry));
    errno = reason;
    return reason == ENOENT;
  }
  const bool read = Settings_read(list, file, separator);
  file_close_read(file);
  return read;
}

bool Settings_read(Settings *list, FILE *stream, char separator) {
  GrowList_init(list, sizeof(SettingsEntry));
  if (!is_text(stream) || !skip_byte_order_mark(stream)) return false;
  for (char *line = file_read_line(stream); line != nullptr; line = file_read_line(stream)) {
    append_line(list, line, separator);
    std::free(line);
  }
  return std::ferror(stream) == 0;
}

const char *Settings_get(const Settings *list, const char *key) {
  const char *value = nullptr;
  size_t shortest = SIZE_MAX;
  for (uint32_t i = list->count; i-- > 0;) {
    const SettingsEntry &entry = rows<SettingsEntry>(*list)[i];
    const size_t length = std::strlen(entry.key);
    if (length >= shortest || !ascii_starts_with_nocase(entry.key, key)) continue;
    shortest = length;
    value = entry.value;
  }
  return value;
}

void Settings_set(Settings *list, const char *key, const char *value) {
  for (uint32_t i = list->count; i-- > 0;) {
    SettingsEntry &entry = rows<SettingsEntry>(*list)[i];
    if (!ascii_starts_with_nocase(entry.key, key)) continue;
    string_assign(&entry.value, value);
    return;
  }
  append_entry(list, key, value);
}

void Settings_default(Settings *list, const char *key, const char *value) {
  for (uint32_t i = list->count; i-- > 0;)
    if (ascii_equal_nocase(rows<SettingsEntry>(*list)[i].key, key)) return;
  append_entry(list, key, value);
}

bool Settings_save(const Settings *list, const char *path, char separator) {
  FileReplacement file;
  if (!file_replace_begin(&file, path, true)) return false;
  bool complete = true;
  for (uint32_t i = 0; i < list->count && complete; i++) {
    const SettingsEntry &entry = rows<SettingsEntry>(*list)[i];
    complete = std::fprintf(file.stream, "%s%c %s\n", entry.key, separator, entry.value) >= 0;
  }
  return file_replace_end(&file, complete);
}

void Settings_free(Settings *list) {
  for (uint32_t i = list->count; i-- > 0;) {
    std::free(rows<SettingsEntry>(*list)[i].key);
    std::free(rows<SettingsEntry>(*list)[i].value);
  }
  GrowList_free(list);
}

bool setting_is_true(const char *value) {
  const int first = value == nullptr ? '\0' : ascii_lower(*value);
  return first == 't' || first == 'y' || first == '1';
}
