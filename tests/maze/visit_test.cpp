#include "maze/visit.h"

#include <string>

#include <gtest/gtest.h>

#include "maze/attachment.h"
#include "maze/pos.h"
#include "same_tree.h"
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

static ThreeLevels marked_before() {
  const ThreeLevels t = scenario_three_levels();
  for (Maze *maze : {t.root, t.m1, t.m2, t.n2, t.n3})
    maze->bordermask = 0x40;
  return t;
}

// The tree that a step leaves, written down by hand.
static ThreeLevels marked_after(const Step &step, bool user, double time) {
  const ThreeLevels t = marked_before();
  if (step.level) {
    const auto field = user ? &MazeEdge::usertime : &MazeEdge::roamertime;
    MazeNode &a = maze_nodes(t.*step.level)[step.a], &b = maze_nodes(t.*step.level)[step.b];
    a.edge[MazeNode_row(a, step.b)].*field = time;
    b.edge[MazeNode_row(b, step.a)].*field = time;
    b.self.*field = time;
    (t.*step.level)->visited = user;
  }
  if (!user) return t;
  (t.*step.from)->bordermask |= step.from_bits;
  (t.*step.to)->bordermask |= step.to_bits;
  return t;
}

TEST(Visit, StepsLeaveTheirMarks) {
  for (const Step &step : steps)
    for (const bool user : {true, false}) {
      SCOPED_TRACE(step.what);
      const ThreeLevels t = marked_before();
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
      for (const double time : {0.0, 7.6}) { // the second arrival is not counted
        mark(t.*step.from, step.from_node, t.*step.to, step.to_node, time);
        const ThreeLevels wanted = marked_after(step, user, time);
        EXPECT_EQ(tree_difference(t.root, wanted.root), "");
        Maze_destroy(wanted.root, 1);
      }
      Maze_destroy(t.root, 1);
    }
}
