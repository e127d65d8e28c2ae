#pragma once

#include <cstdint>

#include "gfx/gl.h"
#include "maze/maze.h"
#include "render/sight.h"
#include "support/list.h"

// What the line plot keeps of each maze as its attachment "lists": the bodies as they were when it
// was made, where they lie, and display lists of some nodes each, compiled when these can first be
// seen. Whoever drops the attachment and has it made anew gets back the lists whose bodies are the
// same, so that a step costs a look at all bodies but the compiling of few.

// An edge of which one maze has the lesser end p; `axis` is p - q.
struct LineRibbon {
  float p[3], q[3], axis[3];
  float time; // of the user's last crossing; negative: never
  uint32_t colour;
};

struct LineDisc {
  float centre[3];
  float time; // of the user's last arrival; negative: never
  uint32_t colour;
};

// Where things lie, and the greatest halfwidth among them.
struct LineBounds {
  Box box;
  double halfwidth;
};

struct LineLists;

// A maze held by a node.
struct LineBelow {
  Maze *maze;
  LineLists *lists;
  LineBounds bounds; // with all below it
};

// The bodies of a run of nodes.
struct LineChunk {
  int32_t first, count; // the nodes
  uint32_t end[2];      // how many ribbons and discs there are up to here
  uint32_t far_end;     // and how many far ends
  GLboolean compiled;
  LineBounds bounds;
};

struct LineLists {
  GLuint first_name; // two display lists a chunk, edges and nodes; 0 until one is to be seen
  GrowList ribbons, discs;
  GrowList far_ends; // Pos of the ends of ribbons that lead to other mazes
  GrowList chunks;   // of LineChunk, last nodes first
  float halfwidth;
  GLboolean all_levels; // edges between levels are among the ribbons
  LineBounds all;       // with all mazes below
  GrowList below;       // of LineBelow, last holder first
  uint64_t checked;     // when all below was last known to be there
};

// The attachment, made if it is missing. With `all_levels` edges between levels belong to it, and
// all mazes below have got theirs and are in `all`. Nothing is compiled.
LineLists *line_lists(Maze *maze, int32_t all_levels);

// The attachment if it is there, with edges between levels, and null otherwise.
const LineLists *line_lists_known(const Maze *maze);

// Brings a chunk's display lists up to date.
void line_chunk_compile(LineLists *lists, uint32_t chunk);

// The sight of a pass over a tree, whose bodies are the wider the farther from the camera.
struct LineSight {
  Sight sight;
  Vec3 camera;
  double root_halfwidth;
};

// Calls the edges (0) or the nodes (1) of those chunks that may come into sight.
void line_lists_draw(LineLists *lists, int32_t which, const LineSight &sight);

// Whether anything within the bounds may come into sight.
bool line_may_see(const LineSight &sight, const LineBounds &bounds);

// Where the places lie between which a chunk's edges lead, though another maze's nodes have moved
// since its ribbons were made.
Box line_chunk_places(const LineLists *lists, uint32_t chunk);

// Appends the bodies of the nodes from `first` to before `end`, last node first, with the ends of
// ribbons in other mazes, and widens the box by their places.
void line_collect_ribbons(Maze *maze, int32_t first, int32_t end, int32_t all_levels, GrowList *out,
                          GrowList *far_ends, Box *box);
void line_collect_discs(Maze *maze, int32_t first, int32_t end, GrowList *out, Box *box);

// Draws bodies in immediate mode, as quads for the shaders of the plot.
void line_draw_ribbons(const LineRibbon *ribbons, uint32_t count, float halfwidth);
void line_draw_discs(const LineDisc *discs, uint32_t count, float halfwidth);
