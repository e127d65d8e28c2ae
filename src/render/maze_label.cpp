#include "render/maze_label.h"

#include <string>

#include "generate/transform.h"
#include "gfx/gl.h"
#include "render/gl/draw_cache.h"
#include "text/font.h"
#include "text/layout.h"
#include "text/style.h"
#include "text/text.h"

namespace {

// World units. The first part ends at the second dot of the name.
constexpr double first_lift = 3.0;  // from the top of the maze to the top of the first part
constexpr double second_lift = 2.9; // likewise of the second part
constexpr double first_size = 2.0;  // of a glyph's cell
constexpr double second_size = 1.0;

// A line of text along x, with its top left corner at (x, y, z).
void print(double x, double y, double z, const std::string &text, double cell) {
  text3d_print(x, y, z, text.c_str(), 0, -cell, 0, cell, 0, 0);
}

} // namespace

void maze_label(const Maze *maze) {
  const Box *known = draw_cache_node_bounds(maze);
  if (known != nullptr) return maze_label_at(maze->name, known->low, known->high);
  Vec3 low, high;
  Maze_bounds(maze, &low, &high);
  maze_label_at(maze->name, low, high);
}

void maze_label_at(const char *text, Vec3 low, Vec3 high) {
  if (low.x > high.x) return;
  font_apply("fmod");
  const std::string name = text;
  const size_t first = name.find('.');
  const size_t second = first == std::string::npos ? first : name.find('.', first + 1);
  const std::string first_part = name.substr(0, second);
  text3d_begin();
  glColor3f(0.8F, 0.9F, 0.8F);
  print(low.x, high.y + first_lift, low.z, first_part, first_size);
  if (second != std::string::npos && text_height > 0) {
    const int32_t cells = text_width(first_part.c_str()) / text_height;
    print(low.x + first_size * (cells + 0.1), high.y + second_lift, low.z, name.substr(second),
          second_size);
  }
  text3d_end();
  font_apply("normal");
}

// The second part counts as large as the first.
MazeLabelCorners maze_label_corners(const char *name, Vec3 low, Vec3 high) {
  font_apply("fmod");
  const double cells = text_height > 0 ? static_cast<double>(text_width(name)) / text_height : 0;
  font_apply("normal");
  const double top = high.y + first_lift;
  return {{low.x, top - first_size, low.z}, {low.x + first_size * cells, top, low.z}};
}
