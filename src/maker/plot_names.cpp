#include "maker/plot_names.h"

namespace {

constexpr NamedPlot plots[] = {{"lines", plot_type_lines, -1, false, 1200},
                               {"gantry", plot_type_gantry, -1, false, 2000},
                               {"balls", plot_type_balls, -1, false, 1400},
                               {"fixed", plot_type_lines, -1, true, 600},
                               {"landscape-0", plot_type_lines, 0, false, 1650},
                               {"landscape-1", plot_type_lines, 1, false, 6300},
                               {"landscape-2", plot_type_lines, 2, false, 6300},
                               {"landscape-3", plot_type_lines, 3, false, 2000},
                               {"landscape-4", plot_type_lines, 4, false, 2000},
                               {"landscape-5", plot_type_lines, 5, false, 7500}};

} // namespace

const NamedPlot *plot_find(const std::string &name) {
  for (const NamedPlot &plot : plots)
    if (name == plot.name) return &plot;
  return nullptr;
}
