#pragma once

#include <map>
#include <string>
#include <vector>

// A row of scenes.txt with all its values.
struct Scene {
  std::string name;
  std::map<std::string, double> values;
};

std::vector<Scene> read_scenes();

// An integer value.
int scene_number(const Scene &scene, const char *key);

// Draws a scene as a frame of the program, in the lower left corner of the window.
void scene_frame(const Scene &scene);
