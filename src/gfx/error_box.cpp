#include "gfx/error_box.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include "gfx/platform.h"
#include "gfx/window.h"
#include "support/file.h"
#include "support/report.h"

void gfx_log_error(const char *text) {
  char stamp[platform_date_size];
  platform_date(stamp);
  const std::string line = std::string(stamp) + " " + text;
  if (!file_append_line("graphics_error.log", line.c_str()))
    report_sentence("\"graphics_error.log\" could not be written (%s)", std::strerror(errno));
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
