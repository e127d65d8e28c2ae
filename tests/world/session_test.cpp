#include "world/session.h"

#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>

#include "generate/choose.h"
#include "generate/owned_maze.h"
#include "literal.h"
#include "maze/edit.h"
#include "scenarios.h"
#include "support/random.h"
#include "support/strings.h"
#include "world/session_file.h"

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// A file put together by hand, and which of its bytes hold the structure.
struct Layout {
  Bytes bytes;
  std::vector<size_t> structure;

  void number(uint64_t value, size_t size, bool structural = false) {
    for (size_t i = 0; i < size; i++) {
      if (structural) structure.push_back(bytes.size());
      bytes.push_back(static_cast<uint8_t>(value >> 8 * i));
    }
  }
  void real(double value) { number(std::bit_cast<uint64_t>(value), 8); }
  void edge(uint32_t colour, double usertime, double roamertime) {
    number(colour, 4), number(0, 4), real(usertime), real(roamertime);
  }
  void text(const char *words) {
    do
      bytes.push_back(static_cast<uint8_t>(*words));
    while (*words++ != '\0');
  }
};

// Two nodes, of which the first holds a maze of one node, where the user is.
World small_world() {
  World world = {};
  world.root = scenario_path(2);
  Maze *below = scenario_path(1);
  scenario_hold(world.root, 0, below);
  MazeNode *nodes = maze_nodes(world.root);
  nodes[1].y = -2.5;
  nodes[1].self = {0x123456, 7.25, 9.5};
  nodes[0].edge[0] = nodes[1].edge[0] = {0xC04040, 3.5, -1.0};
  world.root->visited = 5;
  below->bordermask = 0x81;
  str_dup_into(&world.root->name, "1.01");
  world.cur = {below, 0};
  world.offset = {1, 2, 3};
  world.time = 77.125;
  world.view = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};
  world.camera = {-1, -2, -3};
  world.zoom = 40.5;
  world.showtrail = 1;
  GrowList_init(&world.roamers, sizeof(Roamer));
  return world;
}

Layout small_layout() {
  Layout l;
  l.number(0, 1, true), l.number(2, 4, true);
  l.real(0), l.real(0), l.real(0), l.number(1, 4, true), l.number(1, 4, true);
  l.edge(0xC04040, 3.5, -1), l.edge(0x808080, -1, -1), l.number(1, 1, true);
  l.number(1, 1, true), l.number(1, 4, true);
  const size_t plain_node = l.bytes.size();
  l.real(0), l.real(0), l.real(0), l.number(0, 4, true);
  l.edge(0x808080, -1, -1), l.number(0, 1, true);
  EXPECT_EQ(l.bytes.size() - plain_node, 53u);
  l.number(0, 4), l.number(0x81, 4), l.text("");
  l.real(1), l.real(-2.5), l.real(0), l.number(1, 4, true), l.number(0, 4, true);
  l.edge(0xC04040, 3.5, -1), l.edge(0x123456, 7.25, 9.5), l.number(0, 1, true);
  l.number(5, 4), l.number(0, 4), l.text("1.01");
  l.number(0, 4, true);
  const size_t block = l.bytes.size();
  for (const double value : {77.125, 1., 2., 3., 4., 5., 6., 7., 8., 9., -1., -2., -3., 40.5})
    l.real(value);
  for (const uint32_t field : {1u, 0u, 0u, 0u, 1u, 1u, 32u})
    l.number(field, 4);
  l.number(std::bit_cast<uint32_t>(60.0f), 4);
  EXPECT_EQ(l.bytes.size() - block, 144u);
  return l;
}

