#include "gfx/platform.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <SDL.h>

#include "gfx/platform_events.h"
#include "support/report.h"

namespace {

struct SdlState {
  SDL_Window *window;
  SDL_GLContext context;
  char last_error[512];
  DisplayPoint reported_size; // of the latest event_resize
  bool frame_placed;          // the window has no frame, or one that was moved onto the desktop
};
SdlState sdl;

struct PixelFormat {
  int depth_bits, alpha_bits;
};

// In order of preference. Most drivers have 24 bits of depth, some 32. Only textures that are drawn
// in the window, without framebuffer objects, need alpha.
constexpr PixelFormat formats[] = {{32, 8}, {24, 8}, {32, 0}, {24, 0}};

void keep_error() {
  const char *error = SDL_GetError();
  std::snprintf(sdl.last_error, sizeof sdl.last_error, "%s",
                error[0] != '\0' ? error : "no reason was given");
}

// A display mode outlives the program that set it, so every way out restores it.
void restore_display_mode() {
  if (sdl.window == nullptr) return;
  uint32_t flags = SDL_GetWindowFlags(sdl.window) & SDL_WINDOW_FULLSCREEN_DESKTOP;
  if (flags == SDL_WINDOW_FULLSCREEN) SDL_SetWindowFullscreen(sdl.window, 0);
}

MonitorRect edges(const SDL_Rect &rect) {
  return {rect.x, rect.y, rect.x + rect.w, rect.y + rect.h};
}

MonitorRect monitor(int index) {
  SDL_Rect rect = {};
  SDL_GetDisplayBounds(index, &rect);
  return edges(rect);
}

bool is_whole_monitor(const MonitorRect &area) {
  for (int i = SDL_GetNumVideoDisplays(); i-- > 0;) {
    const MonitorRect rect = monitor(i);
    if (rect.left == area.left && rect.top == area.top && rect.right == area.right &&
        rect.bottom == area.bottom)
      return true;
  }
  return false;
}

// The display at the desktop's origin, which is the one that changes its mode.
int corner_display() {
  for (int i = SDL_GetNumVideoDisplays() - 1; i > 0; i--) {
    const MonitorRect rect = monitor(i);
    if (rect.left <= 0 && rect.right > 0 && rect.top <= 0 && rect.bottom > 0) return i;
  }
  return 0;
}

// SDL replaces a mode that the display lacks by a larger one.
bool has_mode(int32_t width, int32_t height) {
  const int display = corner_display();
  for (int i = SDL_GetNumDisplayModes(display); i-- > 0;) {
    SDL_DisplayMode mode = {};
    if (SDL_GetDisplayMode(display, i, &mode) == 0 && mode.w == width && mode.h == height)
      return true;
  }
  return false;
}

// Always on top is set at creation, since SDL ignores it for a window that is fullscreen already.
uint32_t window_flags(const PlatformWindowRequest &request) {
  if (request.hidden) return SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN;
  if (request.framed) return SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE;
  const uint32_t flags = SDL_WINDOW_OPENGL | SDL_WINDOW_ALWAYS_ON_TOP;
  if (request.change_display_mode && has_mode(request.client_width, request.client_height))
    return flags | SDL_WINDOW_FULLSCREEN;
  if (is_whole_monitor(request.outer)) return flags | SDL_WINDOW_FULLSCREEN_DESKTOP;
  return flags | SDL_WINDOW_BORDERLESS;
}

SDL_Window *make_window(const PlatformWindowRequest &request, uint32_t flags) {
  return SDL_CreateWindow(request.title, request.outer.left, request.outer.top,
                          request.client_width, request.client_height, flags);
}

// Requests version 1.1, for which drivers give their newest compatible one. With an old driver the
// program then gets as far as its version check, which has the better message.
void request_context(const PixelFormat &format) {
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 1);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 1);
  SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
  SDL_GL_SetAttribute(SDL_GL_RED_SIZE, 8);
  SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, 8);
  SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, 8);
  SDL_GL_SetAttribute(SDL_GL_ALPHA_SIZE, format.alpha_bits);
  SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 0);
  SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, format.depth_bits);
}

// Retries without OpenGL to tell a missing display from a missing pixel format.
PlatformOpen why_no_window(const PlatformWindowRequest &request) {
  keep_error();
  SDL_Window *plain = make_window(request, SDL_WINDOW_HIDDEN);
  if (plain == nullptr) return PlatformOpen::no_window;
  SDL_DestroyWindow(plain);
  return PlatformOpen::no_pixel_format;
}

