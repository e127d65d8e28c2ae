#include "gfx/platform.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <SDL.h>

#include "gfx/display.h"
#include "gfx/input.h"
#include "gfx/window.h"
#include "support/report.h"

namespace {

SDL_Window *window;
SDL_GLContext context;
char fault[512];
PlatformPoint size_told; // the client size that gfx_resize knows
bool frame_settled;      // whether the window has no frame, or one that was kept on the desktop

struct PixelFormat {
  int depth_bits, alpha_bits;
};

// In order of preference: 32 bits of depth where there are any, though most drivers have 24. Alpha
// is for pictures that are drawn in the window for want of framebuffer objects, and can be missed.
constexpr PixelFormat formats[] = {{32, 8}, {24, 8}, {32, 0}, {24, 0}};

void take_fault() {
  const char *error = SDL_GetError();
  std::snprintf(fault, sizeof fault, "%s", error[0] != '\0' ? error : "no reason was given");
}

// A display mode outlives the program that set it, so it is given back on every way out.
void restore_display_mode() {
  if (window == nullptr) return;
  uint32_t flags = SDL_GetWindowFlags(window) & SDL_WINDOW_FULLSCREEN_DESKTOP;
  if (flags == SDL_WINDOW_FULLSCREEN) SDL_SetWindowFullscreen(window, 0);
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
  for (int i = SDL_GetNumVideoDisplays() - 1; i >= 0; i--) {
    const MonitorRect rect = monitor(i);
    if (rect.left == area.left && rect.top == area.top && rect.right == area.right &&
        rect.bottom == area.bottom)
      return true;
  }
  return false;
}

// The display at the corner of the desktop, which is the one that changes its mode.
int corner_display() {
  for (int i = SDL_GetNumVideoDisplays() - 1; i > 0; i--) {
    const MonitorRect rect = monitor(i);
    if (rect.left <= 0 && rect.right > 0 && rect.top <= 0 && rect.bottom > 0) return i;
  }
  return 0;
}

// Asked for a mode that the display lacks, the library would take a larger one.
bool has_mode(int32_t width, int32_t height) {
  const int display = corner_display();
  for (int i = SDL_GetNumDisplayModes(display) - 1; i >= 0; i--) {
    SDL_DisplayMode mode = {};
    if (SDL_GetDisplayMode(display, i, &mode) == 0 && mode.w == width && mode.h == height)
      return true;
  }
  return false;
}

// Always on top is asked for here, since the library ignores it once a window is fullscreen.
uint32_t window_flags(const PlatformWindowRequest &request) {
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

// Version 1.1 is asked for so that an old driver still gets as far as the check of its version,
// which can tell the user more; drivers give their newest that is compatible.
void ask_for_context(const PixelFormat &format) {
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

// A window can fail for want of the display or of a pixel format; one without OpenGL tells which.
PlatformOpen why_no_window(const PlatformWindowRequest &request) {
  take_fault();
  SDL_Window *plain = make_window(request, SDL_WINDOW_HIDDEN);
  if (plain == nullptr) return PlatformOpen::no_window;
  SDL_DestroyWindow(plain);
  return PlatformOpen::no_pixel_format;
}

PlatformOpen try_open(const PlatformWindowRequest &request, const PixelFormat &format) {
  ask_for_context(format);
  window = make_window(request, window_flags(request));
  if (window == nullptr) return why_no_window(request);
  context = SDL_GL_CreateContext(window);
  if (context != nullptr && SDL_GL_MakeCurrent(window, context) == 0) return PlatformOpen::ok;
  take_fault();
  PlatformOpen stage = context == nullptr ? PlatformOpen::no_context : PlatformOpen::no_current;
  platform_close();
  SDL_DestroyWindow(window);
  window = nullptr;
  return stage;
}

PlatformOpen try_formats(const PlatformWindowRequest &request) {
  if (SDL_GL_LoadLibrary(nullptr) != 0) {
    take_fault();
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

// SDL probes GLX with a context whose X errors it doesn't catch, and Xlib would end the program for
// them. The same errors of the true context come back as SDL's.
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

// Windows are made hidden or shown by window managers as they like, and a size asked for isn't
// always the size given, so the true one is looked at in every round of messages.
void follow_client_size() {
  PlatformPoint size = {0, 0};
  if (!platform_is_minimised()) SDL_GL_GetDrawableSize(window, &size.x, &size.y);
  if (size.x == size_told.x && size.y == size_told.y) return;
  size_told = size;
  gfx_resize(size.x, size.y);
}

PlatformPoint centre(const MonitorRect &rect) {
  return {rect.left + (rect.right - rect.left) / 2, rect.top + (rect.bottom - rect.top) / 2};
}

// The sides of the window's frame are not known before the window is there.
void keep_frame_on_desktop() {
  int top = 0, left = 0, bottom = 0, right = 0;
  if (frame_settled || SDL_GetWindowBordersSize(window, &top, &left, &bottom, &right) != 0) return;
  if (top + left + bottom + right == 0) return; // not known yet
  frame_settled = true;
  const MonitorRect now = platform_window_rect(); // with the frame, so the metrics need none
  const MonitorRect kept = display_framed_outer({now.right - now.left, now.bottom - now.top},
                                                platform_metrics(), centre(now));
  if (kept.left != now.left || kept.top != now.top)
    SDL_SetWindowPosition(window, kept.left + left, kept.top + top);
}

uint32_t button_bits(uint32_t sdl_mask) {
  uint32_t bits = 0;
  if ((sdl_mask & SDL_BUTTON_LMASK) != 0) bits |= mouse_left;
  if ((sdl_mask & SDL_BUTTON_RMASK) != 0) bits |= mouse_right;
  if ((sdl_mask & SDL_BUTTON_MMASK) != 0) bits |= mouse_middle;
  return bits;
}

// The global state, since a release outside the window sends no event. A press counts only if the
// window got it, as others go to a window manager that moves the window.
uint32_t buttons_held() {
  const uint32_t held = button_bits(SDL_GetGlobalMouseState(nullptr, nullptr));
  if (mouse_wait_release != 0) return held; // pressed before the window could get it
  return held & button_bits(SDL_GetMouseState(nullptr, nullptr));
}

void motion_message(const SDL_MouseMotionEvent &motion) {
  input_mouse_message(buttons_held(), motion.x, motion.y);
}

void button_message(const SDL_MouseButtonEvent &button) {
  const uint32_t bit = button_bits(SDL_BUTTON(button.button));
  const uint32_t others = buttons_held() & ~bit;
  input_mouse_message(button.state == SDL_PRESSED ? others | bit : others, button.x, button.y);
}

// Polls the buttons: SDL drops a press if it missed the release before.
void follow_buttons() {
  if (SDL_GetMouseFocus() != window) return;
  const uint32_t held = buttons_held();
  if (held != mouse_event_buttons) input_mouse_message(held, mouse_x, mouse_y);
}

void wheel_message(const SDL_MouseWheelEvent &wheel) {
  if (wheel.y == 0) return; // sideways
  input_wheel_message(wheel.y);
}

// UTF-8 as sent by the system, so always well formed. Typed text is bytes of Latin-1.
void text_message(const char *text) {
  for (const char *at = text; *at != '\0';) {
    uint32_t lead = static_cast<uint8_t>(*at++);
    uint32_t code = lead < 0xC0 ? lead : lead & (lead < 0xE0 ? 0x1F : lead < 0xF0 ? 0x0F : 0x07);
    for (; (*at & 0xC0) == 0x80; at++)
      code = code << 6 | (*at & 0x3F);
    input_char_message(code <= 0xFF ? code : '?');
  }
}

// Control characters don't come as text.
void key_message(const SDL_Keysym &key) {
  SDL_Keycode code = key.sym;
  bool letter = code >= SDLK_a && code <= SDLK_z;
  if (letter && (key.mod & KMOD_CTRL) != 0)
    input_char_message(static_cast<uint32_t>(code - SDLK_a + 1));
  else if (code == SDLK_BACKSPACE || code == SDLK_TAB || code == SDLK_RETURN || code == SDLK_ESCAPE)
    input_char_message(static_cast<uint32_t>(code));
}

void window_message(const SDL_Event &event) {
  switch (event.type) {
  case SDL_WINDOWEVENT:
    if (event.window.event == SDL_WINDOWEVENT_CLOSE) gfx_close_requested();
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

volatile std::sig_atomic_t end_signalled;

void note_end_signal(int) {
  end_signalled = 1;
}

// A signal that was ignored from the start stays so.
void quit_on(int signal) {
  if (std::signal(signal, note_end_signal) == SIG_IGN) std::signal(signal, SIG_IGN);
}

// Where there is no display the library falls back to drivers without one, in which the program
// would run unseen for ever; they are good only if the user asked for one of them.
bool nobody_sees(const char *driver) {
  if (SDL_GetHint(SDL_HINT_VIDEODRIVER) != nullptr) return false;
  return std::strcmp(driver, "offscreen") == 0 || std::strcmp(driver, "dummy") == 0 ||
         std::strcmp(driver, "evdev") == 0;
}

} // namespace

void platform_dpi_aware() {
  SDL_SetHint(SDL_HINT_WINDOWS_DPI_AWARENESS, "system");
}

bool platform_connect() {
  // A click that brings the window to the front counts as a click.
  SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
  SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0"); // gfx_pump does, in every fullscreen
  SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
  if (SDL_Init(SDL_INIT_VIDEO) != 0) {
    take_fault();
    return false;
  }
  if (nobody_sees(SDL_GetCurrentVideoDriver())) {
    SDL_Quit();
    std::snprintf(fault, sizeof fault, "%s", "neither DISPLAY nor WAYLAND_DISPLAY leads to one");
    return false;
  }
  std::atexit(restore_display_mode);
  return true;
}

PlatformMetrics platform_metrics() {
  // Window managers draw the frames and tell their thickness only afterwards: it counts as 0.
  PlatformMetrics metrics = {};
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
  size_told = {request->client_width, request->client_height};
  frame_settled = !request->framed;
  const bool on_x11 = std::strcmp(SDL_GetCurrentVideoDriver(), "x11") == 0;
  return on_x11 ? try_formats_on_x11(*request) : try_formats(*request);
}

const char *platform_fault() {
  return fault;
}

void platform_close() {
  restore_display_mode();
  if (context == nullptr) return;
  SDL_GL_MakeCurrent(window, nullptr);
  SDL_GL_DeleteContext(context);
  context = nullptr;
}

void *platform_gl_proc(const char *name) {
  return SDL_GL_GetProcAddress(name);
}

void platform_swap_buffers() {
  SDL_GL_SwapWindow(window);
}

void platform_swap_interval(int32_t frames) {
  SDL_GL_SetSwapInterval(frames);
}

bool platform_messages() {
  SDL_Event event;
  while (SDL_PollEvent(&event) != 0) {
    if (event.type == SDL_QUIT) end_signalled = 1;
    window_message(event);
  }
  if (end_signalled != 0) {
    gfx_close_requested();
    return true;
  }
  follow_buttons();
  follow_client_size();
  keep_frame_on_desktop();
  return false;
}

void platform_wait(int32_t milliseconds) {
  SDL_WaitEventTimeout(nullptr, milliseconds);
}

bool platform_is_minimised() {
  return (SDL_GetWindowFlags(window) & SDL_WINDOW_MINIMIZED) != 0;
}

void platform_minimise() {
  SDL_MinimizeWindow(window);
}

// The window is created always on top; window managers keep it there.
void platform_keep_on_top() {}

bool platform_has_focus() {
  return (SDL_GetWindowFlags(window) & SDL_WINDOW_INPUT_FOCUS) != 0;
}

MonitorRect platform_window_rect() {
  SDL_Rect client = {};
  SDL_GetWindowPosition(window, &client.x, &client.y);
  SDL_GetWindowSize(window, &client.w, &client.h);
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;
  SDL_GetWindowBordersSize(window, &top, &left, &bottom, &right);
  return {client.x - left, client.y - top, client.x + client.w + right,
          client.y + client.h + bottom};
}

PlatformPoint platform_cursor() {
  PlatformPoint cursor = {};
  SDL_GetGlobalMouseState(&cursor.x, &cursor.y);
  return cursor;
}

bool platform_set_cursor(PlatformPoint place) {
  PlatformPoint before = platform_cursor();
  if (SDL_WarpMouseGlobal(place.x, place.y) != 0) return false;
  // Some systems take the request and leave the cursor where it is.
  PlatformPoint after = platform_cursor();
  bool moved = after.x != before.x || after.y != before.y;
  return moved || (before.x == place.x && before.y == place.y);
}

PlatformPoint platform_relative_motion() {
  PlatformPoint motion = {};
  if (SDL_GetRelativeMouseMode() == SDL_TRUE) {
    SDL_GetRelativeMouseState(&motion.x, &motion.y);
    return motion;
  }
  // What moved before the mode began is no steering.
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
  if (SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, caption, text, window) != 0)
    report_sentence("%s: %s", caption, text);
}

// The library asks to quit on SIGINT and SIGTERM by itself. A pipe that nobody reads must not end
// the program.
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
