#include "world/session.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "maze/edit.h"
#include "maze/lifetime.h"
#include "maze/pos.h"
#include "own_folder.h"
#include "scenarios.h"
#include "tree_text.h"
#include "world/roamer.h"
#include "world/small_world.h"

namespace {

using Bytes = std::vector<uint8_t>;

const std::string path = testing::TempDir() + "vorel_session_test." + std::to_string(getpid());

Bytes bytes_of(const World &world) {
  EXPECT_TRUE(World_save(&world, path.c_str()));
  const std::string bytes = OwnFolder::contents(path);
  std::filesystem::remove(path);
  return Bytes(bytes.begin(), bytes.end());
}

// The bytes that session.txt describes, and the indices of those with a mark.
struct Layout {
  Bytes bytes;
  std::vector<size_t> marked;
  std::string text;
};

Layout layout(char mark) {
  Layout layout;
  std::ifstream file(VOREL_SESSION);
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string type, value, marks;
    words >> type >> value >> marks;
    if (type == "=") layout.text += line.substr(2) + "\n";
    if (type == "=" || type == "#") continue;
    const uint64_t number =
        type == "f64" ? std::bit_cast<uint64_t>(std::stod(value)) : std::stoull(value, nullptr, 0);
    for (int shift = 0; shift < std::stoi(type.substr(1)); shift += 8) {
      if (marks[0] == mark) layout.marked.push_back(layout.bytes.size());
      layout.bytes.push_back(static_cast<uint8_t>(number >> shift));
    }
  }
  return layout;
}

// Without a root if the bytes are rejected.
World read_world(const Bytes &bytes) {
  OwnFolder::write(path, std::string(bytes.begin(), bytes.end()));
  World world = {};
  World_load(&world, path.c_str());
  std::filesystem::remove(path);
  return world;
}

std::string text_of(const World &world) {
  std::ostringstream out;
  out << tree_text(world.root) << "time " << world.time << ", zoom " << world.zoom << ", trail "
      << world.showtrail << ", " << world.roamers.count << " Roamers\n";
  for (const Vec3 v : {Mat3_row(world.view, 0), Mat3_row(world.view, 1), Mat3_row(world.view, 2),
                       world.camera, Pos_position(world.cur), world.offset})
    out << "(" << v.x << " " << v.y << " " << v.z << ")\n";
  return out.str();
}

TEST(Session, BytesMatchTheDescription) {
  Layout file = layout('?');
  const Bytes expected = file.bytes;
  for (const size_t at : file.marked)
    file.bytes[at] ^= 0xAB;
  World world = read_world(file.bytes);
  ASSERT_NE(world.root, nullptr);
  EXPECT_EQ(text_of(world), file.text);
  // These are not saved.
  world.offset = {1, 2, 3};
  world.root->halfwidth = 0.3;
  EXPECT_EQ(bytes_of(world), expected);
  World_free(&world);
}

TEST(Session, TruncatedAndFlippedFilesAreRejected) {
  const Layout good = layout('!');
  for (size_t size = 0; size < good.bytes.size(); size++)
    EXPECT_EQ(read_world({good.bytes.data(), &good.bytes[size]}).root, nullptr) << size << " bytes";
  for (const size_t at : good.marked)
    for (int bit = 0; bit < 8; bit++) {
      Bytes flipped = good.bytes;
      flipped[at] = static_cast<uint8_t>(flipped[at] ^ 1 << bit);
      EXPECT_EQ(read_world(flipped).root, nullptr) << "bit " << bit << " of byte " << at;
    }
}

// Any other byte in the rows gives another Roamer, or none at all. Any other length gives none.
TEST(Session, RoamersAreKeptAndDamageRemovesOnlyThem) {
  SmallWorld world(scenario_three_levels().root);
  world.cur.node = 3;
  World_set_roamers(&world, 2);
  World_step_roamers(&world, 1);
  World_set_roamers(&world, 3); // the last one has no `prev`
  const Bytes with = bytes_of(world);
  World_set_roamers(&world, 0);
  const Bytes without = bytes_of(world);
  int kept = 0, removed = 0;
  for (size_t at = without.size(); at <= with.size(); at++) {
    Bytes flipped = with, resized = with;
    if (at < with.size()) flipped[at] ^= 0xC0;
    resized.resize(at < with.size() ? at : at + 1);
    for (const Bytes &damaged : {flipped, resized}) {
      World read = read_world(damaged);
      ASSERT_NE(read.root, nullptr);
      const Bytes again = bytes_of(read);
      kept += again == damaged;
      removed += again == without;
      World_free(&read);
    }
  }
  EXPECT_EQ(kept + removed, 2 * (8 + 3 * 32 + 1) + 1) << "a session without a block is both";
  EXPECT_GT(removed, 52 + 8 + 3 * 32 + 1);
}

