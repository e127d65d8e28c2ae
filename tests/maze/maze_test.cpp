#include "maze/maze.h"

#include <cstdio>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "maze/attachment.h"
#include "maze/edit.h"
#include "maze/lifetime.h"
#include "maze/pos.h"
#include "maze/reach.h"
#include "scenarios.h"
#include "support/strings.h"
#include "tree_text.h"

namespace {

std::string dropped; // for each destructor call: its data, and what the maze still had

void log_drop(intptr_t data, Maze *maze) {
  dropped += std::to_string(data) + (maze->nodes.data ? " nodes " : " ") +
             std::to_string(maze->attachments.count) + ", ";
}

TEST(Attachment, LastOfANameIsDroppedFirst) {
  dropped.clear();
  const ThreeLevels t = scenario_three_levels();
  Attachment_add(t.root, "cache", 1, log_drop);
  Attachment_add(t.root, "other", 2, nullptr);
  Attachment_add(t.root, "CACHE", 3, log_drop);
  Attachment_add(t.m1, "cache", 4, log_drop);
  Attachment_add(t.n3, "cache", 5, log_drop);
  EXPECT_EQ(Attachment_find(t.root, "Cache"), 3);
  for (const char *name : {"cach", "caCHe", "OTHER"})
    Attachment_drop_tree(t.root, name);
  EXPECT_EQ(Attachment_find(t.root, "cache"), 1);
  EXPECT_EQ(Attachment_find(t.root, "other"), 0);
  Attachment_add(t.root, "last", 6, log_drop);
  Maze_destroy(t.root, 1);
  EXPECT_EQ(dropped, "3 nodes 3, 4 nodes 1, 5 nodes 1, 6 2, 1 2, ");
}

TEST(Maze, CopiesEqualTheirSourceWithoutAttachments) {
  const ThreeLevels t = scenario_three_levels();
  str_dup_into(&t.m1->name, "1.01");
  t.m1->visited = 300;
  t.m1->bordermask = 0x81;
  t.m1->halfwidth = 0.3;
  GrowList_reserve(&t.m1->nodes, 37);
  t.m1->nodes.growth = 61;
  void *slot = t.m1->nodes.data;
  t.m1->nodes.mirror = &slot;
  Attachment_add(t.m1, "cache", 1, nullptr);
  Maze *deep = Maze_copy(t.m1, 1);
  EXPECT_EQ(tree_text(deep), tree_text(t.m1));
  for (Maze *shallow : {Maze_copy(t.m1, 0), Maze_reachable_copy(t.m1, 0)}) {
    EXPECT_EQ(maze_nodes(shallow)[3].submaze, t.n3);
    Maze_destroy(shallow, 0);
  }
  for (const Maze *copy : {deep, maze_nodes(deep)[3].submaze}) {
    const Maze *source = copy == deep ? t.m1 : t.n3;
    EXPECT_EQ(copy->parent, copy == deep ? t.root : deep);
    EXPECT_EQ(copy->nodes.growth, source->nodes.growth);
    EXPECT_EQ(copy->nodes.capacity, source->nodes.capacity);
    EXPECT_EQ(copy->nodes.initial, source->nodes.initial);
    EXPECT_EQ(copy->nodes.mirror, nullptr);
    EXPECT_EQ(copy->attachments.count, 0U);
    EXPECT_GT(copy->serial, source->serial);
  }
  Maze_destroy(t.root, 1);
  EXPECT_EQ(slot, nullptr);
  EXPECT_EQ(maze_count(maze_nodes(deep)[2].submaze), 3); // a copy
  Maze_destroy(deep, 1);
}

TEST(Maze, ConnectedGivesTheDistanceOrAComponentSize) {
  Maze *ring = scenario_path(6), *tail = scenario_path(3), *all = Maze_merged(ring, tail);
  Maze_join(all, 0, 5);
  const struct {
    int32_t a, b, length, out;
  } ways[] = {{2, 2, 1, 0}, {2, 3, 1, 1},  {0, 4, 2, 2}, {1, 4, 3, 3},
              {8, 6, 2, 2}, {0, 7, 0, -3}, {8, 1, 0, 3}};
  for (const auto &way : ways) {
    int32_t out = -999;
    EXPECT_EQ(Maze_connected(all, way.a, way.b, &out), way.length) << way.a << " " << way.b;
    EXPECT_EQ(out, way.out) << way.a << " " << way.b;
  }
  for (Maze *maze : {ring, tail, all})
    Maze_destroy(maze, 0);
}

TEST(Maze, DumpReportsDoubledEdgesAndLoops) {
  const std::string path = testing::TempDir() + "maze_dump_test." + std::to_string(getpid());
  std::remove(path.c_str());
  Maze *maze = scenario_path(2);
  MazeNode_append_slot(&maze_nodes(maze)[1], 1);
  MazeNode_append_slot(&maze_nodes(maze)[1], 0);
  EXPECT_EQ(MazeNode_find_slot(maze_nodes(maze)[1], 0), 2); // the last one
  EXPECT_EQ(Maze_dump(maze, path.c_str(), "both"), 2);
  std::string text;
  std::getline(std::ifstream(path), text, '\0');
  EXPECT_EQ(text, "---------- both\n2 nodes\nNode 0 is joined to 1\n"
                  "Node 1 is joined to 0 1 0\nERROR: node 1 is joined to itself\n"
                  "ERROR: node 1 is joined to 0 twice\n");
  EXPECT_EQ(Maze_dump(maze, (path + "/no/folder").c_str(), "lost"), -1);
  std::remove(path.c_str());
  Maze_destroy(maze, 1);
}

} // namespace
