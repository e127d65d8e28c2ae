#pragma once

#include <memory>

#include "maze/maze.h"

struct MazeDestroyer {
  void operator()(Maze *maze) const { Maze_destroy(maze, 1); }
};
using OwnedMaze = std::unique_ptr<Maze, MazeDestroyer>;
