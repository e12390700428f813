#include "store/DefaultData.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "store/DefaultDataTable_impl.h"

namespace ringbook {
namespace {

struct BlockLayout {
  int32_t CountEntry;
  int Fields;
};

constexpr BlockLayout Layout(DefaultDataBlock block) {
  switch (block) {
    case DefaultDataBlock::Cities:
      return {100, 1};
    case DefaultDataBlock::Announcers:
      return {200, 3};
    case DefaultDataBlock::Judges:
      return {300, 3};
    case DefaultDataBlock::Referees:
      return {500, 5};
    case DefaultDataBlock::Cornermen:
      return {700, 9};
    case DefaultDataBlock::Locations:
      return {900, 6};
  }
  return {0, 0};
}

}  // namespace

std::string DefaultDataString(int32_t number) {
  const auto entries = detail::DefaultDataEntries();
  const auto it =
      std::lower_bound(entries.begin(), entries.end(), number,
                       [](const detail::DefaultDataEntry& e, int32_t n) { return e.Number < n; });
  if (it == entries.end() || it->Number != number) return {};
  return std::string(it->Text);
}

int32_t DefaultDataCountEntry(DefaultDataBlock block) {
  return Layout(block).CountEntry;
}

int DefaultDataFieldCount(DefaultDataBlock block) {
  return Layout(block).Fields;
}

int32_t DefaultDataEntryNumber(DefaultDataBlock block, int row, int field) {
  const BlockLayout layout = Layout(block);
  const int32_t row_number = layout.CountEntry + row;
  // A city row is a single text at its row number; every other row spreads
  // its fields over the ten numbers from row * 10.
  if (layout.Fields == 1) return row_number;
  return row_number * 10 + field;
}

std::vector<DefaultDataRow> DefaultDataRows(DefaultDataBlock block) {
  const std::string count_text = DefaultDataString(DefaultDataCountEntry(block));
  int count = 0;
  const char* const end = count_text.data() + count_text.size();
  const auto [ptr, ec] = std::from_chars(count_text.data(), end, count);
  if (ec != std::errc() || ptr != end || count < 0) return {};

  const int fields = DefaultDataFieldCount(block);
  std::vector<DefaultDataRow> rows;
  rows.reserve(static_cast<size_t>(count));
  for (int r = 1; r <= count; ++r) {
    DefaultDataRow row;
    row.reserve(static_cast<size_t>(fields));
    for (int f = 1; f <= fields; ++f)
      row.push_back(DefaultDataString(DefaultDataEntryNumber(block, r, f)));
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace ringbook
