#include "maker/plot_names.h"

namespace {

constexpr PlotName plots[] = {
    {"lines", 0, -1, false, 1200},      {"gantry", 1, -1, false, 2000},
    {"balls", 2, -1, false, 1400},      {"fixed", 0, -1, true, 600},
    {"landscape-0", 0, 0, false, 1650}, {"landscape-1", 0, 1, false, 6300},
    {"landscape-2", 0, 2, false, 6300}, {"landscape-3", 0, 3, false, 2000},
    {"landscape-4", 0, 4, false, 2000}, {"landscape-5", 0, 5, false, 7500}};

} // namespace

const PlotName *plot_find(const std::string &name) {
  for (const PlotName &plot : plots)
    if (name == plot.name) return &plot;
  return nullptr;
}