// Read from memory, and from a file through a buffer that holds little more than the longest
// record.
bool is_sound(const Bytes &bytes) {
  FILE *file = std::tmpfile();
  for (const uint8_t byte : bytes)
    std::fputc(byte, file);
  std::rewind(file);
  uint8_t buffer[256];
  int sound = 0;
  for (ByteReader in : {memory_reader(bytes.data(), bytes.size()),
                        file_reader(file, bytes.size(), buffer, sizeof buffer)}) {
    World world;
    if (!World_read(&world, &in)) continue;
    World_free(&world);
    sound++;
  }
  std::fclose(file);
  EXPECT_NE(sound, 1) << "the two differ";
  return sound == 2;
}

TEST_F(SessionFile, FileIsAsLaidOutByHandAndComesBack) {
  World saved = small_world();
  ASSERT_TRUE(World_save(&saved, path.c_str()));
  EXPECT_EQ(file_bytes(), small_layout().bytes);
  World world = {};
  ASSERT_EQ(World_load(&world, path.c_str()), SessionLoad::loaded);
  EXPECT_STREQ(literal_difference(world.root, saved.root), nullptr);
  EXPECT_TRUE(world.root->visited == 5 && world.cur.maze->bordermask == 0x81);
  EXPECT_TRUE(world.cur.maze == maze_nodes(world.root)[0].submaze && world.cur.node == 0);
  EXPECT_TRUE(length(world.offset) == 0 && world.time == 77.125 && world.zoom == 40.5);
  EXPECT_TRUE(world.view.m[1][2] == 6 && world.camera.z == -3 && world.showtrail == 1);
  EXPECT_EQ(world.roamers.count, 0u);
  World_free(&world);
  World_free(&saved);
  std::filesystem::remove(path);
  EXPECT_EQ(World_load(&world, path.c_str()), SessionLoad::absent);
  std::filesystem::create_directory(path);
  EXPECT_TRUE(World_load(&world, path.c_str()) == SessionLoad::unreadable && errno == EISDIR);
}

TEST_F(SessionFile, RealTreesComeBack) {
  for (uint32_t seed = 1; seed <= 45; seed += 2) {
    rand_seed(seed);
    World saved, world;
    World_new(&saved, seed % 20 == 1 ? 2 : seed % 20 == 3 ? 1 : 0);
    maze_nodes(saved.root)[1].x = nan; // as the relaxations can leave it
    ASSERT_TRUE(World_save(&saved, path.c_str()));
    ASSERT_EQ(World_load(&world, path.c_str()), SessionLoad::loaded) << "seed " << seed;
    const Bytes bytes = file_bytes();
    EXPECT_TRUE(World_save(&world, path.c_str()) && bytes == file_bytes());
    EXPECT_STREQ(scenario_fault(world.root), nullptr);
    EXPECT_EQ(world.cur.maze->halfwidth, 0.5);
    World_free(&saved);
    World_free(&world);
  }
}

TEST_F(SessionFile, ShortLongAndFlippedFilesAreRefused) {
  const Layout sound = small_layout();
  ASSERT_TRUE(is_sound(sound.bytes));
  for (size_t size = 0; size < sound.bytes.size(); size++) {
    const Bytes start(sound.bytes.begin(), sound.bytes.begin() + static_cast<long>(size));
    EXPECT_FALSE(is_sound(start)) << size << " bytes";
  }
  Bytes longer = sound.bytes;
  longer.push_back(0);
  EXPECT_FALSE(is_sound(longer));
  for (const size_t at : sound.structure)
    for (int bit = 0; bit < 8; bit++) {
      Bytes flipped = sound.bytes;
      flipped[at] = static_cast<uint8_t>(flipped[at] ^ 1 << bit);
      EXPECT_FALSE(is_sound(flipped)) << "bit " << bit << " of byte " << at;
    }
  for (uint32_t seed = 1; seed <= 20000; seed++) { // anything may come, but nothing may break
    rand_seed(seed);
    Bytes garbled = sound.bytes;
    for (int32_t k = 1 + rand_int(6); k-- > 0;)
      garbled[static_cast<size_t>(rand_int(static_cast<int32_t>(garbled.size())))] =
          static_cast<uint8_t>(rand_int(256));
    ByteReader in = memory_reader(garbled.data(), garbled.size());
    World world;
    if (World_read(&world, &in)) World_free(&world);
  }
}

