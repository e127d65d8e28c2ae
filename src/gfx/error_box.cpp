#include "gfx/error_box.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "gfx/platform.h"
#include "gfx/window.h"

void gfx_log_error(const char *text) {
  std::time_t now = std::time(nullptr);
  char stamp[64];
  const std::tm *local = std::localtime(&now);
  if (local == nullptr || std::strftime(stamp, sizeof stamp, "%Y-%b-%d %H:%M:%S", local) == 0) {
    stamp[0] = '\0';
  }
  std::FILE *log = std::fopen("graphics_error.log", "a");
  if (log == nullptr) return;
  std::fprintf(log, "%s %s\n", stamp, text);
  std::fclose(log);
}

void gfx_warning_box(const char *text) {
  gfx_log_error(text);
  platform_message_box("Errr", text);
}

void gfx_fatal_box(const char *text) {
  gfx_log_error(text);
  platform_message_box("Oh sod it", text);
  gfx_close();
  std::exit(1);
}
