#pragma once

#include <cstdint>

#include "gfx/platform.h"
#include "support/list.h"

// Where the window goes and how large it is: plain arithmetic on what the platform tells.
//
// The resolution request is a pair of numbers:
//   0, 0          the primary display
//   0, N          monitor N, counted from 1; the first where there is no such monitor
//   -1, below 1   the whole virtual desktop
//   -1, mask      the monitors of the mask's bits, the first at bit 0
//   X, Y          X by Y pixels at the desktop's origin

struct ClientSize {
  int32_t width, height; // pixels
};

// The request's rectangle of the virtual desktop. `monitors` is a list of MonitorRect in the
// system's order. A mask that names no monitor at all gives edges of 999999999 and -999999999.
MonitorRect display_area(int32_t width_request, int32_t height_request,
                         const PlatformMetrics &metrics, const GrowList &monitors);

// Size of the picture: the area's, but in a frame a request without a size of its own takes 0.6 of
// the height, at 4:3.
ClientSize display_client_size(const MonitorRect &area, int32_t width_request, bool framed);

// Outer edges of a window without a frame: the area's corner, moved by the offsets.
MonitorRect display_fullscreen_outer(const MonitorRect &area, ClientSize size, int32_t offset_x,
                                     int32_t offset_y);

// Outer edges of a framed window, centred on the cursor and kept inside the virtual desktop; one
// too large for the desktop starts at its left or top edge.
MonitorRect display_framed_outer(ClientSize size, const PlatformMetrics &metrics,
                                 PlatformPoint cursor);

// Whether the display itself is switched to the client size: fullscreen only, for a size given in
// pixels, and not where the window was moved by an offset.
bool display_changes_mode(int32_t width_request, bool framed, int32_t offset_x, int32_t offset_y);
