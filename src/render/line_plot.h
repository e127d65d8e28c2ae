#pragma once

#include <cstdint>

#include "maze/maze.h"
#include "world/world.h"

// The plot that shows the history of the walk: edges as ribbons and nodes as discs that always
// face the camera, with the look of tubes. What depends on the view or on the time is in the
// shaders, so the compiled lists of a maze (its attachment "lists") stay valid until a step.

// The two passes over a tree, edges first. With `all_levels` they go through all submazes too. The
// node pass ends with the user's marker.
void line_edges_pass(Maze *root, const World *world, int32_t all_levels);
void line_nodes_pass(Maze *root, const World *world, int32_t all_levels);

// Calls the compiled lists of a maze, 0 for edges and 1 for nodes; with `all_levels` also those of
// all mazes below. What the current matrices can't show is left out; the world's camera is theirs.
void line_lists_call(Maze *maze, int32_t which, int32_t all_levels, const World *world);

// The bodies of the two lists, in immediate mode. Each edge is drawn from its lesser end only.
void line_edge_list(Maze *maze, int32_t all_levels);
void line_node_list(Maze *maze);
