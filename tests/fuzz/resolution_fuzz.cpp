// The grammar of the resolution and of the other display settings.
#include <cstdint>
#include <string>

#include "gfx/display_settings.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const std::string text(data, data + size);
  Settings list;
  GrowList_init(&list, sizeof(SettingsEntry));
  for (const char *key : {"Resolution", "Fullscreen offset", "Stereo mode", "Swap stereo"})
    Settings_set(&list, key, text.c_str());
  int32_t mode = 0;
  int32_t swap = 0;
  Display_settings_apply(&list, &mode, &swap);
  if (swap < 0 || swap > 1) __builtin_trap();
  Settings_free(&list);
  return 0;
}
