#include "gfx/window.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "gfx/display.h"
#include "gfx/gl.h"
#include "gfx/gl_util.h"
#include "gfx/input.h"
#include "gfx/platform.h"
#include "gfx/projection.h"
#include "support/report.h"

int32_t screen_width;
int32_t screen_height;
uint8_t windowed;
int32_t fullscreen_offset_x;
int32_t fullscreen_offset_y;
uint8_t projection_is_2d = 1;

namespace {

bool context_alive;

// The numbers name the reports, wherever they stand.
struct OpenFailure {
  PlatformOpen stage;
  int32_t line;
  const char *words;  // of the fatal report
  const char *lack;   // what is missing, for the user
  const char *remedy; // what the user can do
};

constexpr OpenFailure open_failures[] = {
    {PlatformOpen::no_class, 588, "Failed To Register The Window Class.",
     "the window system takes no new kind of window", "close other programs or log in again"},
    {PlatformOpen::no_window, 593, "Window Creation Error.", "no window could be made",
     "check that this session may open windows on the display"},
    {PlatformOpen::no_pixel_format, 619, "Can't Find A Suitable PixelFormat.",
     "the display has no double-buffered OpenGL picture with 24 bits of depth",
     "install an OpenGL driver for the graphics card"},
    {PlatformOpen::bad_pixel_format, 620, "Can't Set The PixelFormat.",
     "the display refused its own OpenGL picture format",
     "update the OpenGL driver of the graphics card"},
    {PlatformOpen::no_context, 622, "Can't Create A GL Rendering Context.",
     "OpenGL with the compatibility profile is missing",
     "install or update the OpenGL driver of the graphics card"},
    {PlatformOpen::no_current, 623, "Can't activate GLRC.",
     "the OpenGL context can't be used by this program",
     "update the OpenGL driver of the graphics card"},
};

constexpr const char *report_source = "gfx_opengl";

[[noreturn]] void fail(const OpenFailure &failure, const char *lack, const char *remedy) {
  report_sentence("%s (%s): %s.", lack, platform_fault(), remedy);
  report_fatal(report_source, failure.line, failure.words);
}

const OpenFailure &failure_of(PlatformOpen stage) {
  return *std::find_if(std::begin(open_failures), std::end(open_failures),
                       [stage](const OpenFailure &failure) { return failure.stage == stage; });
}

MonitorRect requested_area(int32_t width_request, int32_t height_request,
                           const PlatformMetrics &metrics) {
  GrowList monitors;
  GrowList_init(&monitors, sizeof(MonitorRect));
  platform_monitors(&monitors);
  MonitorRect area = display_area(width_request, height_request, metrics, monitors);
  GrowList_free(&monitors);
  return area;
}

// Settles the client size, in screen_width and screen_height, and the place on the desktop.
PlatformWindowRequest plan_window(int32_t width_request, int32_t height_request) {
  PlatformMetrics metrics = platform_metrics();
  MonitorRect area = requested_area(width_request, height_request, metrics);
  PlatformWindowRequest request = {};
  request.framed = windowed == 1;
  ClientSize size = display_client_size(area, width_request, request.framed);
  request.outer = request.framed ? display_framed_outer(size, metrics, platform_cursor())
                                 : display_fullscreen_outer(area, size, fullscreen_offset_x,
                                                            fullscreen_offset_y);
  request.change_display_mode =
      display_changes_mode(width_request, request.framed, fullscreen_offset_x, fullscreen_offset_y);
  request.client_width = screen_width = size.width;
  request.client_height = screen_height = size.height;
  return request;
}

void load_projection(int32_t width, int32_t height) {
  float matrix[16];
  const int32_t half_height = height / 2;
  if (projection_is_2d != 0)
    projection_ortho(0, width, height, 0, half_height, -half_height, matrix);
  else
    projection_perspective(width, height, matrix);
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixf(matrix);
  glMatrixMode(GL_MODELVIEW);
}

bool exceeds_desktop(const PlatformWindowRequest &request) {
  const MonitorRect desktop = platform_metrics().virtual_desktop;
  return request.client_width > desktop.right - desktop.left ||
         request.client_height > desktop.bottom - desktop.top;
}

[[noreturn]] void fail_to_open(PlatformOpen stage, const PlatformWindowRequest &request) {
  const OpenFailure &failure = failure_of(stage);
  if (stage != PlatformOpen::no_window || !exceeds_desktop(request))
    fail(failure, failure.lack, failure.remedy);
  char lack[80];
  std::snprintf(lack, sizeof lack, "no window of %d by %d pixels could be made",
                request.client_width, request.client_height);
  fail(failure, lack, "choose a resolution that fits the desktop");
}

} // namespace

int32_t gfx_open(int32_t width_request, int32_t height_request, const char *title) {
  platform_dpi_aware();
  if (!platform_connect())
    fail(failure_of(PlatformOpen::no_window), "no display could be reached",
         "start Vorel inside a graphical session");
  PlatformWindowRequest request = plan_window(width_request, height_request);
  if (screen_height <= 0 || screen_width <= 0) return 0;
  request.title = title;
  std::memset(key_state, 0, sizeof key_state);
  std::memset(key_state_prev, 0, sizeof key_state_prev);
  PlatformOpen stage = platform_open(&request);
  if (stage != PlatformOpen::ok) fail_to_open(stage, request);
  context_alive = true;
  gfx_reset_state();
  if (!request.framed) platform_show_cursor(false);
  return 1;
}

void gfx_close() {
  context_alive = false;
  platform_close();
}

bool gfx_context_alive() {
  return context_alive;
}

void gfx_resize(int32_t width, int32_t height) {
  screen_width = width;
  screen_height = std::max(height, 1);
  if (!context_alive) return;
  glViewport(0, 0, screen_width, screen_height);
  load_projection(screen_width, screen_height);
}

void gfx_reset_state() {
  glClearColor(0, 0, 0, 0);
  remembered_clear_colour = clear_colour_unknown;
  glClearDepth(1.0);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glDepthFunc(GL_LEQUAL);
  glEnable(GL_DEPTH_TEST);
  glShadeModel(GL_SMOOTH);
  glEnable(GL_COLOR_MATERIAL);
  glEnable(GL_TEXTURE_CUBE_MAP_SEAMLESS);
  gfx_resize(screen_width, screen_height);
  glLoadIdentity();
}

void gfx_close_requested() {
  gfx_close();
  quit_requested = 1;
}
