#include "app/keys.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>

#include "app/relaxation.h"
#include "gfx/input.h"
#include "maze/attachment.h"
#include "maze/pos.h"
#include "scenarios.h"
#include "support/random.h"
#include "world/camera.h"
#include "world/move.h"

namespace {

const char *const drawn[] = {"lists",        "ballstick_ballslist", "ballstick_stickslist",
                             "voronoi",      "voronoilist",         "gantrylist",
                             "EdgeAngleRecs"};

TEST(Relaxation, SimplifyingSpeedsUpAndIsCappedAndStartsAgain) {
  Maze *path = scenario_path(3);
  Relaxation state = {1.0};
  const auto step = [&](double dt, bool held) { // how far the left end goes, of its distance of 1
    maze_nodes(path)[0].x = 0;
    maze_nodes(path)[1].x = 1;
    maze_nodes(path)[2].x = 2;
    relax_frame(&state, path, dt, held, false);
    return maze_nodes(path)[0].x;
  };
  EXPECT_DOUBLE_EQ(step(0.01, true), 0.01);
  EXPECT_DOUBLE_EQ(step(0.01, true), 0.0101);
  EXPECT_DOUBLE_EQ(step(3.0, true), 0.05 * 1.01 * 1.01);        // a slow frame moves no further
  EXPECT_DOUBLE_EQ(step(0.01, true), 0.01 * 1.01 * 1.01 * 4.0); // but its time counts
  EXPECT_DOUBLE_EQ(step(0.01, false), 0.0);
  EXPECT_DOUBLE_EQ(step(0.01, true), 0.01);
  for (int32_t frame = 0; frame < 30; ++frame)
    step(1.0, true);
  EXPECT_DOUBLE_EQ(step(0.04, true), 1.0);
  EXPECT_DOUBLE_EQ(state.simplify_rate, 1e6);
  Maze_destroy(path, 1);
}

TEST(Relaxation, WhatIsDrawnGoesBelowTheMazeAndOnlyWhenItMoved) {
  const ThreeLevels t = scenario_three_levels();
  for (Maze *maze : {t.root, t.m1, t.m2, t.n2, t.n3}) {
    for (const char *name : drawn)
      Attachment_add(maze, name, 1, nullptr);
    Attachment_add(maze, "of another kind", 1, nullptr);
  }
  Relaxation state = {1.0};
  relax_frame(&state, t.m1, 0.01, false, false);
  EXPECT_EQ(t.m1->attachments.count, std::size(drawn) + 1);
  relax_frame(&state, t.m1, 0.01, false, true);
  for (const Maze *maze : {t.root, t.m1, t.m2, t.n2, t.n3}) {
    const bool outside = maze == t.root || maze == t.m2;
    EXPECT_EQ(maze->attachments.count, outside ? std::size(drawn) + 1 : 1);
  }
  Maze_destroy(t.root, 1);
}

// Nodes that coincide are flung to no place at all by the experiment. One must be able to go on,
// and a new maze brings back everything.
TEST(Relaxation, NoPlaceAtAllCanBeLeftByANewMaze) {
  World world;
  rand_seed(1);
  World_new(&world, 2);
  world.cur = {maze_nodes(world.root)[3].submaze, 0};
  for (int32_t i = 0; i < 9; ++i)
    maze_nodes(world.cur.maze)[i].x = maze_nodes(world.cur.maze)[i].y = 1;
  Relaxation state = {1.0};
  for (int32_t frame = 0; frame < 60; ++frame) {
    relax_frame(&state, world.cur.maze, 0.5, true, true);
    World_move(&world, 0.3, -0.2);
    World_chase(&world, 0.01);
  }
  EXPECT_FALSE(is_finite(Pos_position(world.cur)));
  key_state['N'] = 0x80;
  keys_new_maze(&world);
  World_chase(&world, 0.01);
  EXPECT_TRUE(is_finite(world.camera) && is_finite(world.offset));
  World_free(&world);
  key_state['N'] = 0;
}

TEST(NewMaze, ModeIsTheNumberOfShiftAndControlOnThePressAlone) {
  World world;
  rand_seed(1);
  World_new(&world, 2);
  const int32_t held[][2] = {
      {vk_shift, vk_control}, {vk_control, vk_control}, {vk_shift, vk_shift}, {'N', 'N'}};
  for (const auto &[first, second] : held) {
    std::memset(key_state, 0, sizeof key_state);
    std::memset(key_state_prev, 0, sizeof key_state_prev);
    key_state['N'] = key_state[first] = key_state[second] = 0x80;
    const Roamer walker = {0, 0, world.cur, world.cur};
    GrowList_append(&world.roamers, &walker);
    world.time = 77;
    keys_new_maze(&world);
    EXPECT_TRUE(world.time == 0 && world.roamers.count == 0);
    const Maze *root = world.root; // the ladder's line has twelve nodes
    EXPECT_EQ(root->name == nullptr, first == 'N');
    EXPECT_EQ(root->name != nullptr && maze_count(root) == 12, first != second);
    std::memcpy(key_state_prev, key_state, sizeof key_state);
    keys_new_maze(&world);
    EXPECT_EQ(world.root, root) << "still held";
  }
  World_free(&world);
  std::memset(key_state, 0, sizeof key_state);
}

} // namespace