PlatformOpen try_open(const PlatformWindowRequest &request, const PixelFormat &format) {
  request_context(format);
  sdl.window = make_window(request, window_flags(request));
  if (sdl.window == nullptr) return why_no_window(request);
  sdl.context = SDL_GL_CreateContext(sdl.window);
  if (sdl.context != nullptr && SDL_GL_MakeCurrent(sdl.window, sdl.context) == 0)
    return PlatformOpen::ok;
  keep_error();
  PlatformOpen stage = sdl.context == nullptr ? PlatformOpen::no_context : PlatformOpen::no_current;
  platform_close();
  SDL_DestroyWindow(sdl.window);
  sdl.window = nullptr;
  return stage;
}

PlatformOpen try_formats(const PlatformWindowRequest &request) {
  if (SDL_GL_LoadLibrary(nullptr) != 0) {
    keep_error();
    return PlatformOpen::no_context;
  }
  PlatformOpen stage = PlatformOpen::no_pixel_format;
  for (const PixelFormat &format : formats) {
    stage = try_open(request, format);
    if (stage == PlatformOpen::ok) break;
  }
  return stage;
}

// Xlib's function of this name, without its headers.
using XErrorHandler = int (*)(void *display, void *error);
using XSetErrorHandler = XErrorHandler (*)(XErrorHandler handler);

int ignore_x_error(void *, void *) {
  return 0;
}

// SDL probes GLX with a context whose X errors it doesn't catch, and Xlib ends the program on them.
// SDL reports the same errors of the real context itself.
PlatformOpen try_formats_on_x11(const PlatformWindowRequest &request) {
  void *xlib = SDL_LoadObject("libX11.so.6");
  const auto set_handler = reinterpret_cast<XSetErrorHandler>(
      xlib != nullptr ? SDL_LoadFunction(xlib, "XSetErrorHandler") : nullptr);
  if (set_handler == nullptr) return try_formats(request);
  const XErrorHandler before = set_handler(ignore_x_error);
  const PlatformOpen stage = try_formats(request);
  set_handler(before);
  SDL_UnloadObject(xlib);
  return stage;
}

// Window managers hide and resize windows as they like, so compare with the true size after each
// round of messages.
void report_client_size() {
  DisplayPoint size = {0, 0};
  if (!platform_is_minimised()) SDL_GL_GetDrawableSize(sdl.window, &size.x, &size.y);
  if (size.x == sdl.reported_size.x && size.y == sdl.reported_size.y) return;
  sdl.reported_size = size;
  event_resize(size.x, size.y);
}

DisplayPoint centre(const MonitorRect &rect) {
  return {rect.left + (rect.right - rect.left) / 2, rect.top + (rect.bottom - rect.top) / 2};
}

// The size of the frame is known only some time after the window was opened.
void keep_frame_on_desktop() {
  int top = 0, left = 0, bottom = 0, right = 0;
  if (sdl.frame_placed || SDL_GetWindowBordersSize(sdl.window, &top, &left, &bottom, &right) != 0)
    return;
  if (top + left + bottom + right == 0) return; // not yet known
  sdl.frame_placed = true;
  const MonitorRect now = platform_window_rect(); // with the frame, so the metrics need none
  const MonitorRect kept = display_framed_outer({now.right - now.left, now.bottom - now.top},
                                                platform_metrics(), centre(now));
  if (kept.left != now.left || kept.top != now.top)
    SDL_SetWindowPosition(sdl.window, kept.left + left, kept.top + top);
}

uint32_t button_bits(uint32_t sdl_mask) {
  uint32_t bits = 0;
  if ((sdl_mask & SDL_BUTTON_LMASK) != 0) bits |= mouse_left;
  if ((sdl_mask & SDL_BUTTON_RMASK) != 0) bits |= mouse_right;
  if ((sdl_mask & SDL_BUTTON_MMASK) != 0) bits |= mouse_middle;
  return bits;
}

// Reads the global state, since a release outside the window sends no event. A press counts only if
// the window got it: others go to a window manager that moves the window.
uint32_t buttons_held() {
  const uint32_t held = button_bits(SDL_GetGlobalMouseState(nullptr, nullptr));
  if (event_awaits_release()) return held; // may be pressed since before the window was opened
  return held & button_bits(SDL_GetMouseState(nullptr, nullptr));
}

void motion_message(const SDL_MouseMotionEvent &motion) {
  event_mouse({buttons_held(), motion.x, motion.y});
}

void button_message(const SDL_MouseButtonEvent &button) {
  const uint32_t bit = button_bits(SDL_BUTTON(button.button));
  const uint32_t others = buttons_held() & ~bit;
  event_mouse({button.state == SDL_PRESSED ? others | bit : others, button.x, button.y});
}

