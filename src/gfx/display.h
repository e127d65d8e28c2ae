#pragma once

#include <cstdint>

#include "support/list.h"

// Position and size of the window: plain arithmetic on what the platform reports.
//
// The resolution request is a pair of numbers:
//   0, 0          the primary display
//   0, N          monitor N, counted from 1; the first if there is no such monitor
//   -1, below 1   the whole virtual desktop
//   -1, mask      the monitors whose bits are set, the first at bit 0
//   X, Y          X by Y pixels at the desktop's origin

// A rectangle of the virtual desktop in pixels; right and bottom are one past the last pixel.
struct MonitorRect {
  int32_t left, top, right, bottom;
};

struct DisplayPoint {
  int32_t x, y; // virtual-desktop pixels
};

struct ClientSize {
  int32_t width, height; // pixels
};

// What the placement rules need to know of the display, in pixels.
struct DisplayMetrics {
  int32_t primary_width, primary_height;
  MonitorRect virtual_desktop;
  int32_t frame_width, frame_height; // thickness of a window frame: sides, and top or bottom
  int32_t caption_height;
};

// The rectangle that a request selects. `monitors` is a list of MonitorRect in the system's order.
// A mask that selects no monitor gives edges of 999999999 and -999999999.
MonitorRect display_area(int32_t width_request, int32_t height_request,
                         const DisplayMetrics &metrics, const GrowList &monitors);

// Client size for an area: the whole of it. A framed window whose request gives no size takes 0.6
// of the height, at 4:3.
ClientSize display_client_size(const MonitorRect &area, int32_t width_request, bool framed);

// Outer edges of a window without a frame: the corner of the area, moved by the offsets.
MonitorRect display_fullscreen_outer(const MonitorRect &area, ClientSize size, int32_t offset_x,
                                     int32_t offset_y);

// Outer edges of a framed window, centred on the cursor and kept inside the virtual desktop. One
// too large for the desktop starts at its left or top edge.
MonitorRect display_framed_outer(ClientSize size, const DisplayMetrics &metrics,
                                 DisplayPoint cursor);

// Whether the display switches to the client size: only in fullscreen, for a size given in pixels,
// and without an offset.
bool display_changes_mode(int32_t width_request, bool framed, int32_t offset_x, int32_t offset_y);
