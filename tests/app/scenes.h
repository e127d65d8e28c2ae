#pragma once

#include <cstdint>
#include <vector>

#include "support/vec3.h"
#include "world/world.h"

// The small scenes of the approved pictures.

enum SceneTree { scene_house, scene_large, scene_path, scene_depths };
enum ScenePlot { scene_lines, scene_gantry, scene_balls, scene_landscape };

struct Scene {
  const char *name;
  int32_t width = 160, height = 120;
  SceneTree tree = scene_house;
  int32_t level = 0; // of the user's maze: 0 root, 1 and 2 its rooms, 3 the room in the second
  int32_t node = 1;
  double yaw = 0.4, pitch = -0.6, zoom = 6.3;
  Vec3 offset = {0.23, 0.71, 0.1}; // of the user from the node
  ScenePlot plot = scene_lines;
  int32_t mode = 0; // of the landscape
  int32_t light = 0, grid = 0, smooth = 1, fixed = 0, connected = 0;
  int32_t doors = 0; // the rooms' doors that were crossed, one bit each
  int32_t showtrail = 1;
  int32_t stereo = 0, swap = 0;
  double depth = 0.05;
  int32_t help = 3;
  void (*draw)() = nullptr; // instead of a world
};

extern const std::vector<Scene> scenes;

// Draws a scene as a frame of the program, in the lower left corner of the window.
void scene_frame(const Scene &scene);
