#include "support/list.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

// The capacity is compared too. It grows to 5/4 of the count, and shrinks when less than 3/5 is
// used.
TEST(GrowList, FollowsAVectorThroughRandomChanges) {
  GrowList list;
  growlist_initial_capacity = 9;
  GrowList_init(&list, sizeof(uint64_t));
  growlist_initial_capacity = 1;
  void *mirrored = list.data;
  list.mirror = &mirrored;
  std::vector<uint64_t> reference;
  size_t capacity = 9;
  std::mt19937_64 random(7);
  for (uint32_t step = 0; step < 15000; step++) {
    const uint64_t row = random();
    const size_t before = reference.size(), index = row / 100 % (before + 1), part = index % 19;
    if (row % 100 < (step / 500 % 2 == 0 ? 60U : 20U) || before == 0) {
      EXPECT_EQ(GrowList_append(&list, &row), before);
      reference.push_back(row);
    } else if (row % 100 == 99) { // some of its own rows
      EXPECT_EQ(GrowList_append_many(&list, list.data, static_cast<uint32_t>(part)), before);
      reference.resize(before + part);
      std::copy_n(reference.begin(), part, reference.end() - static_cast<ptrdiff_t>(part));
    } else {
      GrowList_remove(&list, static_cast<uint32_t>(index));
      if (index == before) continue;
      reference[index] = reference.back();
      reference.pop_back();
    }
    const size_t n = reference.size();
    if (n > capacity) capacity = n * 5 / 4;
    if (n < before && n * 5 < capacity * 3) capacity = std::max<size_t>(9, n * 5 / 4);
    ASSERT_EQ(list.capacity, capacity);
    ASSERT_EQ(list.data, mirrored);
    ASSERT_EQ(std::vector(rows<uint64_t>(list), rows<uint64_t>(list) + list.count), reference);
  }
  EXPECT_TRUE(GrowList_try_reserve(&list, 20000));
  EXPECT_TRUE(std::equal(reference.begin(), reference.end(), rows<uint64_t>(list)));
  GrowList_clear(&list);
  EXPECT_EQ(list.capacity, 9U);
  GrowList_free(&list);
  EXPECT_EQ(mirrored, nullptr);
}
