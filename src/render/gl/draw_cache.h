#pragma once

#include <cstdint>
#include <vector>

#include "maze/maze.h"
#include "render/gl/plot_batch.h"
#include "render/gl/view.h"

// What a plot keeps of each maze of a tree, as an attachment of the maze: its primitives as they
// were when the attachment was built, their bounds, and display lists. A list holds a chunk of
// nodes and is compiled when the chunk is first visible. When an attachment was dropped and is
// built again, chunks with unchanged primitives keep their lists: a step compares all primitives
// but compiles few. Touching a node marks its chunk stale. Stale visible chunks are collected and
// compiled again within a budget per frame.

// Call before each frame. Resets the budget. No chunk is renewed again before all stale visible
// ones were.
void draw_cache_begin_frame();

constexpr int32_t every_pass = -1; // one after another in each maze

// Draws a pass of a maze and, with `all_levels`, of all mazes below it: a maze before those that it
// holds, last holder first. Builds and compiles what is missing, culls the rest.
void draw_cache_draw(Maze *root, const PlotBatch &batch, int32_t pass, bool all_levels,
                     const View &view);

// Sends the primitives of a pass of one maze within glBegin and glEnd, without caching them: those
// of the chunks that the view shows, or all if it is null.
void draw_cache_draw_immediate(Maze *maze, const PlotBatch &batch, int32_t pass, bool all_levels,
                               const View *view);

// Builds what is missing of a maze's cache and compiles all its display lists.
void draw_cache_compile(Maze *maze, const PlotBatch &batch, bool all_levels, const World *world);

// The bounds that Maze_bounds gives for a maze; null unless the line plot's caches of the maze and
// of all mazes below it are built.
const Box *draw_cache_node_bounds(const Maze *maze);

struct CullResult {
  std::vector<NodeRange> nodes; // that may be visible, last nodes first
  std::vector<Maze *> submazes; // all that the maze holds, first holder first
};

// Appends what a frustum doesn't cull of a maze, without visiting its nodes. False if the cache
// isn't built, or was built without the edges to other mazes. The bounds follow the ends of edges
// in other mazes, which can move without a rebuild of this cache; all else is where it was when the
// cache was built. The batch must have an `end_stream`.
bool draw_cache_cull(const Maze *maze, const PlotBatch &batch, const Frustum &frustum,
                     double margin, CullResult *result);
