#include "generate/ladder.h"

#include "generate/flat.h"
#include "generate/nest.h"
#include "generate/paint.h"
#include "generate/transform.h"

namespace {

constexpr int32_t rooms = 10;
constexpr double gap = 10.0; // between rooms
constexpr uint32_t brick = 0xC04040;

Maze *uncarved_room(int32_t k) {
  Maze *room = Maze_plane_xy(4 * k + 1, 4 * k + 1);
  room->halfwidth = k * 0.1;
  Maze_paint(room, brick, 0);
  return room;
}

void place_on_line(Maze *line, int32_t node, double x) {
  MazeNode &place = maze_nodes(line)[node];
  place.x = x;
  place.y = 0.0;
  place.z = 0.0;
}

// Moves the room into the middle of the line with its least x at the cursor; returns its width.
double place_room(Maze *room, double cursor) {
  Vec3 min;
  Vec3 max;
  Maze_bounds(room, &min, &max);
  Maze_translate(room, {cursor - min.x, -0.5 * (min.y + max.y), -0.5 * (min.z + max.z)}, 1);
  return max.x - min.x;
}

} // namespace

Maze *Maze_ladder() {
  Maze *line = Maze_plane_xz(rooms + 2, 1);
  Maze_paint(line, brick, 0);
  Maze *room[rooms + 1];
  double cursor = maze_nodes(line)[0].x + gap;
  for (int32_t k = 1; k <= rooms; k++) {
    room[k] = uncarved_room(k);
    const double width = place_room(room[k], cursor);
    place_on_line(line, k, cursor + 0.5 * width);
    cursor += width + gap;
  }
  place_on_line(line, rooms + 1, cursor);
  // The doors face the neighbours on the line, so these must stand in their places by now.
  for (int32_t k = 1; k <= rooms; k++)
    Maze_settle(line, k, room[k]);
  return line;
}
