#include "app/relaxation.h"

#include <algorithm>

#include "generate/relax.h"
#include "maze/attachment.h"

namespace {

constexpr double max_step_time = 0.05; // seconds; limits the motion in a slow frame
constexpr double max_simplify_rate = 1000000.0;
constexpr double experiment_step = 0.1; // per frame, whatever its time

} // namespace

bool relax_frame(Relaxation *relaxation, Maze *maze, double dt, bool simplify, bool experiment) {
  double &rate = relaxation->simplify_rate;
  if (simplify || experiment) Attachment_before_move(maze);
  if (simplify) {
    Maze_smooth(maze, std::min(std::min(dt, max_step_time) * rate, 1.0));
    rate = std::min((1.0 + dt) * rate, max_simplify_rate);
  } else {
    rate = 1.0;
  }
  if (experiment) {
    Maze_smooth(maze, experiment_step);
    Maze_repel(maze, experiment_step);
  }
  if (!simplify && !experiment) return false;
  Attachment_after_move(maze);
  return true;
}
