#include "render/gl/edge_colour.h"

#include <bit>

#include "render/gl/age_colour.h"
#include "support/colour.h"

namespace {

constexpr uint32_t border_one_door = 0xC0A040;
constexpr uint32_t border_some_doors = 0x80C040;
constexpr uint32_t border_all_doors = 0x408040;

// The trail of a Roamer has the user's colours times 0x40FF80, channel by channel.
constexpr int32_t roamer_red = 0x40;
constexpr int32_t roamer_blue = 0x80;

uint32_t not_white(uint32_t colour) {
  return colour == colour_white ? colour_near_white : colour;
}

uint32_t add_colour(uint32_t colour, uint32_t add) {
  return colour_adjust(colour, colour_red(add), colour_green(add), colour_blue(add));
}

uint32_t roamer_tint(uint32_t age_colour) {
  const auto red = static_cast<uint32_t>(colour_red(age_colour) * roamer_red / 255);
  const auto blue = static_cast<uint32_t>(colour_blue(age_colour) * roamer_blue / 255);
  return red << 16 | static_cast<uint32_t>(colour_green(age_colour)) << 8 | blue;
}

} // namespace

uint32_t border_colour(const Maze *maze, uint32_t fallback) {
  if (maze->bordermask == 0 || maze->parent == nullptr) return fallback;
  const auto crossed = static_cast<uint32_t>(std::popcount(maze->bordermask));
  if (crossed == maze_nodes(maze->parent)[maze->parentnode].degree) return border_all_doors;
  return crossed == 1 ? border_one_door : border_some_doors;
}

uint32_t edge_colour(uint32_t colour, Pos a, Pos b) {
  const bool same_level = b.maze == nullptr || b.maze == a.maze;
  return same_level ? border_colour(a.maze, not_white(colour)) : not_white(colour);
}

uint32_t visit_colour(const MazeEdge &row, Pos a, Pos b, const World *world) {
  uint32_t colour = edge_colour(row.colour, a, b);
  if (world == nullptr || world->showtrail == 0) return colour;
  if (row.usertime >= 0) colour = add_colour(colour, agecolour_rgb(world->time - row.usertime));
  if (row.roamertime >= 0) {
    colour = add_colour(colour, roamer_tint(agecolour_rgb(world->time - row.roamertime)));
  }
  return not_white(colour);
}
