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
#include "gfx/platform_events.h"
#include "gfx/projection.h"
#include "gfx/tile.h"
#include "support/colour.h"
#include "support/report.h"

namespace {

constexpr int32_t hidden_window_side = 64; // pixels

bool context_alive;

constexpr double byte_to_unit = 0.00392156862745098;

// The colour last given to glClearColor, 0xRRGGBB; the start value matches no colour.
constexpr uint32_t clear_colour_unknown = 0x1000000;
uint32_t remembered_clear_colour = clear_colour_unknown;

int32_t has_swap_control = -1; // as gl_has_extension keeps it

struct OpenFailure {
  PlatformOpen stage;
  int32_t line;        // fixed: identifies the report
  const char *words;   // of the fatal report
  const char *missing; // for the user
  const char *remedy;  // what the user can do
};

constexpr OpenFailure open_failures[] = {
    {PlatformOpen::no_class, 588, "Failed To Register The Window Class.",
     "the window class could not be registered", "close other programs or log in again"},
    {PlatformOpen::no_window, 593, "Window Creation Error.", "no window could be created",
     "check that this session may open windows on the display"},
    {PlatformOpen::no_pixel_format, 619, "Can't Find A Suitable PixelFormat.",
     "the display has no double-buffered OpenGL pixel format with a depth buffer",
     "install an OpenGL driver for the graphics card"},
    {PlatformOpen::bad_pixel_format, 620, "Can't Set The PixelFormat.",
     "the display refused its own OpenGL pixel format",
     "update the OpenGL driver of the graphics card"},
    {PlatformOpen::no_context, 622, "Can't Create A GL Rendering Context.",
     "OpenGL with the compatibility profile is missing",
     "install or update the OpenGL driver of the graphics card"},
    {PlatformOpen::no_current, 623, "Can't activate GLRC.",
     "the OpenGL context can't be used by this program",
     "update the OpenGL driver of the graphics card"},
};

constexpr const char *report_source = "gfx_opengl";

bool report_missing(const char *missing, const char *remedy) {
  report_sentence("%s (%s): %s", missing, platform_error(), remedy);
  return false;
}

[[noreturn]] void open_failed(const OpenFailure &failure, const char *missing, const char *remedy) {
  report_missing(missing, remedy);
  report_fatal(report_source, failure.line, failure.words);
}

const OpenFailure &failure_of(PlatformOpen stage) {
  return *std::find_if(std::begin(open_failures), std::end(open_failures),
                       [stage](const OpenFailure &failure) { return failure.stage == stage; });
}

MonitorRect requested_area(int32_t width_request, int32_t height_request,
                           const DisplayMetrics &metrics) {
  GrowList monitors;
  GrowList_init(&monitors, sizeof(MonitorRect));
  platform_monitors(&monitors);
  MonitorRect area = display_area(width_request, height_request, metrics, monitors);
  GrowList_free(&monitors);
  return area;
}

// Sets screen_width and screen_height to the client size and returns the window's position.
PlatformWindowRequest plan_window(int32_t width_request, int32_t height_request) {
  DisplayMetrics metrics = platform_metrics();
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

void reset_projection() {
  float matrix[16];
  const int32_t half_height = screen_height / 2;
  if (projection_is_2d != 0)
    projection_ortho(0, screen_width, screen_height, 0, half_height, -half_height, matrix);
  else
    projection_perspective(screen_width, screen_height, matrix);
  gfx_load_projection(matrix);
}

void set_initial_state() {
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

float channel_as_float(uint8_t channel) {
  return static_cast<float>(channel * byte_to_unit);
}

bool exceeds_desktop(const PlatformWindowRequest &request) {
  const MonitorRect desktop = platform_metrics().virtual_desktop;
  return request.client_width > desktop.right - desktop.left ||
         request.client_height > desktop.bottom - desktop.top;
}

[[noreturn]] void fail_to_open(PlatformOpen stage, const PlatformWindowRequest &request) {
  const OpenFailure &failure = failure_of(stage);
  if (stage != PlatformOpen::no_window || !exceeds_desktop(request))
    open_failed(failure, failure.missing, failure.remedy);
  char missing[80];
  std::snprintf(missing, sizeof missing, "no window of %d by %d pixels could be created",
                request.client_width, request.client_height);
  open_failed(failure, missing, "choose a resolution that fits the desktop");
}

void context_opened() {
  context_alive = true;
  set_initial_state();
}

void open_window(const PlatformWindowRequest &request) {
  const PlatformOpen stage = platform_open(&request);
  if (stage != PlatformOpen::ok) fail_to_open(stage, request);
  context_opened();
}

} // namespace

bool gfx_open_hidden(const char *title) {
  PlatformWindowRequest request = {};
  request.title = title;
  request.client_width = screen_width = hidden_window_side;
  request.client_height = screen_height = hidden_window_side;
  request.framed = request.hidden = true;
  if (!platform_connect(true))
    return report_missing("OpenGL can be reached neither on a display nor without one",
                          "start the program in a graphical session");
  const PlatformOpen stage = platform_open(&request);
  if (stage == PlatformOpen::no_context) // there may be no graphics card
    return report_missing(failure_of(stage).missing,
                          "install an OpenGL driver, for example Mesa's software driver");
  if (stage != PlatformOpen::ok)
    return report_missing(failure_of(stage).missing, failure_of(stage).remedy);
  context_opened();
  return true;
}

int32_t gfx_open(int32_t width_request, int32_t height_request, const char *title) {
  platform_dpi_aware();
  if (!platform_connect(false))
    open_failed(failure_of(PlatformOpen::no_window), "no display could be reached",
                "start Vorel inside a graphical session");
  PlatformWindowRequest request = plan_window(width_request, height_request);
  if (screen_height <= 0 || screen_width <= 0) return 0;
  request.title = title;
  std::memset(key_state, 0, sizeof key_state);
  std::memset(key_state_prev, 0, sizeof key_state_prev);
  open_window(request);
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
  tile_viewport(0, 0, screen_width, screen_height);
  reset_projection();
}

void gfx_swap(uint32_t clear_colour) {
  glFinish();
  platform_swap_buffers();
  if (clear_colour != remembered_clear_colour) {
    glClearColor(channel_as_float(colour_red(clear_colour)),
                 channel_as_float(colour_green(clear_colour)),
                 channel_as_float(colour_blue(clear_colour)), 0);
    remembered_clear_colour = clear_colour;
  }
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glLoadIdentity();
}

void swap_interval(int32_t frames) {
  const char *extension = platform_swap_extension();
  if (extension != nullptr && !gl_has_extension(&has_swap_control, extension)) return;
  platform_swap_interval(frames);
}

void event_resize(int32_t width, int32_t height) {
  gfx_resize(width, height);
}

void event_close() {
  gfx_close();
  quit_requested = 1;
}

void event_quit() {
  quit_requested = 1;
}