TEST_F(SessionFile, DeepTreesAndEmptyMazesComeBack) {
  World saved = {}, world = {};
  saved.root = scenario_deep(100000);
  const OwnedMaze alone(scenario_path(1));
  scenario_hold(alone.get(), 0, Maze_new()); // no edge leads there
  Maze_append(saved.root, alone.get());
  saved.cur = {saved.root, 0}, saved.zoom = 20;
  ASSERT_TRUE(World_save(&saved, path.c_str()));
  ASSERT_EQ(World_load(&world, path.c_str()), SessionLoad::loaded);
  const Bytes bytes = file_bytes();
  EXPECT_TRUE(World_save(&world, path.c_str()) && bytes == file_bytes());
  World_free(&saved);
  World_free(&world);
}

TEST_F(SessionFile, TreesThatNoWalkCouldUseAreRefused) {
  using Damage = std::function<void(const ThreeLevels &, World *)>;
  const Damage damages[] = {
      [](const ThreeLevels &t, World *) { MazeNode_remove_row(&maze_nodes(t.m1)[0], 0); },
      [](const ThreeLevels &t, World *) { Maze_join(t.n2, 0, 1); },
      [](const ThreeLevels &t, World *) { maze_nodes(t.n2)[0].nbr[0] = 0; },
      [](const ThreeLevels &t, World *) { maze_nodes(t.n2)[0].nbr[0] = -1; },
      [](const ThreeLevels &t, World *) { maze_nodes(t.n2)[0].nbr[0] = 3; },
      [](const ThreeLevels &t, World *) { Maze_delete_node(t.n3, 1); }, // two doors, one node
      [](const ThreeLevels &t, World *) { scenario_hold(t.n3, 0, scenario_path(4)); }, // a door
      [](const ThreeLevels &t, World *) { GrowList_clear(&t.n3->nodes); },
      [](const ThreeLevels &t, World *world) { world->cur.maze = t.m1; }, // a container
      [](const ThreeLevels &, World *world) { world->cur.node = 3; },
      [](const ThreeLevels &, World *world) { world->cur.node = -1; },
      [](const ThreeLevels &, World *world) { world->cur.maze = nullptr; },
      [](const ThreeLevels &, World *) {}, // the last one is sound
  };
  for (const Damage &damage : damages) {
    const ThreeLevels t = scenario_three_levels();
    World world = {};
    world.root = t.root;
    world.cur = {t.n2, 2};
    world.zoom = 20;
    damage(t, &world);
    ASSERT_TRUE(World_save(&world, path.c_str()));
    EXPECT_EQ(is_sound(file_bytes()), &damage == std::end(damages) - 1) << &damage - damages;
    Maze_destroy(t.root, 1);
  }
}

TEST_F(SessionFile, NumbersThatAreNoneArePutRight) {
  World saved = small_world(), world = {};
  saved.time = saved.camera.y = saved.view.m[2][1] = nan;
  saved.zoom = -std::numeric_limits<double>::infinity();
  ASSERT_TRUE(World_save(&saved, path.c_str()));
  ASSERT_EQ(World_load(&world, path.c_str()), SessionLoad::loaded);
  EXPECT_TRUE(world.time == 0 && world.zoom == 20 && world.view.m[2][2] == 1);
  EXPECT_EQ(length(world.camera - Vec3{0, 0, 20}), 0);
  World_free(&world);
  saved.time = -0.5;
  maze_nodes(saved.cur.maze)[0].x = nan; // no place to put a camera at
  ASSERT_TRUE(World_save(&saved, path.c_str()));
  ASSERT_EQ(World_load(&world, path.c_str()), SessionLoad::loaded);
  EXPECT_TRUE(is_finite(world.camera) && world.time == 0);
  World_free(&world);
  World_free(&saved);
}

} // namespace
