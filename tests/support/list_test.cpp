#include "support/list.h"

#include <algorithm>
#include <new>
#include <random>
#include <span>
#include <vector>

#include <gtest/gtest.h>

#include "support/memory.h"

TEST(GrowList, NoMemoryEndsTheProgramInASentence) {
  memory_begin();
  growlist_initial_capacity = UINT32_MAX;
  GrowList list;
  EXPECT_EXIT(GrowList_init(&list, UINT32_MAX), testing::ExitedWithCode(1), "vorel: .* no memory");
  EXPECT_EXIT(std::get_new_handler()(), testing::ExitedWithCode(1), "vorel: .* no memory");
  growlist_initial_capacity = 1;
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
        std::vector<uint64_t> added = {random()}; // now and then the list's own first rows
        if (added[0] % 20 == 0)
          added.assign(reference.begin(), reference.begin() + std::min<int64_t>(before, 18));
        EXPECT_EQ(added.size() == 1
                      ? GrowList_append(&list, added.data())
                      : GrowList_append_many(&list, list.data, static_cast<uint32_t>(added.size())),
                  before);
        reference.insert(reference.end(), added.begin(), added.end());
      } else {
        const auto index = static_cast<uint32_t>(random() % (before + 1)); // or just past the end
        GrowList_remove(&list, index);
        if (index < before) {
          reference[index] = reference.back();
          reference.pop_back();
        }
      }
      const size_t n = reference.size();
      if (n > capacity) capacity = n * 5 / 4;
      if (n < before && n * 5 < capacity * 3) capacity = std::max<size_t>(initial, n * 5 / 4);
      ASSERT_EQ(list.capacity, capacity);
      ASSERT_EQ(list.data, mirrored);
      ASSERT_TRUE(std::ranges::equal(reference, std::span(rows<uint64_t>(list), list.count)));
    }
    GrowList_reserve(&list, 20000); // room that is reserved is moved into but once
    const void *reserved = list.data;
    while (list.count < 20000)
      GrowList_append(&list, &capacity);
    GrowList_reserve(&list, 5);
    EXPECT_TRUE(list.data == reserved && list.capacity == 20000);
    EXPECT_TRUE(std::ranges::equal(reference, std::span(rows<uint64_t>(list), reference.size())));
    GrowList_free(&list);
    EXPECT_EQ(mirrored, nullptr);
  }
}
