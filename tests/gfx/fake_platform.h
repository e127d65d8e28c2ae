#pragma once

#include <functional>
#include <string>
#include <vector>

#include "gfx/platform.h"

// A window system made of plain values: what it tells, and what it was asked to do.
struct FakePlatform {
  bool has_display = true;
  PlatformOpen open_result = PlatformOpen::ok;
  PlatformMetrics metrics = {1920, 1080, {0, 0, 1920, 1080}, 0, 0, 0};
  std::vector<MonitorRect> monitors = {{0, 0, 1920, 1080}};
  std::function<bool()> messages; // runs inside platform_messages; true is the system's quit
  bool minimised = false, focused = true;
  std::vector<uint8_t> keys_down;
  MonitorRect window_rect = {};
  PlatformPoint cursor = {};
  bool cursor_moves = true;
  PlatformPoint relative = {};

  PlatformWindowRequest request = {}; // of the last platform_open
  int minimise_asked = 0, on_top_asked = 0, cursor_hidden = 0;
  bool screen_saver = true;
  std::string box; // the last message box: caption, bar, text
};

extern FakePlatform fake;

// A fresh fake and the input and window state of program start.
void fake_start();