// Polls the buttons: SDL drops a press if it missed the release before.
void report_buttons() {
  if (SDL_GetMouseFocus() != sdl.window) return;
  const uint32_t held = buttons_held();
  const MouseEvent latest = event_latest_mouse();
  if (held != latest.buttons) event_mouse({held, latest.x, latest.y});
}

void wheel_message(const SDL_MouseWheelEvent &wheel) {
  if (wheel.y == 0) return; // sideways
  event_wheel(wheel.y);
}

// Converts the system's UTF-8, which is always well formed, to Latin-1.
void text_message(const char *text) {
  for (const char *at = text; *at != '\0';) {
    uint32_t lead = static_cast<uint8_t>(*at++);
    uint32_t code = lead < 0xC0 ? lead : lead & (lead < 0xE0 ? 0x1F : lead < 0xF0 ? 0x0F : 0x07);
    for (; (*at & 0xC0) == 0x80; at++)
      code = code << 6 | (*at & 0x3F);
    event_char(code <= 0xFF ? code : '?');
  }
}

// Control characters are not sent as text.
void key_message(const SDL_Keysym &key) {
  SDL_Keycode code = key.sym;
  bool letter = code >= SDLK_a && code <= SDLK_z;
  if (letter && (key.mod & KMOD_CTRL) != 0)
    event_char(static_cast<uint32_t>(code - SDLK_a + 1));
  else if (code == SDLK_BACKSPACE || code == SDLK_TAB || code == SDLK_RETURN || code == SDLK_ESCAPE)
    event_char(static_cast<uint32_t>(code));
}

void window_message(const SDL_Event &event) {
  switch (event.type) {
  case SDL_WINDOWEVENT:
    if (event.window.event == SDL_WINDOWEVENT_CLOSE) event_close();
    break;
  case SDL_MOUSEMOTION:
    motion_message(event.motion);
    break;
  case SDL_MOUSEBUTTONDOWN:
  case SDL_MOUSEBUTTONUP:
    button_message(event.button);
    break;
  case SDL_MOUSEWHEEL:
    wheel_message(event.wheel);
    break;
  case SDL_TEXTINPUT:
    text_message(event.text.text);
    break;
  case SDL_KEYDOWN:
    key_message(event.key.keysym);
    break;
  default:
    break;
  }
}

volatile std::sig_atomic_t quit_signalled;

void note_quit_signal(int) {
  quit_signalled = 1;
}

// A signal that is ignored at program start stays ignored.
void quit_on(int signal) {
  if (std::signal(signal, note_quit_signal) == SIG_IGN) std::signal(signal, SIG_IGN);
}

// Without a display SDL falls back to a headless driver, in which the program would run unseen.
// Such a driver is used only if the user selects it.
bool is_headless_driver(const char *driver) {
  if (SDL_GetHint(SDL_HINT_VIDEODRIVER) != nullptr) return false;
  return std::strcmp(driver, "offscreen") == 0 || std::strcmp(driver, "dummy") == 0 ||
         std::strcmp(driver, "evdev") == 0;
}

} // namespace

void platform_dpi_aware() {} // needed on Windows alone

bool platform_connect(bool hidden) {
  if (hidden) {
    SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, "offscreen", SDL_HINT_OVERRIDE);
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1"); // whose events nobody would read
  }
  // A click that brings the window to the front counts as a click.
  SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
  SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0"); // gfx_pump does it
  SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
  if (SDL_Init(SDL_INIT_VIDEO) != 0) {
    keep_error();
    return false;
  }
  if (is_headless_driver(SDL_GetCurrentVideoDriver())) {
    SDL_Quit();
    std::snprintf(sdl.last_error, sizeof sdl.last_error, "%s",
                  "neither DISPLAY nor WAYLAND_DISPLAY names one");
    return false;
  }
  std::atexit(restore_display_mode);
  return true;
}

DisplayMetrics platform_metrics() {
  // Window managers draw frames and report their thickness only later, so it counts as 0.
  DisplayMetrics metrics = {};
  MonitorRect primary = monitor(0);
  metrics.primary_width = primary.right - primary.left;
  metrics.primary_height = primary.bottom - primary.top;
  metrics.virtual_desktop = primary;
  for (int i = SDL_GetNumVideoDisplays() - 1; i > 0; i--) {
    MonitorRect rect = monitor(i);
    MonitorRect &all = metrics.virtual_desktop;
    all = {std::min(all.left, rect.left), std::min(all.top, rect.top),
           std::max(all.right, rect.right), std::max(all.bottom, rect.bottom)};
  }
  return metrics;
}

void platform_monitors(GrowList *out) {
  const int32_t count = SDL_GetNumVideoDisplays();
  for (int32_t i = 0; i < count; i++) {
    const MonitorRect row = monitor(i);
    GrowList_append(out, &row);
  }
}

