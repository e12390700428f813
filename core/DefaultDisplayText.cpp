#include "core/DefaultDisplayText.h"

#include <array>
#include <string_view>

namespace ringbook {
namespace {

// The default English wording, indexed by code from 0. The same tables are
// listed for people who mod the game in docs/display-texts.md; keep the two
// in step.

// A judge's bias: whom the judge leans towards when a round is close. The
// codes follow the bout options' home-fighter and champion switches.
constexpr std::array<std::string_view, 3> kBiasTexts = {
    "Fair",
    "Favors the home fighter",
    "Favors the champion",
};

// A referee's rating of fouls, stoppage or judgement.
constexpr std::array<std::string_view, 3> kRefereeRatingTexts = {
    "Poor",
    "Average",
    "Good",
};

// What a cornerman does in the corner.
constexpr std::array<std::string_view, 3> kSpecialtyTexts = {
    "Trainer",
    "Cut man",
    "Trainer and cut man",
};

// The historical eras, oldest first after code 0, which belongs to no era in
// particular.
constexpr std::array<std::string_view, 6> kEraTexts = {
    "All eras", "Pioneer era", "Golden age", "Post-war era", "Classic era", "Modern era",
};

// The text of `code` in `table`; a code outside the table shows as its number,
// so a database with codes of its own still lists something readable.
template <std::size_t N>
std::string Lookup(const std::array<std::string_view, N>& table, int64_t code) {
  if (code >= 0 && static_cast<uint64_t>(code) < N) return std::string(table[code]);
  return std::to_string(code);
}

}  // namespace

std::string DefaultDisplayText::BiasText(int32_t bias) {
  return Lookup(kBiasTexts, bias);
}

std::string DefaultDisplayText::RefereeRatingText(int16_t rating) {
  return Lookup(kRefereeRatingTexts, rating);
}

std::string DefaultDisplayText::SpecialtyText(int16_t specialty) {
  return Lookup(kSpecialtyTexts, specialty);
}

std::string DefaultDisplayText::EraText(int16_t era) {
  return Lookup(kEraTexts, era);
}

}  // namespace ringbook
