#include "tree_text.h"

#include <sstream>

#include "maze/traversal.h"

namespace {

void write_edge(std::ostream &out, const MazeEdge &edge) {
  out << " " << std::hex << edge.colour << std::dec << " " << edge.usertime << " "
      << edge.roamertime;
}

void write_node(std::ostream &out, const MazeNode &node) {
  out << " at " << node.x << " " << node.y << " " << node.z << ",";
  write_edge(out, node.self);
  for (uint32_t r = 0; r < node.degree; r++) {
    out << ", to " << node.nbr[r];
    write_edge(out, node.edge[r]);
  }
  if (node.submaze) out << ", holds a maze";
}

} // namespace

std::string tree_text(const Maze *root) {
  std::ostringstream out;
  out.precision(17);
  int number = 0;
  for (const Maze *maze = root; maze; maze = Maze_next(root, maze), number++) {
    out << "maze " << number << " visited " << maze->visited << ", borders " << maze->bordermask
        << ", half as wide as " << maze->halfwidth << (maze->name ? ", named " : "")
        << (maze->name ? maze->name : "") << "\n";
    for (int32_t i = 0; i < maze_count(maze); i++) {
      const MazeNode &node = maze_nodes(maze)[i];
      out << "maze " << number << " node " << i;
      write_node(out, node);
      out << "\n";
      if (!node.submaze) continue;
      if (node.submaze->parent == maze && node.submaze->parentnode == i) continue;
      return out.str() + "it is not linked to its holder\n"; // the traversal follows these links
    }
  }
  return out.str();
}
