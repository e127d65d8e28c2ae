#pragma once

#include <cstdint>

#include "render/maze_list.h"

// What the line plot keeps of each maze as its attachment "lists": ribbons and discs, in two
// passes.

// An edge of which one maze has the lesser end p; `axis` is p - q.
struct LineRibbon {
  Vec3f p, q, axis;
  float time; // of the user's last crossing; negative: never
  uint32_t colour;
};

struct LineDisc {
  Vec3f centre;
  float time; // of the user's last arrival; negative: never
  uint32_t colour;
};

extern const MazeListKind line_kind;

// The attachment, made if it is missing; see maze_list. With `all_levels` edges between levels
// belong to it.
MazeList *line_lists(Maze *maze, int32_t all_levels);

// The attachment if it is there, with edges between levels, and null otherwise.
const MazeList *line_lists_known(const Maze *maze);

// Where the places lie between which a chunk's edges lead, though another maze's nodes have moved
// since its ribbons were made.
Box line_chunk_places(const MazeList *lists, uint32_t chunk);

// Sends a disc as a quad for the shader of nodes.
void line_draw_disc(const LineDisc &disc, double halfwidth);