PlatformOpen platform_open(const PlatformWindowRequest *request) {
  sdl.reported_size = {request->client_width, request->client_height};
  sdl.frame_placed = !request->framed;
  const bool on_x11 = std::strcmp(SDL_GetCurrentVideoDriver(), "x11") == 0;
  return on_x11 ? try_formats_on_x11(*request) : try_formats(*request);
}

const char *platform_error() {
  return sdl.last_error;
}

void platform_close() {
  restore_display_mode();
  if (sdl.context == nullptr) return;
  SDL_GL_MakeCurrent(sdl.window, nullptr);
  SDL_GL_DeleteContext(sdl.context);
  sdl.context = nullptr;
}

void *platform_gl_proc(const char *name) {
  return SDL_GL_GetProcAddress(name);
}

void platform_swap_buffers() {
  SDL_GL_SwapWindow(sdl.window);
}

const char *platform_swap_extension() {
  return nullptr;
}

void platform_swap_interval(int32_t frames) {
  SDL_GL_SetSwapInterval(frames);
}

bool platform_messages() {
  SDL_Event event;
  while (SDL_PollEvent(&event) != 0) {
    if (event.type == SDL_QUIT) quit_signalled = 1;
    window_message(event);
  }
  if (quit_signalled != 0) {
    event_close();
    return true;
  }
  report_buttons();
  report_client_size();
  keep_frame_on_desktop();
  return false;
}

void platform_wait(int32_t milliseconds) {
  SDL_WaitEventTimeout(nullptr, milliseconds);
}

bool platform_is_minimised() {
  return (SDL_GetWindowFlags(sdl.window) & SDL_WINDOW_MINIMIZED) != 0;
}

void platform_minimise() {
  SDL_MinimizeWindow(sdl.window);
}

// The window is created always on top; window managers keep it there.
void platform_keep_on_top() {}

bool platform_has_focus() {
  return (SDL_GetWindowFlags(sdl.window) & SDL_WINDOW_INPUT_FOCUS) != 0;
}

MonitorRect platform_window_rect() {
  SDL_Rect client = {};
  SDL_GetWindowPosition(sdl.window, &client.x, &client.y);
  SDL_GetWindowSize(sdl.window, &client.w, &client.h);
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;
  SDL_GetWindowBordersSize(sdl.window, &top, &left, &bottom, &right);
  return {client.x - left, client.y - top, client.x + client.w + right,
          client.y + client.h + bottom};
}

DisplayPoint platform_cursor() {
  DisplayPoint cursor = {};
  SDL_GetGlobalMouseState(&cursor.x, &cursor.y);
  return cursor;
}

bool platform_set_cursor(DisplayPoint position) {
  DisplayPoint before = platform_cursor();
  if (SDL_WarpMouseGlobal(position.x, position.y) != 0) return false;
  // Some systems accept the request but don't move the cursor.
  DisplayPoint after = platform_cursor();
  bool moved = after.x != before.x || after.y != before.y;
  return moved || (before.x == position.x && before.y == position.y);
}

DisplayPoint platform_relative_motion() {
  DisplayPoint motion = {};
  if (SDL_GetRelativeMouseMode() == SDL_TRUE) {
    SDL_GetRelativeMouseState(&motion.x, &motion.y);
    return motion;
  }
  // Discards the motion from before the mode was set.
  SDL_SetRelativeMouseMode(SDL_TRUE);
  SDL_GetRelativeMouseState(nullptr, nullptr);
  return motion;
}

void platform_show_cursor(bool shown) {
  if (shown) SDL_SetRelativeMouseMode(SDL_FALSE);
  SDL_ShowCursor(shown ? SDL_ENABLE : SDL_DISABLE);
}

void platform_allow_screen_saver(bool allowed) {
  if (allowed)
    SDL_EnableScreenSaver();
  else
    SDL_DisableScreenSaver();
}

void platform_message_box(const char *caption, const char *text) {
  if (SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, caption, text, sdl.window) != 0)
    report_sentence("%s: %s", caption, text);
}

// SDL handles SIGINT and SIGTERM as requests to quit. A pipe without a reader must not end the
// program.
void platform_begin() {
  quit_on(SIGHUP);
  quit_on(SIGQUIT);
  std::signal(SIGPIPE, SIG_IGN);
}

void platform_date(char date[platform_date_size]) {
  const std::time_t now = std::time(nullptr);
  const std::tm *local = std::localtime(&now);
  if (local == nullptr || std::strftime(date, platform_date_size, "%Y-%b-%d %H:%M:%S", local) == 0)
    date[0] = '\0';
}
