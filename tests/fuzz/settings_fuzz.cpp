// The reader of the settings: what was read can be found.
#include <cstdint>
#include <cstdio>
#include <vector>

#include "support/settings.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  std::vector<uint8_t> bytes(data, data + size);
  FILE *file = size > 0 ? fmemopen(bytes.data(), size, "rb") : std::tmpfile();
  if (file == nullptr) return 0;
  Settings list;
  Settings_read(&list, file, ':');
  std::fclose(file);
  for (uint32_t i = list.count; i-- > 0;)
    if (Settings_get(&list, rows<SettingsEntry>(list)[i].key) == nullptr) __builtin_trap();
  Settings_set(&list, "Windowed", "N");
  Settings_free(&list);
  return 0;
}
