#pragma once

#include "render/gl/frustum.h"
#include "world/world.h"

// What one depth slab of one eye shows. The scene builds it and hands it to every plot, grid and
// label, so that none of them computes it again or reads it back from GL.
struct View {
  const World *world;
  Vec3 camera;          // world->camera, midway between the eyes
  Vec3 followed;        // World_follow_point of this frame
  float projection[16]; // column by column
  float modelview[16];
  Frustum frustum;
};

// The View of the matrices that are loaded in GL, after `set_slab` has changed the projection's
// depth range; null leaves it.
View view_read(const World *world, Vec3 followed, void (*set_slab)(float projection[16]));

// Loads the projection into GL and makes this the current View. The modelview must be loaded.
void view_use(const View &view);

// The current View, for functions that are given none. A World that they are given must be its own.
const View &view_current();
const View &view_of(const World *world);

// Multiplies the current GL matrix by the world's view rotation and the translation from its
// camera.
void World_apply_view(const World *world);
