#pragma once

#include <cstdint>
#include <string>

#include "render/plot_switches.h"

// A way of drawing that has a name, as switches of render/plot_switches.h.
struct NamedPlot {
  const char *name;
  PlotType type;
  int32_t landscape; // its mode; -1: no landscape
  bool fixed;
  double node_bytes; // memory per node for a picture of a whole maze: the highest of any kind
};

// lines, gantry, balls, fixed or landscape-0 to landscape-5; null if there is no plot of that name.
const NamedPlot *plot_find(const std::string &name);
