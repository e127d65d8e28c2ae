#include "world/session.h"

#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "maze/edit.h"
#include "same_tree.h"
#include "scenarios.h"
#include "world/small_world.h"

namespace {

using Bytes = std::vector<uint8_t>;

// Gives each test a file of its own, which goes with it.
struct Session : testing::Test {
  const std::string path = testing::TempDir() + "vorel_session_test." + std::to_string(getpid());

  Bytes bytes_of(const World &world) const {
    EXPECT_TRUE(World_save(&world, path.c_str()));
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
  }
  void TearDown() override { std::filesystem::remove(path); }
};

// What session.txt describes, and the places of the bytes with a mark.
struct Layout {
  Bytes bytes;
  std::vector<size_t> marked;
  std::string tree;
};

Layout layout(char mark) {
  Layout layout;
  std::ifstream file(VOREL_SESSION);
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string type, value, marks;
    words >> type >> value >> marks;
    if (type == "=") layout.tree += line.substr(2) + "\n";
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

// Without a root if the bytes are refused.
World read_world(const Bytes &bytes) {
  ByteReader in = memory_reader(bytes.data(), bytes.size());
  World world = {};
  World_read(&world, &in);
  return world;
}

std::vector<double> numbers_of(const World &world) {
  std::vector<double> numbers = {world.time};
  numbers.insert(numbers.end(), &world.view.m[0][0], &world.view.m[0][0] + 9);
  for (const Vec3 v : {world.camera, world.offset})
    numbers.insert(numbers.end(), {v.x, v.y, v.z});
  numbers.push_back(world.zoom);
  numbers.push_back(world.showtrail);
  return numbers;
}

TEST_F(Session, FilesHoldWhatIsDescribed) {
  Layout file = layout('?');
  const Bytes wanted = file.bytes;
  for (const size_t at : file.marked)
    file.bytes[at] ^= 0xAB;
  World world = read_world(file.bytes);
  ASSERT_NE(world.root, nullptr);
  EXPECT_EQ(tree_text(world.root), file.tree);
  const std::vector<double> numbers = {86400.1, 0.11, 0.12, 0.13, 0.21, 0.22, 0.23, 0.31, 0.32,
                                       0.33,    -1.1, -2.2, -3.3, 0,    0,    0,    40.1, 258};
  EXPECT_EQ(numbers_of(world), numbers);
  Maze *deepest = maze_nodes(maze_nodes(world.root)[0].submaze)[1].submaze;
  EXPECT_TRUE(Pos_equal(world.cur, {deepest, 1}));
  // What no file keeps.
  const Roamer walker = {1, 1, world.cur, Pos_null};
  GrowList_append(&world.roamers, &walker);
  world.offset = {1, 2, 3};
  deepest->halfwidth = 0.3;
  EXPECT_EQ(bytes_of(world), wanted);
  World loaded = world;
  ASSERT_EQ(World_load(&loaded, path.c_str()), SessionLoad::loaded);
  EXPECT_EQ(tree_text(loaded.root), file.tree);
  EXPECT_EQ(numbers_of(loaded), numbers);
  EXPECT_EQ(loaded.roamers.count, 0U);
  World_free(&loaded);
  World_free(&world);
}

TEST_F(Session, LoadsSayWhatFailed) {
  World world;
  EXPECT_EQ(World_load(&world, path.c_str()), SessionLoad::absent);
  std::ofstream(path) << "?";
  EXPECT_EQ(World_load(&world, path.c_str()), SessionLoad::damaged);
  std::filesystem::remove(path);
  std::filesystem::create_directory(path);
  EXPECT_EQ(World_load(&world, path.c_str()), SessionLoad::unreadable);
  EXPECT_EQ(errno, EISDIR);
}

TEST_F(Session, ShortLongAndFlippedFilesAreRefused) {
  const Layout good = layout('!');
  for (size_t size = 0; size < good.bytes.size(); size++) {
    const Bytes start(good.bytes.begin(), good.bytes.begin() + static_cast<long>(size));
    EXPECT_EQ(read_world(start).root, nullptr) << size << " bytes";
  }
  Bytes longer = good.bytes;
  longer.push_back(0);
  EXPECT_EQ(read_world(longer).root, nullptr);
  for (const size_t at : good.marked)
    for (int bit = 0; bit < 8; bit++) {
      Bytes flipped = good.bytes;
      flipped[at] = static_cast<uint8_t>(flipped[at] ^ 1 << bit);
      EXPECT_EQ(read_world(flipped).root, nullptr) << "bit " << bit << " of byte " << at;
    }
}

TEST_F(Session, DeepTreesAndEmptyMazesComeBack) {
  SmallWorld saved(scenario_deep(100000));
  Maze *alone = scenario_path(1);
  scenario_hold(alone, 0, Maze_new()); // no edge leads there
  Maze_append(saved.root, alone);
  Maze_destroy(alone, 1);
  World world = read_world(bytes_of(saved));
  EXPECT_EQ(tree_difference(world.root, saved.root), "");
  World_free(&world);
}

TEST_F(Session, TreesThatNoWalkCouldUseAreRefused) {
  using Damage = std::function<void(const ThreeLevels &, World *)>;
  const Damage damages[] = {
      [](const ThreeLevels &t, World *) { MazeNode_remove_row(&maze_nodes(t.m1)[0], 0); },
      [](const ThreeLevels &t, World *) { Maze_join(t.n2, 0, 1); },
      [](const ThreeLevels &t, World *) { Maze_delete_node(t.n3, 1); }, // two doors, one node
      [](const ThreeLevels &t, World *) { scenario_hold(t.n3, 0, scenario_path(4)); }, // a door
      [](const ThreeLevels &t, World *world) { world->cur.maze = t.m1; }, // a container
      [](const ThreeLevels &, World *world) { world->cur.node = 3; },
      [](const ThreeLevels &, World *world) { world->cur.node = -1; },
      [](const ThreeLevels &, World *world) { world->cur.maze = nullptr; },
  };
  for (const Damage &damage : damages) {
    const ThreeLevels t = scenario_three_levels();
    SmallWorld world(t.root);
    world.cur = {t.n2, 2};
    damage(t, &world);
    EXPECT_EQ(read_world(bytes_of(world)).root, nullptr) << &damage - damages;
  }
}

// The 14 numbers of the block: time, view, camera, zoom.
TEST_F(Session, NumbersThatMakeNoSenseGetTheValuesOfANewSession) {
  const Bytes good = layout('!').bytes;
  std::pair<size_t, double> bad[30] = {{0, -0.5}, {13, 0.0}};
  for (size_t i = 0; i < 28; i++)
    bad[i + 2] = {i / 2, i % 2 == 0 ? std::nan("") : -HUGE_VAL};
  for (const auto &[index, number] : bad) {
    SCOPED_TRACE(testing::Message() << index << " is " << number);
    Bytes bytes = good;
    std::memcpy(&bytes[bytes.size() - 144 + 8 * index], &number, sizeof number);
    World wanted = read_world(good), world = read_world(bytes);
    if (index == 0) wanted.time = 0;
    if (index >= 1 && index <= 9) wanted.view = mat3_identity;
    if (index >= 10 && index <= 12)
      wanted.camera = Vec3{1, 0.25, 0} + 40.1 * Vec3{0.31, 0.32, 0.33};
    if (index == 13) wanted.zoom = 20;
    EXPECT_EQ(numbers_of(world), numbers_of(wanted));
    World_free(&world);
    World_free(&wanted);
  }
}

TEST_F(Session, ACameraCanBePlacedAboveNoPlaceAtAll) {
  SmallWorld saved(scenario_path(2));
  maze_nodes(saved.root)[0].x = saved.camera.y = std::nan("");
  World world = read_world(bytes_of(saved));
  EXPECT_EQ(length(world.camera - Vec3{0, 0, saved.zoom}), 0.0);
  World_free(&world);
}

} // namespace
