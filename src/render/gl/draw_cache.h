#pragma once

#include <cstdint>
#include <vector>

#include "gfx/gl.h"
#include "maze/maze.h"
#include "render/gl/view.h"
#include "support/list.h"

// What a plot keeps of each maze of a tree, as an attachment of the maze: its primitives as they
// were when the attachment was built, their bounds, and display lists. A list holds a chunk of
// nodes and is compiled when the chunk is first visible. When an attachment was dropped and is
// built again, chunks with unchanged primitives keep their lists: a step compares all primitives
// but compiles few. Touching a node marks its chunk stale. Stale visible chunks are collected and
// compiled again within a budget per frame.

// Nodes of a maze from `first` to before `end`.
struct NodeRange {
  int32_t first, end;
};

struct CollectInput {
  Maze *maze;
  NodeRange nodes;
  bool all_levels;    // with the edges to other mazes
  const World *world; // for the colours of ages; null: none are shown
};

// Primitives of one type. Those that are drawn are compared as bytes, so they have no padding.
struct PrimitiveStream {
  uint32_t size; // bytes of a primitive; 0: the stream is not used
  GLenum mode;   // of glBegin

  // Sends primitives from `first` to before `end`, within glBegin and glEnd; null: never drawn.
  void (*draw)(const GrowList &primitives, uint32_t first, uint32_t end, double halfwidth);

  uint32_t renewable_bytes = 0; // at the end of a primitive: changes of them may show late
};

constexpr int32_t max_streams = 3;

// What a plot supplies to be cached. It must outlive all mazes.
struct PlotBatch {
  const char *name; // of the attachment, see maze/attachment_names.h

  // Appends the primitives of the nodes, last node first, to the streams, and grows the box by all
  // that they can cover, in colour or depth, from any viewpoint.
  void (*collect)(const CollectInput &input, GrowList *streams, Box *box);

  PrimitiveStream streams[max_streams];
  int32_t passes = 1;                   // the first streams, each drawn in a pass of its own
  int32_t chunk_nodes;                  // nodes of a display list
  bool renews_touched = false;          // chunks are renewed when their nodes are touched
  int32_t end_stream = -1;              // stream of Pos: ends of edges in other mazes
  int32_t cull_planes = frustum_planes; // how many frustum planes to cull against

  // How far primitives of at most that half-width extend beyond their box; null: they don't.
  double (*margin)(const Box &box, double halfwidth, Vec3 camera) = nullptr;

  // GL state around the primitives of each display list; may be null.
  void (*before)() = nullptr;
  void (*after)() = nullptr;

  // Draws the user's marker after the lists of the current maze, visible or not; may be null.
  void (*marker)(const View &view) = nullptr;
};

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

// The bounds that Maze_bounds gives for a maze; null unless the caches of the maze and of all mazes
// below it are built, as attachments of that name.
const Box *draw_cache_node_bounds(const Maze *maze, const char *attachment);

struct CullResult {
  std::vector<NodeRange> nodes; // that may be visible, last nodes first
  std::vector<Maze *> submazes; // all that the maze holds, first holder first
};

// Appends what a frustum doesn't cull of a maze, without visiting its nodes. False if the cache
// isn't built, or was built without the edges to other mazes. The bounds follow the ends of edges
// in other mazes, which can move without a rebuild of this cache; all else is where it was when the
// cache was built.
bool draw_cache_cull(const Maze *maze, const PlotBatch &batch, const Frustum &frustum,
                     double margin, CullResult *result);
