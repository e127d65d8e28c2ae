#pragma once

#include <cstdint>

#include "gfx/gl.h"
#include "maze/maze.h"
#include "render/sight.h"
#include "support/list.h"
#include "world/world.h"

// What the plots keep of each maze of a tree as attachments: the bodies as they were when the
// attachment was made, where they lie, and display lists of some nodes each, compiled when these
// can first be seen. Whoever drops an attachment and has it made anew gets back the lists whose
// bodies are the same, so that a step costs a look at all bodies but the compiling of few.

// A run of a maze's nodes, from `first` to before `end`.
struct MazeRun {
  Maze *maze;
  int32_t first, end;
  int32_t all_levels; // edges between levels count
  const World *world; // whose ages are shown; null for kinds that show none
};

// One list of bodies of a kind. Those that are drawn are compared as bytes and have no padding.
struct MazePart {
  uint32_t size; // of a body; 0: there is no such part
  GLenum primitive;
  // Draws the bodies from `first` to before `end`, between begin and end; null: they are only kept.
  void (*draw)(const GrowList &bodies, uint32_t first, uint32_t end, double halfwidth);
};

constexpr int32_t maze_parts = 3;

// What a plot keeps under an attachment of that name. A kind lives as long as the program.
struct MazeListKind {
  const char *name;

  // Appends the run's bodies, last node first, to a list for each part, and widens the box by all
  // that they put into the picture, or into its depth, in any view.
  void (*collect)(const MazeRun &run, GrowList *parts, Box *box);

  MazePart parts[maze_parts];
  int32_t passes = 1;            // display lists of a run: one for each of the first parts
  int32_t chunk;                 // nodes of a run
  int32_t planes = sight_planes; // of a sight: bodies beyond one of the first so many are left out

  // How far bodies of at most that half-width reach out of their box, seen from the camera; null:
  // they don't.
  double (*growth)(const Box &box, double halfwidth, Vec3 camera) = nullptr;

  // State around the bodies of each display list; may be null.
  void (*before)() = nullptr;
  void (*after)() = nullptr;

  // Drawn right after the lists of the user's maze, whether these can be seen or not; may be null.
  void (*marker)(const World *world) = nullptr;
};

// Where things lie, and the greatest half-width among them.
struct MazeBounds {
  Box box;
  double halfwidth;
};

// The bodies of a run.
struct MazeChunk {
  int32_t first, end;            // the nodes
  uint32_t body_end[maze_parts]; // how many bodies there are up to here
  bool compiled;
  MazeBounds bounds;
};

struct MazeList;

// A maze held by a node.
struct MazeBelow {
  Maze *maze;
  MazeList *list;    // null: not asked for yet, or dropped since
  MazeBounds bounds; // with all below it
};

struct MazeList {
  const MazeListKind *kind;
  Maze *maze;
  int32_t all_levels;
  double halfwidth;
  GLuint first_name; // of the display lists, those of a chunk side by side; 0 until one is seen
  GrowList parts[maze_parts];
  GrowList chunks; // of MazeChunk, last nodes first
  GrowList below;  // of MazeBelow, last holder first
  MazeList *above; // the list that has this one in its row `place`; null if none has
  uint32_t place;
  bool complete;  // all below is there and in `all`
  bool has_user;  // the user's maze is this one or below; kept only while a walk needs it
  MazeBounds all; // with all mazes below
};

// The attachment, made if it is missing, as are with `all_levels` those of all mazes below. Nothing
// is compiled. `world` is handed on to what collects.
MazeList *maze_list(Maze *maze, const MazeListKind &kind, int32_t all_levels, const World *world);

// The attachment if it is there, and null otherwise.
MazeList *maze_list_known(const Maze *maze, const MazeListKind &kind);

// The first body of a chunk.
uint32_t maze_chunk_begin(const MazeList *list, uint32_t chunk, int32_t part);

// Brings a chunk's display lists up to date.
void maze_chunk_compile(MazeList *list, uint32_t chunk);

// What a drawing goes by.
struct MazeView {
  const MazeListKind *kind;
  const World *world;
  Sight sight;
  double root_halfwidth;
};

// The view of the current matrices on a tree. Only a kind that grows or has a marker needs a world.
MazeView maze_view(const Maze *root, const MazeListKind &kind, const World *world);

// Whether anything within the bounds may come into sight.
bool maze_view_shows(const MazeView &view, const MazeBounds &bounds);

constexpr int32_t every_pass = -1; // one after another in each maze

// Calls a pass of a maze's display lists and, with `all_levels`, of all mazes below it: a maze
// before those it holds, last holder first. What can't be seen is left out, mazes with all below
// them. Nodes are walked only where something is missing.
void maze_list_call(Maze *root, const MazeListKind &kind, int32_t pass, int32_t all_levels,
                    const World *world);

// Sends a maze's bodies of one pass, between begin and end; nothing is kept.
void maze_list_emit(Maze *maze, const MazeListKind &kind, int32_t pass, int32_t all_levels);
