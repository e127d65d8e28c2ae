#include "maker/plot_names.h"

namespace {

constexpr PlotName plots[] = {{"lines", 0, -1, false},      {"gantry", 1, -1, false},
                              {"balls", 2, -1, false},      {"fixed", 0, -1, true},
                              {"landscape-0", 0, 0, false}, {"landscape-1", 0, 1, false},
                              {"landscape-2", 0, 2, false}, {"landscape-3", 0, 3, false},
                              {"landscape-4", 0, 4, false}, {"landscape-5", 0, 5, false}};

} // namespace

const PlotName *plot_find(const std::string &name) {
  for (const PlotName &plot : plots)
    if (name == plot.name) return &plot;
  return nullptr;
}
