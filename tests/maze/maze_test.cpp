#include "maze/maze.h"

#include <cstdio>
#include <fstream>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "maze/attachment.h"
#include "maze/edit.h"
#include "maze/pos.h"
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

TEST(Attachment, DroppingFromATreeGoesFromTheLastHolder) {
  gone.clear();
  const ThreeLevels t = scenario_three_levels();
  intptr_t number = 0;
  for (Maze *maze : {t.root, t.m1, t.m2, t.n2, t.n3})
    Attachment_add(maze, "voronoilist", number++, log_gone);
  Attachment_drop_tree(t.root, "voronoilist");
  EXPECT_EQ(gone, "0 nodes 1, 2 nodes 1, 1 nodes 1, 4 nodes 1, 3 nodes 1, ");
  Maze_destroy(t.root, 1);
}

TEST(Maze, CopiesAreEqualButForCaches) {
  Maze *above = scenario_path(3), *source = scenario_path(9), *below = scenario_path(2);
  scenario_hold(above, 2, source);
  scenario_hold(source, 8, below);
  str_dup_into(&source->name, "1.01");
  source->visited = 3;
  source->bordermask = 0x81;
  source->halfwidth = 0.3;
  void *slot = source->nodes.data;
  source->nodes.mirror = &slot;
  Attachment_add(source, "lists", 1, nullptr);
  Maze *shallow = Maze_copy(source, 0), *deep = Maze_copy(source, 1);
  const auto links = [](const Maze *m) {
    return std::tuple(m->parent, m->parentnode, m->nodes.growth, m->nodes.capacity,
                      m->nodes.initial);
  };
  EXPECT_EQ(tree_difference(deep, source), "");
  for (const Maze *copy : {shallow, deep}) {
    EXPECT_EQ(links(copy), links(source));
    EXPECT_EQ(copy->nodes.mirror, nullptr);
    EXPECT_EQ(copy->attachments.count, 0U);
    EXPECT_GT(copy->serial, source->serial);
  }
  EXPECT_EQ(maze_nodes(shallow)[8].submaze, below);
  Maze_destroy(shallow, 0);
  EXPECT_EQ(tree_difference(deep, source), "");
  Maze_destroy(above, 1);
  EXPECT_EQ(slot, nullptr);
  EXPECT_EQ(maze_count(maze_nodes(deep)[8].submaze), 2);
  Maze_destroy(deep, 1);
}

TEST(Maze, MergingJoinsNoEdgesOfTheTwoSides) {
  const ThreeLevels a = scenario_three_levels(), b = scenario_three_levels();
  uint32_t colour = 1;
  scenario_paint(b.root, &colour);
  Maze *merged = Maze_merged(a.root, b.root);
  Maze_destroy(a.root, 1);
  ASSERT_EQ(maze_count(merged), 8);
  ASSERT_STREQ(scenario_fault(merged), nullptr);
  EXPECT_EQ(maze_nodes(merged)[3].degree, 1U);
  EXPECT_EQ(maze_nodes(merged)[4].nbr[0], 5);
  EXPECT_EQ(maze_nodes(merged)[4].edge[0].colour, maze_nodes(b.root)[0].edge[0].colour);
  EXPECT_EQ(tree_difference(maze_nodes(merged)[5].submaze, b.m1), "");
  EXPECT_TRUE(Pos_equal(Pos_submaze_enter(merged, 7, 6), {maze_nodes(merged)[6].submaze, 1}));
  Maze_destroy(b.root, 1);
  EXPECT_STREQ(scenario_fault(merged), nullptr);
  Maze_destroy(merged, 1);
}

TEST(Maze, DepthHasNoLimit) {
  Maze *root = scenario_deep(200000);
  Maze *copy = Maze_merged(root, root);
  EXPECT_STREQ(scenario_fault(copy), nullptr);
  for (Maze *maze = copy; maze; maze = maze_nodes(maze)[1].submaze)
    Attachment_add(maze, "lists", 1, nullptr);
  Attachment_drop_tree(copy, "lists");
  for (Maze *maze = copy; maze; maze = maze_nodes(maze)[1].submaze)
    ASSERT_EQ(maze->attachments.count, 0U);
  Maze_destroy(root, 1);
  Maze_destroy(copy, 1);
}

TEST(Maze, DumpReportsFaults) {
  const std::string path = testing::TempDir() + "maze_dump_test.txt";
  std::remove(path.c_str());
  Maze *maze = scenario_path(3);
  EXPECT_EQ(Maze_dump(maze, path.c_str(), "good"), 0);
  MazeNode_append_row(&maze_nodes(maze)[0], 0);
  EXPECT_EQ(Maze_dump(maze, path.c_str(), "loop"), 1);
  MazeNode_append_row(&maze_nodes(maze)[2], 1);
  EXPECT_EQ(Maze_dump(maze, path.c_str(), "both"), 2);
  std::string text;
  std::getline(std::ifstream(path), text, '\0');
  EXPECT_EQ(text.substr(0, 94), "---------- good\n3 nodes\nNode 0 is joined to 1\n"
                                "Node 1 is joined to 0 2\nNode 2 is joined to 1\n--");
  EXPECT_EQ(text.substr(text.find("both")), "both\n3 nodes\nNode 0 is joined to 1 0\n"
                                            "ERROR: node 0 is joined to itself\n"
                                            "Node 1 is joined to 0 2\nNode 2 is joined to 1 1\n"
                                            "ERROR: node 2 is joined to 1 twice\n");
  EXPECT_EQ(Maze_dump(maze, (testing::TempDir() + "no/such/folder").c_str(), "lost"), -1);
  std::remove(path.c_str());
  Maze_destroy(maze, 1);
}
