// The adjustments the host makes during the bout. Each works on the entries
// of the round it is given (the in-fight ratings `AggR` to `PlR`), through the
// state's own table setters, so the host calls it after filling that round's
// entries. The record's stored ratings are left alone. The tables are in
// AdjustmentTables_impl.h.

#include <algorithm>

#include "engine/AdjustmentRules_impl.h"
#include "engine/AdjustmentTables_impl.h"
#include "engine/CFighterInFight.h"

namespace ringbook {

using namespace engine_detail;

namespace {

// The tier of fatigue for `lost` endurance out of `endurance`: the last row of
// kFatigue whose share the fighter has reached. A fighter with no endurance
// left to lose is at the last tier as soon as he loses any.
std::size_t FatigueTierFor(int16_t lost, int16_t endurance) {
  if (lost <= 0) return 0;
  const int percent = endurance <= 0 ? 100 : static_cast<int>(int64_t{lost} * 100 / endurance);
  std::size_t tier = 0;
  for (std::size_t i = 0; i < kFatigue.size(); ++i) {
    if (percent >= kFatigue[i].min_percent_lost) tier = i;
  }
  return tier;
}

}  // namespace

void CFighterInFight::AdjustForStrategy(int16_t Round, bool IsKIActive) {
  const StrategyRow* row = FindRow(kStrategy, &StrategyRow::strategy, strategy_used_);
  if (row != nullptr) {
    const int chance =
        Chance(TrainerRef().Strategy(), kStrategyPerPoint, kStrategyCap, kStrategyBaseChance);
    if (RollWins(chance)) ApplyRound(*this, Round, row->change);
  }
  if (IsKIActive) ApplyRound(*this, Round, kKillerInstinct);
}

void CFighterInFight::AdjustForEnduranceLost(int16_t iRound) {
  std::size_t tier = FatigueTierFor(endurance_lost_, Record().E10());
  if (tier > 0) {
    const int chance =
        Chance(TrainerRef().Motivate(), kFatigueMotivatePerPoint, kFatigueMotivateCap);
    if (RollWins(chance)) --tier;
  }
  ApplyRound(*this, iRound, kFatigue[tier].change);
}

void CFighterInFight::AdjustForGash(int16_t iRound) {
  const CCornerman& cut_man = CutManRef();
  std::array<int, 2> grade{};
  for (int16_t eye = 0; eye <= 1; ++eye) {
    int g = std::min<int>(Gash(eye), kMaxGashGrade);
    if (g <= 0) continue;
    if (RollWins(Chance(cut_man.CloseCuts(), kCloseCutsPerPoint, kCloseCutsCap))) --g;
    grade[static_cast<std::size_t>(eye)] = g;
  }
  const int worst = std::max(grade[0], grade[1]);
  if (worst == 0) return;
  ApplyRound(*this, iRound, kGashGrade[static_cast<std::size_t>(worst - 1)]);
  if (grade[0] > 0 && grade[1] > 0) ApplyRound(*this, iRound, kGashBothEyes);
}

void CFighterInFight::AdjustForInjuries(int32_t nInjuryType, int16_t iRound) {
  const InjuryRow* row = FindRow(kInjury, &InjuryRow::type, nInjuryType);
  if (row == nullptr) return;
  injuries_ = static_cast<int16_t>(injuries_ | (1 << (nInjuryType - 1)));

  Penalties mode = Penalties::kFull;
  if (row->treated_by == kReduceSwelling) {
    const int chance =
        Chance(CutManRef().ReduceSwelling(), kReduceSwellingPerPoint, kReduceSwellingCap);
    if (RollWins(chance)) mode = Penalties::kHalved;
  }
  ApplyRound(*this, iRound, row->change, mode);

  if (row->type == einSwollenEye) {
    const int swelling =
        std::max({LEyeSwelling(0), LEyeSwelling(1), REyeSwelling(0), REyeSwelling(1)});
    if (swelling >= kClosingEye) ApplyRound(*this, iRound, kEyeClosing, mode);
  }
}

}  // namespace ringbook
