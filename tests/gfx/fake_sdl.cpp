#include "gfx/fake_sdl.h"

#include <algorithm>

#include <dlfcn.h>
#include <gtest/gtest.h>

#include "gfx/input.h"
#include "gfx/window.h"

FakeSdl sdl;

void fake_start() {
  GTEST_FLAG_SET(death_test_style, "threadsafe"); // since drivers start threads
  gfx_close();
  sdl = {};
  SDL_ShowCursor(SDL_ENABLE);
  SDL_EnableScreenSaver();
  quit_requested = mouse_buttons = mouse_buttons_prev = mouse_event_buttons = 0;
  screen_width = screen_height = fullscreen_offset_x = fullscreen_offset_y = 0;
  alt_tabbed = windowed = projection_is_2d = window_active = false;
  mouse_wait_release = 1;
}

void fake_keys(const std::vector<int> &keys) {
  uint8_t *state = const_cast<uint8_t *>(SDL_GetKeyboardState(nullptr));
  std::fill_n(state, int{SDL_NUM_SCANCODES}, uint8_t{0});
  for (const int key : keys)
    state[key] = 1;
}

namespace {

// SDL's own function.
template <typename Function> Function *original(Function *, const char *name) {
  return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

// These override the functions of the shared library.

int SDL_GetNumVideoDisplays() {
  return static_cast<int>(sdl.displays.size());
}
int SDL_GetDisplayBounds(int index, SDL_Rect *rect) {
  *rect = sdl.displays[static_cast<size_t>(index)];
  return 0;
}
int SDL_GetNumDisplayModes(int index) {
  return index == 0 ? 1 : 0;
}
int SDL_GetDisplayMode(int, int, SDL_DisplayMode *mode) {
  mode->w = 1024;
  mode->h = 768;
  return 0;
}
SDL_Window *SDL_CreateWindow(const char *title, int x, int y, int w, int h, uint32_t flags) {
  sdl.window = {x, y, w, h};
  sdl.window_flags = flags;
  const uint32_t kept = flags & ~uint32_t{SDL_WINDOW_FULLSCREEN_DESKTOP};
  return original(SDL_CreateWindow, "SDL_CreateWindow")(title, x, y, w, h, kept);
}
void SDL_GL_SwapWindow(SDL_Window *) {
  sdl.swaps++;
}
int SDL_WaitEventTimeout(SDL_Event *, int milliseconds) {
  sdl.waited += milliseconds;
  return 0;
}
uint32_t SDL_GetWindowFlags(SDL_Window *window) {
  return original(SDL_GetWindowFlags, "SDL_GetWindowFlags")(window) | sdl.state;
}
void SDL_MinimizeWindow(SDL_Window *) {
  sdl.minimised++;
}
SDL_Window *SDL_GetMouseFocus() {
  return SDL_GL_GetCurrentWindow();
}
uint32_t SDL_GetGlobalMouseState(int *x, int *y) {
  if (x != nullptr) *x = sdl.cursor.x;
  if (y != nullptr) *y = sdl.cursor.y;
  return sdl.buttons;
}
uint32_t SDL_GetMouseState(int *, int *) {
  return sdl.own_buttons;
}
int SDL_WarpMouseGlobal(int x, int y) {
  if (sdl.cursor_moves) sdl.cursor = {x, y};
  return 0;
}
SDL_bool SDL_GetRelativeMouseMode() {
  return sdl.relative ? SDL_TRUE : SDL_FALSE;
}
int SDL_SetRelativeMouseMode(SDL_bool on) {
  sdl.relative = on == SDL_TRUE;
  return 0;
}
uint32_t SDL_GetRelativeMouseState(int *x, int *y) {
  if (x != nullptr) {
    *x = sdl.motion.x;
    *y = sdl.motion.y;
  }
  sdl.motion = {0, 0};
  return 0;
}
