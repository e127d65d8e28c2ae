#include "generate/composition.h"

#include "generate/nest.h"
#include "generate/paint.h"
#include "generate/topologies.h"
#include "generate/transform.h"
#include "maze/edit.h"
#include "maze/lifetime.h"
#include "maze/reach.h"
#include "support/random.h"

namespace {

constexpr double tile_size = 22.5;
constexpr int32_t tile_pitch = 15; // less than a tile's width, so that tiles overlap
constexpr int32_t patchwork_side = 5 * tile_pitch;
constexpr double max_turn = 100.0;          // radians about each axis
constexpr double colour_count = 16777216.0; // 2^24

constexpr int32_t ladder_mazes = 10;
constexpr double ladder_gap = 10.0; // between mazes
constexpr uint32_t ladder_colour = 0xC04040;

Maze *random_tile(int32_t x, int32_t y) {
  Maze *tile = Maze_random_topology(tile_size);
  Maze_paint(tile, static_cast<uint32_t>(rand_real(colour_count)), 0);
  Maze_centre(tile);
  if (rand_int(5) == 0) {
    const double turn_z = rand_real(max_turn);
    const double turn_y = rand_real(max_turn);
    const double turn_x = rand_real(max_turn);
    Maze_rotate(tile, {turn_x, turn_y, turn_z}, 0);
  }
  Maze_translate(tile, {static_cast<double>(x), static_cast<double>(y), 0.0}, 0);
  return tile;
}

Maze *uncarved_square(int32_t k) {
  Maze *square = Maze_plane_xy(4 * k + 1, 4 * k + 1);
  square->halfwidth = k * 0.1;
  Maze_paint(square, ladder_colour, 0);
  return square;
}

void move_along_line(Maze *line, int32_t i, double x) {
  MazeNode &node = maze_nodes(line)[i];
  node.x = x;
  node.y = 0.0;
  node.z = 0.0;
}

// Centres a maze on the line, from x upwards; returns its width.
double place_on_line(Maze *maze, double x) {
  Vec3 min;
  Vec3 max;
  Maze_bounds(maze, &min, &max);
  Maze_translate(maze, {x - min.x, -0.5 * (min.y + max.y), -0.5 * (min.z + max.z)}, 1);
  return max.x - min.x;
}

} // namespace

Maze *Maze_patchwork() {
  Maze *patches = Maze_new();
  for (int32_t x = 0; x < patchwork_side; x += tile_pitch)
    for (int32_t y = 0; y < patchwork_side; y += tile_pitch) {
      Maze *tile = random_tile(x, y);
      Maze_weld_onto(patches, tile);
      Maze_destroy(tile, 1);
    }
  Maze *connected = Maze_reachable_copy(patches, 0);
  Maze_destroy(patches, 1);
  return connected;
}

Maze *Maze_ladder() {
  Maze *line = Maze_plane_xz(ladder_mazes + 2, 1);
  Maze_paint(line, ladder_colour, 0);
  Maze *squares[ladder_mazes];
  double x = maze_nodes(line)[0].x + ladder_gap;
  for (int32_t k = 1; k <= ladder_mazes; k++) {
    squares[k - 1] = uncarved_square(k);
    const double width = place_on_line(squares[k - 1], x);
    move_along_line(line, k, x + 0.5 * width);
    x += width + ladder_gap;
  }
  move_along_line(line, ladder_mazes + 1, x);
  // Doors face the neighbours of their holder, so all nodes of the line are moved first.
  for (int32_t k = 1; k <= ladder_mazes; k++)
    Maze_attach_submaze(line, k, squares[k - 1]);
  return line;
}
