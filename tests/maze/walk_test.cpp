// Steps along each edge of a tree, in both directions.
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "maze/attachment.h"
#include "maze/attachment_names.h"
#include "maze/lifetime.h"
#include "maze/pos.h"
#include "maze/visit.h"
#include "scenarios.h"

namespace {

struct Named {
  std::string name;
  Maze *maze;
};

std::vector<Named> named_mazes() {
  const ThreeLevels t = scenario_three_levels();
  const std::vector<Named> all = {
      {"root", t.root}, {"m1", t.m1}, {"m2", t.m2}, {"n2", t.n2}, {"n3", t.n3}};
  uint32_t colour = 0;
  for (const auto &[label, maze] : all) {
    maze->bordermask = 0x40;
    for (const char *name : attachments_stale_after_move)
      Attachment_add(maze, name, 1, nullptr);
    for (int32_t i = 0; i < maze_count(maze); i++)
      for (uint32_t r = 0; r < maze_nodes(maze)[i].degree; r++)
        maze_nodes(maze)[i].edge[r].colour = ++colour;
  }
  return all;
}

std::string name_of(const std::vector<Named> &all, Pos pos) {
  std::string name;
  for (const Named &one : all)
    if (one.maze == pos.maze) name = one.name + "." + std::to_string(pos.node);
  return name;
}

// Writes which edges and nodes have the time, and what else differs from a new tree.
void write_marks(const std::vector<Named> &all, double MazeEdge::*time, double now,
                 std::ostream &out) {
  for (const auto &[name, maze] : all) {
    for (int32_t i = 0; i < maze_count(maze); i++) {
      const MazeNode &node = maze_nodes(maze)[i];
      for (uint32_t r = 0; r < node.degree; r++)
        if (node.edge[r].*time == now) out << " " << name << "." << i << "-" << node.nbr[r];
      if (node.self.*time == now) out << " " << name << "." << i;
    }
    if (maze->visited != 0) out << ", visited " << maze->visited;
    if (maze->bordermask != 0x40) out << ", borders of " << name << " " << maze->bordermask;
    if (maze->attachments.count == std::size(attachments_stale_after_move)) continue;
    out << ", " << name << " keeps";
    for (uint32_t i = 0; i < maze->attachments.count; i++)
      out << " " << rows<Attachment>(maze->attachments)[i].name;
  }
  out << "\n";
}

void write_step(const std::vector<Named> &all, Pos from, Pos to, std::ostream &out) {
  const auto walk = [&](auto mark) {
    for (const double now : {0.0, 7.5}) // the second arrival is not counted
      mark(from.maze, from.node, to.maze, to.node, now);
  };
  walk(Pos_mark_roamertime);
  out << name_of(all, from) << " to " << name_of(all, to) << "\n  Roamer:";
  write_marks(all, &MazeEdge::roamertime, 7.5, out);
  walk(Pos_mark_usertime);
  out << "  user:";
  write_marks(all, &MazeEdge::usertime, 7.5, out);
}

TEST(Walk, StepsMatchTheFile) {
  std::ostringstream steps;
  for (size_t m = 0; m < 5; m++)
    for (int32_t node = 0; node < 4; node++)
      for (int32_t e = 0; e < 3; e++) {
        const std::vector<Named> all = named_mazes();
        Maze *maze = all[m].maze;
        Pos ways[pos_max_edges];
        MazeEdge edges[pos_max_edges];
        const bool place = node < maze_count(maze) && !maze_nodes(maze)[node].submaze;
        if (place && e < Pos_alledges(maze, node, ways, edges)) {
          steps << "edge " << edges[e].colour << ", ";
          write_step(all, {maze, node}, ways[e], steps);
        }
        Maze_destroy(all[0].maze, 1);
      }
  const std::vector<Named> all = named_mazes();
  write_step(all, {all[0].maze, 0}, {all[4].maze, 0}, steps); // not joined
  Maze_destroy(all[0].maze, 1);
  std::string text;
  std::getline(std::ifstream(VOREL_STEPS), text, '\0');
  EXPECT_EQ(steps.str(), text);
}

} // namespace
