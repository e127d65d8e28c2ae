#pragma once

#include "maze/maze.h"
#include "support/list.h"
#include "support/mat3.h"
#include "support/vec3.h"

// An autonomous walker on the same graph as the user.
struct Roamer {
  double timer;  // seconds to its next step
  double period; // seconds between steps
  Pos cur;
  Pos prev;
};

// The whole state of a session; there is one, owned by the main program.
struct World {
  Maze *root;        // the tree of mazes; owned
  Pos cur;           // the node that the user is at; never one that holds a submaze
  Vec3 offset;       // displacement from that node, world units
  double time;       // session clock, seconds
  Mat3 view;         // rows: the screen's right, its up, and from the scene to the eye
  Vec3 camera;       // the eye
  double zoom;       // distance between the eye and the followed point, world units
  int32_t showtrail; // whether colours computed on the processor show ages
  GrowList roamers;  // of Roamer
};

constexpr double initial_zoom = 20.0; // world units

// Starts a session on a new random maze of the given mode (see World_new_maze), looking down on
// its first node. What the record held before is not released.
void World_new(World *world, int32_t mode);

// Replaces the tree by a new random one and puts the user on its first place: a patchwork of tiles
// for mode 1, a ladder of rooms for 2, else a single topology, perhaps with mazes nested in it. The
// caller has destroyed the old tree. Clock, view, camera, zoom and Roamers stay.
void World_new_maze(World *world, int32_t mode);

// Puts the camera straight behind the user's place, at the distance of the zoom.
void World_place_camera(World *world);

// Where the user starts in a tree: the first plain node, where the nodes of a submaze come in the
// place of their holder. Pos_null if there is none.
Pos World_first_place(Maze *root);

// Destroys the tree and releases the list of Roamers.
void World_free(World *world);
