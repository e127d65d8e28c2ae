#include "gfx/error_box.h"

#include <cstdio>
#include <cstdlib>

#include "gfx/platform.h"
#include "gfx/window.h"

void gfx_log_error(const char *text) {
  char stamp[platform_date_size];
  platform_date(stamp);
  std::FILE *log = std::fopen("graphics_error.log", "at");
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
