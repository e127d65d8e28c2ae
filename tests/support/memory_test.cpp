#include "support/memory.h"

#include <new>

#include <gtest/gtest.h>

TEST(MemoryDeathTest, NoneLeftEndsTheProgramInASentence) {
  memory_begin();
  EXPECT_EXIT(memory_block(SIZE_MAX / 2), testing::ExitedWithCode(1), "vorel: .* no memory");
  EXPECT_EXIT(std::get_new_handler()(), testing::ExitedWithCode(1), "vorel: .* no memory");
  memory_set_save(memory_exhausted);
  EXPECT_EXIT(memory_exhausted(), testing::ExitedWithCode(1), "^$");
  memory_set_save(nullptr);
}