TEST(Session, DeepTreesAndEmptyMazesSurvive) {
  SmallWorld saved(scenario_deep(100000));
  Maze *alone = scenario_path(1);
  scenario_hold(alone, 0, Maze_new()); // no edge leads there
  Maze_append(saved.root, alone);
  maze_nodes(saved.root)[0].x = saved.camera.y = std::nan("");
  ASSERT_TRUE(World_save(&saved, path.c_str()));
  World world;
  ASSERT_EQ(World_load(&world, path.c_str()), SessionLoad::loaded);
  std::filesystem::remove(path);
  for (Maze *root : {world.root, saved.root})
    Maze_append(root, alone); // after a load this moves the nodes out of the memory that they share
  Maze_destroy(alone, 1);
  EXPECT_TRUE(tree_text(world.root) == tree_text(saved.root));
  EXPECT_EQ(length(world.camera - Vec3{0, 0, saved.zoom}), 0.0); // the default
  World_free(&world);
}

TEST(Session, MalformedTreesAreRejected) {
  using Damage = std::function<void(const ThreeLevels &, World *)>;
  const Damage damages[] = {
      [](const ThreeLevels &t, World *) { MazeNode_remove_slot(&maze_nodes(t.m1)[0], 0); },
      [](const ThreeLevels &t, World *) { Maze_join(t.n2, 0, 1); },
      [](const ThreeLevels &t, World *) { Maze_delete_node(t.n3, 1); }, // two doors, one node
      [](const ThreeLevels &t, World *) { scenario_hold(t.n3, 0, scenario_path(4)); }, // a door
      [](const ThreeLevels &t, World *world) { world->cur.maze = t.m1; },              // a holder
      [](const ThreeLevels &, World *world) { world->cur.node = 3; },
      [](const ThreeLevels &, World *world) { world->cur.node = -1; },
  };
  for (const Damage &damage : damages) {
    const ThreeLevels t = scenario_three_levels();
    SmallWorld world(t.root);
    world.cur = {t.n2, 2};
    damage(t, &world);
    EXPECT_EQ(read_world(bytes_of(world)).root, nullptr) << &damage - damages;
  }
}

// The numbers are time, view, camera and zoom.
TEST(Session, InvalidNumbersGetDefaults) {
  const double nan = std::nan("");
  const struct {
    size_t index;
    double number;
    std::string sanitised;
  } bad[] = {
      {0, -0.5, "time 0, zoom 40.1, trail 258"},
      {0, nan, "time 0, zoom 40.1, trail 258"},
      {1, nan, "(1 0 0)\n(0 1 0)\n(0 0 1)\n(-1.1 -2.2 -3.3)"},
      {9, nan, "(1 0 0)\n(0 1 0)\n(0 0 1)\n(-1.1 -2.2 -3.3)"},
      {10, nan, "(0.31 0.32 0.33)\n(13.431 13.082 13.233)"},
      {12, HUGE_VAL, "(0.31 0.32 0.33)\n(13.431 13.082 13.233)"},
      {13, 0.0, "time 86400.1, zoom 20,"},
      {13, HUGE_VAL, "time 86400.1, zoom 20,"},
  };
  for (const auto &[index, number, sanitised] : bad) {
    Bytes bytes = layout('!').bytes;
    std::memcpy(&bytes[bytes.size() - 144 + 8 * index], &number, sizeof number);
    World world = read_world(bytes);
    const std::string text = text_of(world);
    EXPECT_NE(text.find(sanitised), std::string::npos) << index << " is " << number << "\n" << text;
    World_free(&world);
  }
}

} // namespace
