#include "support/list.h"

#include <cassert>
#include <cstdlib>
#include <cstring>

#include "support/memory.h"

uint32_t growlist_initial_capacity = 1;

namespace {

size_t block_size(const GrowList *list, uint32_t capacity) {
  return static_cast<size_t>(capacity) * list->elemsize;
}

void *new_block(const GrowList *list, uint32_t capacity) {
  return memory_block(block_size(list, capacity));
}

void *row_address(const GrowList *list, uint32_t index) {
  return static_cast<char *>(list->data) + static_cast<size_t>(index) * list->elemsize;
}

// `count` and a quarter.
uint32_t capacity_for(const GrowList *list, double count) {
  const double capacity = count / (0.005 * list->growth + 0.5);
  assert(capacity <= UINT32_MAX);
  return static_cast<uint32_t>(capacity);
}

void set_data(GrowList *list, void *data, uint32_t capacity) {
  list->data = data;
  list->capacity = capacity;
  if (list->mirror != nullptr) *list->mirror = data;
}

// The block that the list has to free; null if its rows are borrowed.
void *own_block(const GrowList *list) {
  return list->capacity > 0 ? list->data : nullptr;
}

// Copies the rows to a new block and returns the old one, which the caller frees.
void *take_block(GrowList *list, void *fresh, uint32_t capacity) {
  assert(capacity >= list->count);
  void *old = own_block(list);
  std::memcpy(fresh, list->data, static_cast<size_t>(list->count) * list->elemsize);
  set_data(list, fresh, capacity);
  return old;
}

void *change_capacity(GrowList *list, uint32_t capacity) {
  return take_block(list, new_block(list, capacity), capacity);
}

// How many rows fit without a new block.
uint32_t room(const GrowList *list) {
  return list->capacity > 0 ? list->capacity : list->count;
}

void shrink_if_sparse(GrowList *list) {
  if (list->capacity <= list->initial) return;
  const double used = static_cast<double>(list->count) / list->capacity;
  if (used >= 0.01 * list->growth) return;
  const uint32_t capacity = capacity_for(list, list->count);
  std::free(change_capacity(list, capacity > list->initial ? capacity : list->initial));
}

} // namespace

void GrowList_init(GrowList *list, uint32_t elemsize) {
  assert(elemsize > 0 && growlist_initial_capacity > 0);
  list->mirror = nullptr;
  list->count = 0;
  list->initial = growlist_initial_capacity;
  list->elemsize = elemsize;
  list->growth = 60.0F;
  set_data(list, new_block(list, list->initial), list->initial);
}

uint32_t GrowList_append(GrowList *list, const void *row) {
  return GrowList_append_many(list, row, 1);
}

uint32_t GrowList_append_many(GrowList *list, const void *row_block, uint32_t m) {
  assert(m <= UINT32_MAX - list->count);
  const uint32_t first = list->count;
  void *old = nullptr;
  if (first + m > list->capacity)
    old = change_capacity(list, capacity_for(list, static_cast<double>(first) + m));
  std::memcpy(row_address(list, first), row_block, static_cast<size_t>(m) * list->elemsize);
  list->count += m;
  std::free(old); // after the copy, since `row_block` may be in it
  return first;
}

void GrowList_reserve(GrowList *list, uint32_t capacity) {
  if (capacity > room(list)) std::free(change_capacity(list, capacity));
}

bool GrowList_try_reserve(GrowList *list, uint32_t capacity) {
  if (capacity <= room(list)) return true;
  void *fresh = memory_try_block(block_size(list, capacity));
  if (fresh == nullptr) return false;
  std::free(take_block(list, fresh, capacity));
  return true;
}

void GrowList_remove(GrowList *list, uint32_t index) {
  assert(list->count > 0);
  const uint32_t last = list->count - 1;
  if (index > last) return;
  if (index != last) std::memcpy(row_address(list, index), row_address(list, last), list->elemsize);
  list->count = last;
  shrink_if_sparse(list);
}

void GrowList_borrow(GrowList *list, void *memory) {
  assert(list->count == 0);
  std::free(own_block(list));
  set_data(list, memory, 0);
}

void GrowList_clear(GrowList *list) {
  std::free(own_block(list));
  list->count = 0;
  set_data(list, new_block(list, list->initial), list->initial);
}

void GrowList_free(GrowList *list) {
  if (list->mirror != nullptr) *list->mirror = nullptr;
  std::free(own_block(list));
  list->data = nullptr;
  list->count = 0;
}

bool GrowList_same_rows(const GrowList *a, uint32_t first_a, const GrowList *b, uint32_t first_b,
                        uint32_t count) {
  assert(a->elemsize == b->elemsize && first_a + count <= a->count && first_b + count <= b->count);
  return std::memcmp(row_address(a, first_a), row_address(b, first_b),
                     static_cast<size_t>(count) * a->elemsize) == 0;
}
