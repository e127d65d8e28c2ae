#include "maze/visit.h"

#include <string>

#include <gtest/gtest.h>

#include "maze/attachment.h"
#include "maze/pos.h"
#include "scenarios.h"

static const char *const names[] = {"lists",        "ballstick_ballslist", "ballstick_stickslist",
                                    "voronoi",      "voronoilist",         "gantrylist",
                                    "EdgeAngleRecs"};
static std::string dropped; // a letter of the name and f or t for each destructor that ran
static Maze *from_maze;

static void log_drop(intptr_t data, Maze *maze) {
  dropped += "LBSvVGE"[data];
  dropped += maze == from_maze ? "f " : "t ";
}

struct Times {
  int rows, selves, all_visited;
};

static void count_times(const Maze *maze, double MazeEdge::*field, Times *times) {
  times->all_visited += maze->visited;
  for (int32_t i = maze_count(maze); i-- > 0;) {
    const MazeNode &node = maze_nodes(maze)[i];
    times->selves += node.self.*field != never;
    for (uint32_t r = node.degree; r-- > 0;)
      times->rows += node.edge[r].*field != never;
    if (node.submaze) count_times(node.submaze, field, times);
  }
}

struct Step {
  const char *what;
  Maze *ThreeLevels::*from;
  int32_t from_node;
  Maze *ThreeLevels::*to;
  int32_t to_node;
  Maze *ThreeLevels::*level; // where the times go; null for nowhere
  int32_t a, b;
  uint32_t from_bits, to_bits;
};

static constexpr auto root = &ThreeLevels::root, m1 = &ThreeLevels::m1, m2 = &ThreeLevels::m2,
                      n2 = &ThreeLevels::n2, n3 = &ThreeLevels::n3;
static const Step steps[] = {
    {"same maze", n2, 0, n2, 1, n2, 0, 1, 0, 0},
    {"out onto a plain node", m2, 1, root, 3, root, 2, 3, 2, 0},
    {"in from outside", root, 3, m2, 1, root, 3, 2, 0, 2},
    {"door to door", m1, 1, m2, 0, root, 1, 2, 2, 1},
    {"door to door, a level down", n3, 0, n2, 1, m1, 3, 2, 1, 2},
    {"no such step", root, 0, n3, 0, nullptr, 0, 0, 0, 0},
};

static void expect_times(const ThreeLevels &t, const Step &step, double MazeEdge::*field) {
  Times times{};
  count_times(t.root, field, &times);
  EXPECT_EQ(times.rows, step.level ? 2 : 0);
  EXPECT_EQ(times.selves, step.level ? 1 : 0);
  if (!step.level) return;
  const MazeNode *nodes = maze_nodes(t.*step.level);
  EXPECT_EQ(nodes[step.a].edge[MazeNode_row(nodes[step.a], step.b)].*field, 7.5);
  EXPECT_EQ(nodes[step.b].edge[MazeNode_row(nodes[step.b], step.a)].*field, 7.5);
  EXPECT_EQ(nodes[step.b].self.*field, 7.5);
}

TEST(Visit, StepsLeaveTheirMarks) {
  for (const Step &step : steps)
    for (const bool user : {true, false}) {
      SCOPED_TRACE(step.what);
      const ThreeLevels t = scenario_three_levels();
      from_maze = t.*step.from;
      dropped.clear();
      for (Maze *maze : {t.root, t.m1, t.m2, t.n2, t.n3})
        for (intptr_t i = 0; i < 7; i++)
          Attachment_add(maze, names[i], i, log_drop);
      const auto mark = user ? Pos_mark_usertime : Pos_mark_roamertime;
      mark(t.*step.from, step.from_node, t.*step.to, step.to_node, 0.0);
      EXPECT_EQ(dropped, !user                  ? ""
                         : step.from == step.to ? "Lf "
                                                : "Lf Lt Bf Sf Bt St Vf Vt Gf Gt ");
      mark(t.*step.from, step.from_node, t.*step.to, step.to_node, 7.5);
      expect_times(t, step, user ? &MazeEdge::usertime : &MazeEdge::roamertime);
      Times others{};
      count_times(t.root, user ? &MazeEdge::roamertime : &MazeEdge::usertime, &others);
      EXPECT_EQ(others.rows + others.selves, 0);
      const bool visit = user && step.level != nullptr; // the second arrival adds none
      EXPECT_EQ(others.all_visited, visit);
      EXPECT_EQ(step.level ? (t.*step.level)->visited : 0, visit);
      for (Maze *maze : {t.root, t.m1, t.m2, t.n2, t.n3})
        EXPECT_EQ(maze->bordermask, !user                  ? 0
                                    : maze == t.*step.from ? step.from_bits
                                    : maze == t.*step.to   ? step.to_bits
                                                           : 0);
      Maze_destroy(t.root, 1);
    }
}
