#include "support/list.h"

#include <algorithm>
#include <random>
#include <span>
#include <vector>

#include <gtest/gtest.h>

namespace {

// Adds a new row, or now and then the first of the list's own rows as a block.
void random_append(std::mt19937_64 &random, GrowList &list, std::vector<uint64_t> &reference) {
  std::vector<uint64_t> added = {random()};
  if (added[0] % 20 == 0) {
    const uint32_t m = static_cast<uint32_t>(std::min<uint64_t>(list.count, added[0] % 19));
    added.assign(rows<uint64_t>(list), rows<uint64_t>(list) + m);
    EXPECT_EQ(GrowList_append_many(&list, list.data, m), reference.size());
  } else {
    EXPECT_EQ(GrowList_append(&list, added.data()), reference.size());
  }
  reference.insert(reference.end(), added.begin(), added.end());
}

// Removes a row from both, or tries one just past the end.
void random_remove(std::mt19937_64 &random, GrowList &list, std::vector<uint64_t> &reference) {
  const auto index = static_cast<uint32_t>(random() % (list.count + 1));
  GrowList_remove(&list, index);
  if (index == reference.size()) return;
  reference[index] = reference.back();
  reference.pop_back();
}

// A plain list changes alongside, and the capacity is kept in whole numbers: fifths and quarters.
TEST(GrowList, FollowsAPlainListThroughRandomChanges) {
  for (const uint32_t initial : {1U, 9U}) {
    GrowList list;
    growlist_initial_capacity = initial;
    GrowList_init(&list, sizeof(uint64_t));
    growlist_initial_capacity = 1;
    void *mirrored = list.data;
    list.mirror = &mirrored;
    std::vector<uint64_t> reference;
    size_t capacity = initial;
    std::mt19937_64 random(initial);
    for (uint32_t step = 0; step < 10000; step++) {
      const size_t before = reference.size();
      if (random() % 1000 == 0) {
        GrowList_clear(&list);
        reference.clear();
        capacity = initial;
      } else if (before == 0 || random() % 100 < (step / 500 % 2 == 0 ? 60U : 20U)) {
        random_append(random, list, reference);
      } else {
        random_remove(random, list, reference);
      }
      const size_t n = reference.size();
      if (n > capacity) capacity = n * 5 / 4;
      if (n < before && n * 5 < capacity * 3) capacity = std::max<size_t>(initial, n * 5 / 4);
      ASSERT_EQ(list.capacity, capacity);
      ASSERT_EQ(list.data, mirrored);
      ASSERT_TRUE(std::ranges::equal(reference, std::span(rows<uint64_t>(list), list.count)));
    }
    GrowList_free(&list);
    EXPECT_EQ(mirrored, nullptr);
  }
}

} // namespace
