#pragma once

#include <cassert>
#include <cstdint>
#include <type_traits>

// A growing array of fixed-size rows without a type: the only container in the program's records.
// Rows are moved as plain bytes, so they must be trivially copyable. Keep indices, not pointers:
// any append or removal can move all rows. Running out of memory ends the program.
struct GrowList {
  void *data;        // the rows; never null between GrowList_init and GrowList_free
  void **mirror;     // a variable elsewhere that is kept equal to data; null if unused
  uint32_t count;    // rows in use
  uint32_t capacity; // rows allocated; 0 if the rows are borrowed
  uint32_t initial;  // the capacity below which the list never shrinks
  uint32_t elemsize; // bytes per row
  float growth;      // always 60, which means growth by a quarter
};

// Capacity of a new list, in rows.
extern uint32_t growlist_initial_capacity;

// Makes an empty list of rows of `elemsize` bytes. Release it with GrowList_free.
void GrowList_init(GrowList *list, uint32_t elemsize);

// Copies one row to the end and returns its index. The row may be one of the list's own.
uint32_t GrowList_append(GrowList *list, const void *row);

// Copies `m` rows to the end, growing at most once; returns the index of the first. The rows may be
// the list's own. `row_block` must not be null, even for 0 rows.
uint32_t GrowList_append_many(GrowList *list, const void *row_block, uint32_t m);

// Grows the capacity to at least `capacity` rows, so that appending up to there moves nothing.
void GrowList_reserve(GrowList *list, uint32_t capacity);

// The same where the program goes on without memory: false, with nothing changed.
bool GrowList_try_reserve(GrowList *list, uint32_t capacity);

// Makes an empty list put its rows into memory that stays the caller's, until it grows or is freed.
// The caller writes the rows and sets their count, up to what the memory holds.
void GrowList_borrow(GrowList *list, void *memory);

// Removes a row by moving the last one to its index; may shrink the array. An index past the end
// changes nothing. The list must not be empty.
void GrowList_remove(GrowList *list, uint32_t index);

// Removes all rows and goes back to the initial capacity.
void GrowList_clear(GrowList *list);

// Frees the rows and sets the mirror to null.
void GrowList_free(GrowList *list);

// Whether `count` rows of two lists, starting at `first_a` and `first_b`, are equal byte by byte.
// The rows must have the same size.
bool GrowList_same_rows(const GrowList *a, uint32_t first_a, const GrowList *b, uint32_t first_b,
                        uint32_t count);

// The rows with their type; the only way to access them. Valid until the next append or removal.
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

// The same as GrowList_append, faster where there is room.
template <typename Row> void append_row(GrowList *list, const Row &row) {
  if (list->count >= list->capacity) // above it if the rows are borrowed
    GrowList_append(list, &row);
  else
    rows<Row>(*list)[list->count++] = row;
}
