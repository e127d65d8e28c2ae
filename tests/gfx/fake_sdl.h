#pragma once

#include <vector>

#include <SDL.h>

// Parts of SDL replaced by plain values. Windows, contexts and events are those of the offscreen
// driver.
struct FakeSdl {
  // What SDL reports.
  std::vector<SDL_Rect> displays = {{0, 0, 1920, 1080}};
  uint32_t state = SDL_WINDOW_INPUT_FOCUS; // flags of the window, added to the real ones
  uint32_t buttons = 0, own_buttons = 0;   // held anywhere, and pressed in the window
  SDL_Point cursor = {0, 0}, motion = {0, 0};
  bool cursor_moves = true, relative = false;

  // What was requested.
  SDL_Rect window = {0, 0, 0, 0};
  uint32_t window_flags = 0;
  int minimised = 0, swaps = 0, waited = 0; // the last in milliseconds
};

extern FakeSdl sdl;

// Resets the fake and the state of input and window to those of program start.
void fake_start();

// Presses exactly these keys, by scancode.
void fake_keys(const std::vector<int> &keys);
