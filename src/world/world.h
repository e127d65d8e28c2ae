#pragma once

#include "maze/maze.h"
#include "support/list.h"
#include "support/mat3.h"
#include "support/vec3.h"

// A walker that moves by itself on the user's graph, see world/roamer.h.
struct Roamer {
  double timer;  // seconds to its next step
  double period; // seconds between steps
  Pos cur;
  Pos prev;
};

// The state of a session.
struct World {
  Maze *root;        // the tree of mazes; owned
  Pos cur;           // the user's node, which holds no submaze
  Vec3 offset;       // displacement from that node, world units
  double time;       // session clock, seconds
  Mat3 view;         // rows: the directions right, up and towards the eye
  Vec3 camera;       // position of the eye
  double zoom;       // distance from the eye to the followed point, world units
  int32_t showtrail; // not 0 if colours computed on the CPU show ages
  GrowList roamers;  // of Roamer
};

constexpr double initial_zoom = 20.0; // world units

// Starts a session in a new random tree (see World_new_maze), looking down at its first place. Does
// not free what the record held before.
void World_new(World *world, int32_t mode);

// The same in a given tree, which then belongs to the World. The tree must have a first place.
void World_begin(World *world, Maze *root);

// Makes a new random tree (see generate/new_tree.h) and moves the user to its first place. Does not
// destroy the old tree. Clock, view, camera, zoom and Roamers stay.
void World_new_maze(World *world, int32_t mode);

// Moves the camera to the distance of the zoom from the user's node, without a transition.
void World_place_camera(World *world);

// The user's first place in a tree: its first node without a submaze, where the nodes of a submaze
// replace their holder. Pos_null if there is none.
Pos World_first_place(Maze *root);

// Destroys the tree and frees the list of Roamers.
void World_free(World *world);
