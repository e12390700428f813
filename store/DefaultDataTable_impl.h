#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace ringbook::detail {

/// One entry of the default-data string table.
struct DefaultDataEntry {
  int32_t Number;
  std::string_view Text;  // UTF-8
};

/// Every entry, in ascending order of number. The table is generated at build
/// time from the files under data/ by scripts/gen_string_table.py.
std::span<const DefaultDataEntry> DefaultDataEntries();

}  // namespace ringbook::detail
