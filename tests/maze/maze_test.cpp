#include "maze/maze.h"

#include <cstdio>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "maze/attachment.h"
#include "maze/edit.h"
#include "same_tree.h"
#include "scenarios.h"
#include "support/strings.h"

static std::string gone; // for each destructor that ran: its data, and what the maze still had

static void log_gone(intptr_t data, Maze *maze) {
  gone += std::to_string(data) + (maze->nodes.data ? " nodes " : " ") +
          std::to_string(maze->attachments.count) + ", ";
}

TEST(Attachment, TheLastRowOfANameComesFirst) {
  gone.clear();
  Maze *maze = Maze_new();
  Attachment_add(maze, "lists", 1, log_gone);
  Attachment_add(maze, "other", 2, nullptr);
  Attachment_add(maze, "LISTS", 3, log_gone);
  EXPECT_EQ(Attachment_find(maze, "Lists"), 3);
  for (const char *name : {"list", "liSTs", "OTHER"})
    Attachment_drop(maze, name);
  EXPECT_EQ(Attachment_find(maze, "lists"), 1);
  EXPECT_EQ(Attachment_find(maze, "other"), 0);
  EXPECT_EQ(maze->attachments.count, 1U);
  Attachment_add(maze, "last", 4, log_gone);
  Maze_destroy(maze, 0);
  EXPECT_EQ(gone, "3 nodes 3, 4 2, 1 2, ");
}

TEST(Attachment, ATreeIsDroppedFromTheLastHolderOn) {
  gone.clear();
  const ThreeLevels t = scenario_three_levels();
  intptr_t number = 0;
  for (Maze *maze : {t.root, t.m1, t.m2, t.n2, t.n3})
    Attachment_add(maze, "lists", number++, log_gone);
  Attachment_drop_tree(t.root, "lists");
  EXPECT_EQ(gone, "0 nodes 1, 2 nodes 1, 1 nodes 1, 4 nodes 1, 3 nodes 1, ");
  Maze_destroy(t.root, 1);
}

TEST(Maze, CopiesAreEqualButForCaches) {
  const ThreeLevels t = scenario_three_levels();
  str_dup_into(&t.m1->name, "1.01");
  t.m1->visited = 300;
  t.m1->bordermask = 0x81;
  t.m1->halfwidth = 0.3;
  GrowList_reserve(&t.m1->nodes, 37);
  void *slot = t.m1->nodes.data;
  t.m1->nodes.mirror = &slot;
  Attachment_add(t.m1, "lists", 1, nullptr);
  Maze *shallow = Maze_copy(t.m1, 0), *deep = Maze_copy(t.m1, 1);
  EXPECT_EQ(tree_difference(deep, t.m1), "");
  EXPECT_EQ(maze_nodes(shallow)[3].submaze, t.n3);
  Maze_destroy(shallow, 0);
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
  EXPECT_EQ(maze_count(maze_nodes(deep)[2].submaze), 3); // is its own
  Maze_destroy(deep, 1);
}

TEST(Maze, MergingRaisesTheRowsOfTheSecond) {
  const ThreeLevels t = scenario_three_levels();
  Maze *path = scenario_path(5), *merged = Maze_merged(path, t.root);
  Maze_destroy(path, 1);
  for (int32_t i = 0; i < 4; i++) {
    const MazeNode &node = maze_nodes(merged)[5 + i], &source = maze_nodes(t.root)[i];
    ASSERT_EQ(node.degree, source.degree);
    for (uint32_t r = 0; r < node.degree; r++)
      EXPECT_EQ(node.nbr[r], source.nbr[r] + 5);
    if (!source.submaze) continue;
    EXPECT_EQ(tree_difference(node.submaze, source.submaze), "");
    EXPECT_EQ(node.submaze->parent, merged);
    EXPECT_EQ(node.submaze->parentnode, 5 + i);
  }
  Maze_destroy(t.root, 1);
  EXPECT_EQ(maze_nodes(merged)[4].degree, 1U);
  Maze_destroy(merged, 1);
}

TEST(Maze, DepthHasNoLimit) {
  Maze *root = scenario_deep(100000), *copy = Maze_copy(root, 1);
  EXPECT_EQ(tree_difference(copy, root), "");
  Attachment_add(maze_nodes(root)[1].submaze, "lists", 1, nullptr);
  Attachment_drop_tree(root, "lists");
  EXPECT_EQ(maze_nodes(root)[1].submaze->attachments.count, 0U);
  Maze_destroy(root, 1);
  Maze_destroy(copy, 1);
}

TEST(Maze, DumpReportsFaults) {
  const std::string path = testing::TempDir() + "maze_dump_test." + std::to_string(getpid());
  std::remove(path.c_str());
  Maze *maze = scenario_path(2);
  EXPECT_EQ(Maze_dump(maze, path.c_str(), "good"), 0);
  MazeNode_append_row(&maze_nodes(maze)[1], 1);
  EXPECT_EQ(Maze_dump(maze, path.c_str(), "loop"), 1);
  MazeNode_append_row(&maze_nodes(maze)[1], 0);
  EXPECT_EQ(Maze_dump(maze, path.c_str(), "both"), 2);
  std::string text;
  std::getline(std::ifstream(path), text, '\0');
  EXPECT_EQ(text.substr(0, 65),
            "---------- good\n2 nodes\nNode 0 is joined to 1\nNode 1 is joined to");
  EXPECT_EQ(text.substr(text.find("both")),
            "both\n2 nodes\nNode 0 is joined to 1\n"
            "Node 1 is joined to 0 1 0\nERROR: node 1 is joined to itself\n"
            "ERROR: node 1 is joined to 0 twice\n");
  EXPECT_EQ(Maze_dump(maze, (path + "/no/folder").c_str(), "lost"), -1);
  std::remove(path.c_str());
  Maze_destroy(maze, 1);
}
