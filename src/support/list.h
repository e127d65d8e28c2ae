#pragma once

#include <cassert>
#include <cstdint>
#include <type_traits>

// The one container of the system: an untyped array of fixed-size rows. Where there is no memory to
// grow into, the program ends (support/memory.h). Rows are moved as plain bytes, so a row type must
// be trivially copyable, and they are named by index, since any append or removal can move them
// all.
struct GrowList {
  void *data;        // the rows; always at least one capacity's worth, also when empty
  void **mirror;     // a slot elsewhere that is kept equal to data; null if unused
  uint32_t count;    // rows in use
  uint32_t capacity; // rows allocated
  uint32_t initial;  // the capacity below which the list never shrinks
  uint32_t elemsize; // bytes per row
  float growth;      // tuning constant, always 60: a growth by about a quarter
};

// Capacity, in rows, that GrowList_init gives a new list. Nothing changes it.
extern uint32_t growlist_initial_capacity;

// Makes an empty list of rows of `elemsize` bytes. GrowList_free releases it.
void GrowList_init(GrowList *list, uint32_t elemsize);

// Copies one row to the end and returns its index. The row may be one of the list's own.
uint32_t GrowList_append(GrowList *list, const void *row);

// Copies `m` rows to the end after growing at most once; returns the index of the first. The rows
// may be the list's own; `row_block` must not be null, even for no rows.
uint32_t GrowList_append_many(GrowList *list, const void *row_block, uint32_t m);

// Grows the capacity to at least `capacity` rows, so that appending up to there moves nothing.
void GrowList_reserve(GrowList *list, uint32_t capacity);

// The same for a size that a file names. False, with nothing changed, if there is no memory for it.
bool GrowList_try_reserve(GrowList *list, uint32_t capacity);

// Removes a row by moving the last one into its place, and may shrink the array. An index past
// the end changes nothing; an empty list must not be passed.
void GrowList_remove(GrowList *list, uint32_t index);

// Drops all rows and goes back to the initial capacity.
void GrowList_clear(GrowList *list);

// Releases the rows and sets the mirrored slot, if there is one, to null.
void GrowList_free(GrowList *list);

// Whether `count` rows of two lists, from `first_a` and `first_b` on, are the same byte by byte.
// The lists have rows of one size.
bool GrowList_same_rows(const GrowList *a, uint32_t first_a, const GrowList *b, uint32_t first_b,
                        uint32_t count);

// The one place where a list's rows get their type. Valid until the next append or removal.
template <typename Row> Row *rows(GrowList &list) {
  static_assert(std::is_trivially_copyable_v<Row>);
  assert(list.elemsize == sizeof(Row));
  return static_cast<Row *>(list.data);
}

template <typename Row> const Row *rows(const GrowList &list) {
  static_assert(std::is_trivially_copyable_v<Row>);
  assert(list.elemsize == sizeof(Row));
  return static_cast<const Row *>(list.data);
}
