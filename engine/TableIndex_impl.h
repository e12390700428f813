#pragma once

#include <array>
#include <cassert>
#include <cstddef>

namespace ringbook::engine_detail {

// The tables of the in-fight state have fixed index bases that callers must
// respect. A wrong index is a caller's bug: debug builds stop on it here, and
// release builds never touch memory outside the array (reads give 0, writes
// are dropped).

/// The position of `index` in a table indexed `Lo` to `Hi`, or -1 outside.
template <int Lo, int Hi>
int Slot(int index) {
  static_assert(Lo <= Hi);
  const bool inside = index >= Lo && index <= Hi;
  assert(inside && "in-fight table index out of bounds");
  return inside ? index - Lo : -1;
}

template <int Lo, int Hi, class T, std::size_t N>
T ReadEntry(const std::array<T, N>& table, int index) {
  static_assert(N == static_cast<std::size_t>(Hi - Lo + 1));
  const int slot = Slot<Lo, Hi>(index);
  return slot < 0 ? T{} : table[static_cast<std::size_t>(slot)];
}

template <int Lo, int Hi, class T, std::size_t N>
void WriteEntry(std::array<T, N>& table, int index, T value) {
  static_assert(N == static_cast<std::size_t>(Hi - Lo + 1));
  const int slot = Slot<Lo, Hi>(index);
  if (slot >= 0) table[static_cast<std::size_t>(slot)] = value;
}

}  // namespace ringbook::engine_detail
