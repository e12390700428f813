#include "core/DefaultLookup.h"

#include <array>
#include <cstdint>
#include <limits>
#include <string_view>

namespace ringbook {
namespace {

constexpr int16_t kLowest = std::numeric_limits<int16_t>::min();
constexpr int16_t kHighest = std::numeric_limits<int16_t>::max();

// Proficiency filter values from 0: every fighter, then four bands of the
// 0-100 scale. The top band is open upwards so that no fighter above 100
// drops out of every band. Keep in step with docs/lookup-texts.md.
constexpr std::array<ProficiencyBounds, 5> kBands = {{
    {kLowest, kHighest},
    {0, 24},
    {25, 49},
    {50, 74},
    {75, kHighest},
}};

// Fighting styles. Style 2 is the fighter who can either box or slug (the
// fight engine's `EitherStyle`).
constexpr std::array<std::string_view, 5> kStyleTexts = {
    "Boxer", "Slugger", "Boxer-puncher", "Swarmer", "Counter-puncher",
};

constexpr std::array<std::string_view, 2> kActiveRetiredTexts = {"Active", "Retired"};

template <std::size_t N>
std::string TextOf(const std::array<std::string_view, N>& table, int32_t code) {
  if (code >= 0 && static_cast<std::size_t>(code) < N) return std::string(table[code]);
  return std::to_string(code);
}

}  // namespace

ProficiencyBounds DefaultLookup::Proficiency(int16_t filter) {
  if (filter > 0 && static_cast<std::size_t>(filter) < kBands.size()) return kBands[filter];
  return kBands[0];
}

std::string DefaultLookup::Text(int32_t category, int32_t code) {
  switch (category) {
    case kFightingStyle:
      return TextOf(kStyleTexts, code);
    case kActiveRetired:
      return TextOf(kActiveRetiredTexts, code);
    default:
      return std::to_string(code);
  }
}

}  // namespace ringbook
