#pragma once

#include "render/gl/plot_batch.h"
#include "support/box.h"

// The records of the draw cache, for its own sources.

struct DrawCache;

struct Bounds {
  Box box;
  double max_halfwidth;
};

struct Chunk {
  NodeRange nodes;
  uint32_t primitive_begin[max_streams]; // its rows in the streams
  uint32_t primitive_end[max_streams];
  uint32_t first_colour; // of the deferred ones
  bool deferred;         // not collected yet
  bool compiled;
  bool stale;     // touched since its primitives were collected or its list was compiled
  uint32_t round; // in which it was last renewed
  Bounds bounds;  // of its primitives; may be wider while they are deferred
};

// A maze held by a node.
struct Child {
  Maze *maze;
  DrawCache *cache; // null: not built yet, or dropped
  Bounds bounds;    // of its subtree
};

struct DrawCache {
  const PlotBatch *batch;
  Maze *maze;
  bool all_levels;
  double halfwidth;
  GLuint first_list; // display lists, those of a chunk side by side; 0 until one is compiled
  GrowList streams[max_streams];
  GrowList colours;  // of uint32_t: those of deferred chunks when the cache was built
  GrowList chunks;   // of Chunk, last nodes first
  GrowList children; // of Child, last holder first
  DrawCache *parent; // the cache that has this one as a child; null if none has
  uint32_t child_index;
  bool complete;           // the caches of the whole subtree are built and in its bounds
  bool has_user;           // the user is in the subtree; valid only while a tree is drawn
  Bounds subtree;          // bounds of all primitives
  Box own_nodes;           // of the plain nodes, and of the first node in any case
  Box subtree_nodes;       // of those of the whole subtree
  DrawCache *next_retired; // an older one
};

// The row of a chunk's first primitive in a stream.
inline uint32_t primitive_begin(const DrawCache *cache, uint32_t chunk, int32_t stream) {
  return rows<Chunk>(cache->chunks)[chunk].primitive_begin[stream];
}

// Starts the streams that a batch uses.
inline void init_streams(GrowList *streams, const PlotBatch &batch) {
  for (int32_t k = 0; k < max_streams && batch.streams[k].size > 0; k++)
    GrowList_init(&streams[k], batch.streams[k].size);
}
