#pragma once

#include <cstdint>

#include "render/gl/draw_cache.h"

// The plot that shows the history of the walk: edges as ribbons and nodes as discs that always face
// the camera and look like tubes. The shaders do all that depends on the view or the time, so the
// display lists of a maze stay valid until a step. With plot_roamers the trails of Roamers show
// too, in the colours of visit_colour.

// The attachment "lists": ribbons and discs, in two passes.
extern const PlotBatch line_batch;

// Draws the whole tree, and the name of its root if it has one.
void line_plot(const World *world);

// The two passes over a tree, edges first, with the current View. With `all_levels` they include
// all submazes. The node pass ends with the user's marker.
void line_edges_pass(Maze *root, const World *world, int32_t all_levels);
void line_nodes_pass(Maze *root, const World *world, int32_t all_levels);

// Calls the display lists of a maze, 0 for edges and 1 for nodes, that the current View shows; with
// `all_levels` also those of all mazes below it.
void line_lists_call(Maze *maze, int32_t which, int32_t all_levels);

// Sends the ribbons or the discs of one maze in immediate mode. With `all_levels` edges to other
// mazes are included. Each edge is sent once, by the end that comes first (Pos_before).
void line_edge_list(Maze *maze, int32_t all_levels);
void line_node_list(Maze *maze);
