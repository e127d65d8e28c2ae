#include "same_tree.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "maze/walk.h"

static std::string text_of(const MazeEdge &edge) {
  char text[80];
  std::snprintf(text, sizeof text, " %06x %.17g %.17g", edge.colour, edge.usertime,
                edge.roamertime);
  return text;
}

static std::string text_of(const MazeNode &node) {
  char place[100];
  std::snprintf(place, sizeof place, " at %.17g %.17g %.17g,", node.x, node.y, node.z);
  std::string text = place + text_of(node.self) + (node.submaze ? ", holds a maze" : "");
  for (uint32_t r = 0; r < node.degree; r++)
    text += ", to " + std::to_string(node.nbr[r]) + text_of(node.edge[r]);
  return text;
}

static std::string text_of(const Maze *maze) {
  char text[100];
  std::snprintf(text, sizeof text, " of %u nodes, visited %d, borders %x, half as wide as %.17g",
                maze->nodes.count, maze->visited, maze->bordermask, maze->halfwidth);
  return text + std::string(maze->name ? ", named " : "") + (maze->name ? maze->name : "");
}

// A line for each maze and each node, in the order of Maze_next.
static std::vector<std::string> text_of_tree(const Maze *root) {
  std::vector<std::string> lines;
  int number = 0;
  for (const Maze *maze = root; maze; maze = Maze_next(root, maze)) {
    const std::string name = "maze " + std::to_string(number++);
    lines.push_back(name + text_of(maze));
    for (int32_t i = 0; i < maze_count(maze); i++) {
      const MazeNode &node = maze_nodes(maze)[i];
      lines.push_back(name + " node " + std::to_string(i) + text_of(node));
      if (!node.submaze) continue;
      if (node.submaze->parent == maze && node.submaze->parentnode == i) continue;
      lines.push_back("which is not linked to its holder");
      return lines; // the walk goes by these links
    }
  }
  return lines;
}

std::string tree_text(const Maze *root) {
  std::string text;
  for (const std::string &line : text_of_tree(root))
    text += line + "\n";
  return text;
}

std::string tree_difference(const Maze *a, const Maze *b) {
  std::vector<std::string> left = text_of_tree(a), right = text_of_tree(b);
  left.emplace_back("the end");
  right.emplace_back("the end");
  const auto [p, q] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  return p == left.end() ? "" : *p + "\nthe other: " + *q;
}
