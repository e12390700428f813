#pragma once

// The mechanics shared by the adjustments: chances and rolls, bounded moves of
// a rating, and applying a table row to the record or to one round's entries.

#include <array>
#include <cstdint>

#include "core/Error.h"
#include "core/HostServices.h"
#include "engine/AdjustmentTables_impl.h"
#include "engine/CFighterInFight.h"
#include "fighters/CFighter.h"

namespace ringbook::engine_detail {

/// `base` + `per_point` x `skill` percent, at most `cap`; a negative skill
/// counts as 0.
inline int Chance(int16_t skill, int per_point, int cap, int base = 0) {
  const int points = skill < 0 ? 0 : skill;
  const int chance = base + points * per_point;
  return chance > cap ? cap : chance;
}

/// One roll of 1 to 100; true when it is at most `chance`.
inline bool RollWins(int chance) {
  return Dice().Roll(100, 1) <= chance;
}

/// `value` moved by `delta` and held inside `band`; a value already outside
/// the band is left as it is.
inline int16_t Nudge(int16_t value, int delta, const Band& band) {
  if (delta == 0 || value < band.floor || value > band.ceiling) return value;
  const int moved = value + delta;
  if (moved < band.floor) return band.floor;
  if (moved > band.ceiling) return band.ceiling;
  return static_cast<int16_t>(moved);
}

/// A 16-bit sum as the runtime adds Integers: past the range is an overflow.
inline int16_t AddInteger(int16_t value, int delta) {
  const int sum = value + delta;
  if (sum < INT16_MIN || sum > INT16_MAX) throw Error::Overflow();
  return static_cast<int16_t>(sum);
}

/// How a row's penalties (the deltas that hurt the fighter) are taken.
enum class Penalties { kFull, kSpared, kHalved };

inline int Effective(int delta, const Band& band, Penalties mode) {
  const bool penalty = delta * band.better < 0;
  if (!penalty || mode == Penalties::kFull) return delta;
  if (mode == Penalties::kSpared) return 0;
  return delta / 2;  // halved, rounded toward zero
}

template <std::size_t N>
bool HasPenalty(const std::array<int8_t, N>& row, const std::array<Band, N>& bands) {
  for (std::size_t i = 0; i < N; ++i) {
    if (row[i] * bands[i].better < 0) return true;
  }
  return false;
}

struct StatAccess {
  int16_t (CFighter::*get)() const;
  void (CFighter::*set)(int16_t);
};

inline constexpr std::array<StatAccess, kStatCount> kStatAccess = {{
    {&CFighter::Pl, &CFighter::SetPl},
    {&CFighter::Cp, &CFighter::SetCp},
    {&CFighter::Hp, &CFighter::SetHp},
    {&CFighter::Defn, &CFighter::SetDefn},
    {&CFighter::E10, &CFighter::SetE10},
    {&CFighter::Kdr1, &CFighter::SetKdr1},
    {&CFighter::Kdr2, &CFighter::SetKdr2},
    {&CFighter::Kor, &CFighter::SetKor},
    {&CFighter::Ki, &CFighter::SetKi},
}};

/// Moves one rating of the record through its setter; a rating that would not
/// change is neither read nor written.
inline void MoveStat(CFighter& fr, Stat stat, int delta) {
  if (delta == 0) return;
  const StatAccess& access = kStatAccess[stat];
  const int16_t before = (fr.*access.get)();
  const int16_t after = Nudge(before, delta, kStatBands[stat]);
  if (after != before) (fr.*access.set)(after);
}

inline void ApplyStats(CFighter& fr, const StatRow& row, Penalties mode = Penalties::kFull) {
  for (std::size_t i = 0; i < kStatCount; ++i) {
    const auto stat = static_cast<Stat>(i);
    MoveStat(fr, stat, Effective(row[i], kStatBands[stat], mode));
  }
}

struct RoundAccess {
  int16_t (CFighterInFight::*get)(int16_t) const;
  void (CFighterInFight::*set)(int16_t, int16_t);
};

inline constexpr std::array<RoundAccess, kRoundStatCount> kRoundAccess = {{
    {&CFighterInFight::AggR, &CFighterInFight::SetAggR},
    {&CFighterInFight::CpR, &CFighterInFight::SetCpR},
    {&CFighterInFight::DefnR, &CFighterInFight::SetDefnR},
    {&CFighterInFight::EndrR, &CFighterInFight::SetEndrR},
    {&CFighterInFight::HpR, &CFighterInFight::SetHpR},
    {&CFighterInFight::Kdr1R, &CFighterInFight::SetKdr1R},
    {&CFighterInFight::PlR, &CFighterInFight::SetPlR},
}};

/// Applies `row` to the entries of round `round`, through the state's own
/// table setters.
inline void ApplyRound(CFighterInFight& state, int16_t round, const RoundRow& row,
                       Penalties mode = Penalties::kFull) {
  for (std::size_t i = 0; i < kRoundStatCount; ++i) {
    const auto stat = static_cast<RoundStat>(i);
    const int delta = Effective(row[i], kRoundBands[stat], mode);
    if (delta == 0) continue;
    const RoundAccess& access = kRoundAccess[stat];
    const int16_t before = (state.*access.get)(round);
    const int16_t after = Nudge(before, delta, kRoundBands[stat]);
    if (after != before) (state.*access.set)(round, after);
  }
}

/// The row of `table` whose key (`member`) equals `key`, or nullptr.
template <class Row, std::size_t N, class Key, class Value>
const Row* FindRow(const std::array<Row, N>& table, Key Row::*member, Value key) {
  for (const Row& row : table) {
    if (static_cast<int64_t>(row.*member) == static_cast<int64_t>(key)) return &row;
  }
  return nullptr;
}

}  // namespace ringbook::engine_detail
