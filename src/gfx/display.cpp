#include "gfx/display.h"

#include <algorithm>

namespace {

constexpr int32_t edge_unset = 999999999; // beyond any desktop
constexpr uint32_t mask_bits = 31;        // bit 31 makes the mask negative: the whole desktop

// Edges and sizes come from the settings file, so sums can exceed 32 bits. They wrap.
int32_t wrap(int64_t value) {
  return static_cast<int32_t>(value);
}

MonitorRect rect_at(int64_t left, int64_t top, int64_t width, int64_t height) {
  return {wrap(left), wrap(top), wrap(left + width), wrap(top + height)};
}

MonitorRect monitor_area(int32_t number, const DisplayMetrics &metrics, const GrowList &monitors) {
  if (monitors.count == 0) return rect_at(0, 0, metrics.primary_width, metrics.primary_height);
  bool known = number >= 1 && static_cast<uint32_t>(number) <= monitors.count;
  return rows<MonitorRect>(monitors)[known ? number - 1 : 0];
}

MonitorRect mask_area(int32_t mask, const GrowList &monitors) {
  MonitorRect area = {edge_unset, edge_unset, -edge_unset, -edge_unset};
  for (uint32_t i = 0; i < std::min(monitors.count, mask_bits); i++) {
    if ((static_cast<uint32_t>(mask) >> i & 1) == 0) continue;
    const MonitorRect &monitor = rows<MonitorRect>(monitors)[i];
    area.left = std::min(area.left, monitor.left);
    area.top = std::min(area.top, monitor.top);
    area.right = std::max(area.right, monitor.right);
    area.bottom = std::max(area.bottom, monitor.bottom);
  }
  return area;
}

// One axis of the framed placement.
int64_t centred(int64_t cursor, int64_t outer, int64_t desktop_first, int64_t desktop_end) {
  return std::max(std::min(desktop_end - outer, cursor - outer / 2), desktop_first);
}

} // namespace

MonitorRect display_area(int32_t width_request, int32_t height_request,
                         const DisplayMetrics &metrics, const GrowList &monitors) {
  if (width_request == 0 && height_request == 0)
    return rect_at(0, 0, metrics.primary_width, metrics.primary_height);
  if (width_request == 0) return monitor_area(height_request, metrics, monitors);
  if (width_request == -1 && height_request < 1) return metrics.virtual_desktop;
  if (width_request == -1) return mask_area(height_request, monitors);
  return rect_at(0, 0, width_request, height_request);
}

ClientSize display_client_size(const MonitorRect &area, int32_t width_request, bool framed) {
  ClientSize size = {area.right - area.left, area.bottom - area.top};
  if (framed && width_request == 0) {
    size.height = static_cast<int32_t>(size.height * 0.6);
    size.width = 4 * size.height / 3;
  }
  return size;
}

MonitorRect display_fullscreen_outer(const MonitorRect &area, ClientSize size, int32_t offset_x,
                                     int32_t offset_y) {
  return rect_at(int64_t{area.left} + offset_x, int64_t{area.top} + offset_y, size.width,
                 size.height);
}

MonitorRect display_framed_outer(ClientSize size, const DisplayMetrics &metrics,
                                 DisplayPoint cursor) {
  int64_t width = int64_t{size.width} + 2 * int64_t{metrics.frame_width};
  int64_t height =
      int64_t{size.height} + metrics.caption_height + 2 * int64_t{metrics.frame_height};
  const MonitorRect &desktop = metrics.virtual_desktop;
  return rect_at(centred(cursor.x, width, desktop.left, desktop.right),
                 centred(cursor.y, height, desktop.top, desktop.bottom), width, height);
}

bool display_changes_mode(int32_t width_request, bool framed, int32_t offset_x, int32_t offset_y) {
  return width_request > 0 && !framed && offset_x == 0 && offset_y == 0;
}
