#pragma once

#include <cstdint>

#include "gfx/gl.h"
#include "maze/maze.h"
#include "render/gl/view.h"
#include "support/box.h"
#include "support/list.h"

// What a plot supplies so that its primitives are kept, see draw_cache.h.

// Nodes of a maze from `first` to before `end`.
struct NodeRange {
  int32_t first, end;
};

struct CollectInput {
  Maze *maze;
  NodeRange nodes;
  bool all_levels;                   // with the edges to other mazes
  const World *world;                // for the colours of ages; null: none are shown
  const uint32_t *colours = nullptr; // stored by `defer` for these nodes; null: the current ones
};

// Prefetches what a plot reads of a node: its place, slots, times and colours.
inline void prefetch_node(const MazeNode &node) {
  __builtin_prefetch(&node);
  __builtin_prefetch(&node.edge[0]);
  __builtin_prefetch(&node.edge[2]);
  __builtin_prefetch(&node.submaze);
}

// Calls visit(pos, node) for the plain nodes, last node first. Nodes are prefetched, since their
// memory is rarely in the processor's cache.
template <typename Visit> void each_plain_node(const CollectInput &input, const Visit &visit) {
  constexpr int32_t prefetch_distance = 8;
  const MazeNode *nodes = maze_nodes(input.maze);
  for (int32_t i = input.nodes.end; i-- > input.nodes.first;) {
    prefetch_node(nodes[i < prefetch_distance ? 0 : i - prefetch_distance]);
    if (nodes[i].submaze == nullptr) visit(Pos{input.maze, i}, nodes[i]);
  }
}

// Primitives of one type. Those that are drawn are compared as bytes, so they have no padding.
struct PrimitiveStream {
  uint32_t size; // bytes of a primitive; 0: the stream is not used
  GLenum mode;   // of glBegin

  // Sends primitives from `first` to before `end`, within glBegin and glEnd; null: never drawn.
  void (*draw)(const GrowList &primitives, uint32_t first, uint32_t end, double halfwidth);

  uint32_t renewable_bytes = 0; // at its end, whose changes may be drawn some frames late
};

constexpr int32_t max_streams = 3;

// What a plot supplies to be cached. It must outlive all mazes.
struct PlotBatch {
  const char *name; // of the attachment, see maze/attachment_names.h

  // Appends the primitives of the nodes, last node first, to the streams, and grows the box by all
  // that they can cover, in colour or depth, from any viewpoint.
  void (*collect)(const CollectInput &input, GrowList *streams, Box *box);

  // Prepares to collect the nodes later, when they are first visible: appends the colours that will
  // be needed, and grows the box by all that the nodes can cover. Null: nodes are collected at
  // once. What else is collected must not change before the attachment is dropped or
  // `compute_deferred` is called.
  void (*defer)(const CollectInput &input, GrowList *colours, Box *box) = nullptr;

  PrimitiveStream streams[max_streams];
  uint32_t colours_per_node = 0;        // that `defer` appends, to reserve memory
  int32_t passes = 1;                   // the first streams, each drawn in a pass of its own
  int32_t chunk_nodes;                  // nodes of a display list, more or less
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
