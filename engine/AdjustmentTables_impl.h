#pragma once

// The tables behind the designed adjustments of `CFighterInFight`: training,
// career stage, conditioning, strategy, endurance lost, gashes and injuries.
// Every number a tuner may want to change lives here and nowhere else;
// docs/engine-adjustments.md explains each table with a worked example.
//
// Conventions of every table:
// - A delta is in rating points. No entry moves a rating by more than
//   kMaxDelta points (checked at compile time below).
// - A change only applies to a rating that lies inside its band
//   [floor, ceiling] (see kStatBands, kRoundBands), and the result is held
//   inside the band: a rating outside its band (for example a `Kor` of 0, a
//   fighter who is not knocked out by the rules) is left alone.
// - A "chance" is a percentage tested with one roll of 1 to 100 (upper bound
//   100 first): the roll wins when it is at most the chance.

#include <array>
#include <cstdint>

#include "engine/EngineEnums.h"

namespace ringbook::engine_detail {

inline constexpr int kMaxDelta = 3;
inline constexpr int16_t kNoCeiling = INT16_MAX;

// ---------------------------------------------------------------------------
// Ratings of the record (`FR`) that the pre-fight adjustments move.

enum Stat : uint8_t { kPl, kCp, kHp, kDefn, kE10, kKdr1, kKdr2, kKor, kKi, kStatCount };

struct Band {
  int16_t floor;
  int16_t ceiling;
  /// +1 when a higher value helps the fighter, -1 when it hurts him (the
  /// knock-down and knock-out ratings). Tells a penalty from a bonus.
  int8_t better;
};

inline constexpr std::array<Band, kStatCount> kStatBands = {{
    {0, kNoCeiling, +1},  // Pl    punches landed
    {0, kNoCeiling, +1},  // Cp    clean punching
    {0, kNoCeiling, +1},  // Hp    hitting power
    {0, kNoCeiling, +1},  // Defn  defence
    {0, kNoCeiling, +1},  // E10   endurance
    {1, 10, -1},          // Kdr1  knock-down rating, first knock-down
    {1, 10, -1},          // Kdr2  knock-down rating, later knock-downs
    {1, 10, -1},          // Kor   knock-out rating (IsKnockedout's scale)
    {0, kNoCeiling, +1},  // Ki    killer instinct
}};

/// One delta per `Stat`, in the order of the enumeration.
using StatRow = std::array<int8_t, kStatCount>;

// ---------------------------------------------------------------------------
// Per-round entries that the in-bout adjustments move (round `iRound` only).

enum RoundStat : uint8_t { kAggR, kCpR, kDefnR, kEndrR, kHpR, kKdr1R, kPlR, kRoundStatCount };

inline constexpr std::array<Band, kRoundStatCount> kRoundBands = {{
    {0, kNoCeiling, +1},  // AggR
    {0, kNoCeiling, +1},  // CpR
    {0, kNoCeiling, +1},  // DefnR
    {0, kNoCeiling, +1},  // EndrR
    {0, kNoCeiling, +1},  // HpR
    {1, 10, -1},          // Kdr1R
    {0, kNoCeiling, +1},  // PlR
}};

using RoundRow = std::array<int8_t, kRoundStatCount>;

// ---------------------------------------------------------------------------
// Training (`Training` holds an ETrainingFocus).

enum TrainerRating : uint8_t { kTrainingAverage, kTrainingOffense, kTrainingDefense };

struct StatStep {
  Stat stat;
  int8_t gain;  // the change one step of good training brings
};

struct TrainingFocusRow {
  ETrainingFocus focus;
  TrainerRating led_by;
  /// Gained steps go to these ratings in turn; lost steps are taken back in
  /// the same turn.
  std::array<StatStep, 3> steps;
  /// Extra steps the focus brings by itself.
  int8_t extra_steps;
  /// Chance of overtraining, and what it costs.
  int8_t overtraining_chance;
  StatRow overtraining;
};

inline constexpr std::array<TrainingFocusRow, 4> kTrainingFocus = {{
    {etfBalanced, kTrainingAverage, {{{kPl, +1}, {kDefn, +1}, {kE10, +1}}}, 0, 0, {}},
    {etfOffense, kTrainingOffense, {{{kPl, +1}, {kHp, +1}, {kCp, +1}}}, 0, 0, {}},
    {etfDefense, kTrainingDefense, {{{kDefn, +1}, {kKdr1, -1}, {kKdr2, -1}}}, 0, 0, {}},
    // Pl Cp Hp Defn E10 Kdr1 Kdr2 Kor Ki
    {etfHardCamp,
     kTrainingAverage,
     {{{kE10, +1}, {kHp, +1}, {kDefn, +1}}},
     1,
     20,
     {0, 0, 0, 0, -2, 0, 0, 0, 0}},
}};

/// Steps earned from the trainer's rating for the focus: the first row whose
/// minimum the rating reaches.
struct TrainerGrade {
  int16_t min_rating;
  int8_t steps;
};
inline constexpr std::array<TrainerGrade, 4> kTrainerGrades = {{
    {9, 3},
    {6, 2},
    {3, 1},
    {INT16_MIN, 0},
}};

/// The camp roll (1 to 100): at most kBadCampRoll costs a step, at least
/// kGoodCampRoll earns one.
inline constexpr int kBadCampRoll = 10;
inline constexpr int kGoodCampRoll = 91;
/// The steps applied, after the host's extra steps, are held to this range.
inline constexpr int kMinTrainingSteps = -2;
inline constexpr int kMaxTrainingSteps = 3;

// ---------------------------------------------------------------------------
// Career stage (`Career` holds an ECareerStage).

struct CareerRow {
  ECareerStage stage;
  StatRow change;
};

inline constexpr std::array<CareerRow, 5> kCareer = {{
    //            Pl Cp Hp Defn E10 Kdr1 Kdr2 Kor Ki
    {ecsNovice, {-1, 0, 0, -1, +1, +1, 0, 0, -1}},
    {ecsRising, {0, 0, 0, 0, +1, 0, 0, 0, +1}},
    {ecsPrime, {0, 0, 0, 0, 0, 0, 0, 0, 0}},
    {ecsVeteran, {0, 0, 0, +1, -1, 0, 0, +1, 0}},
    {ecsFaded, {-1, 0, 0, 0, -2, +1, 0, +2, 0}},
}};

/// The trainer's `Motivate` x this, at most kMotivateCap, is the chance that
/// the stage's penalties are spared this bout (its bonuses stay).
inline constexpr int kCareerMotivatePerPoint = 5;
inline constexpr int kCareerMotivateCap = 50;

// ---------------------------------------------------------------------------
// Conditioning (`Condition` holds an ECondition).

struct ConditionRow {
  ECondition condition;
  StatRow change;
  int8_t cf_modifier;  // added to `CfModifier`
};

inline constexpr std::array<ConditionRow, 5> kCondition = {{
    //             Pl Cp Hp Defn E10 Kdr1 Kdr2 Kor Ki
    {ecnNormal, {0, 0, 0, 0, -1, 0, 0, 0, 0}, 0},
    {ecnSharp, {0, 0, 0, 0, +1, 0, 0, 0, 0}, +1},
    {ecnSoft, {-1, 0, 0, 0, -2, 0, 0, 0, 0}, -1},
    {ecnPoor, {-1, 0, 0, -1, -3, +1, 0, 0, 0}, -2},
    {ecnDrained, {0, 0, -1, 0, -2, +1, 0, +1, 0}, -1},
}};

/// The record's `Conditioning` x this, at most the cap, is the chance that
/// the fighter's own habits halve every penalty (rounded toward zero).
inline constexpr int kConditioningPerPoint = 5;
inline constexpr int kConditioningCap = 50;
/// `CfModifier` is kept inside this band by the conditioning adjustment.
inline constexpr Band kCfModifierBand = {-5, 5, +1};

// ---------------------------------------------------------------------------
// Strategy, per round (`StrategyUsed` holds an EStrategy).

struct StrategyRow {
  EStrategy strategy;
  RoundRow change;
};

inline constexpr std::array<StrategyRow, 5> kStrategy = {{
    //           AggR CpR DefnR EndrR HpR Kdr1R PlR
    {estBox, {-1, 0, +1, 0, -1, 0, +1}},
    {estBrawl, {+1, 0, -1, 0, +1, 0, 0}},
    {estCounter, {-1, +1, +1, 0, 0, 0, 0}},
    {estAllOut, {+2, 0, -2, -1, +1, 0, -1}},
    {estSurvive, {-2, 0, +2, 0, -1, 0, -1}},
}};

/// Chance that the fighter carries out the plan: base + per point of the
/// trainer's `Strategy`, at most the cap. A plan not carried out changes
/// nothing.
inline constexpr int kStrategyBaseChance = 50;
inline constexpr int kStrategyPerPoint = 5;
inline constexpr int kStrategyCap = 95;

/// The killer-instinct surge (`IsKIActive`), whatever the plan.
inline constexpr RoundRow kKillerInstinct = {+2, 0, -1, 0, +1, 0, 0};

// ---------------------------------------------------------------------------
// Endurance lost, per round.

struct FatigueTier {
  /// Share of the record's `E10` lost, in percent, from which the tier holds.
  int16_t min_percent_lost;
  RoundRow change;
};

inline constexpr std::array<FatigueTier, 4> kFatigue = {{
    //          AggR CpR DefnR EndrR HpR Kdr1R PlR
    {0, {0, 0, 0, 0, 0, 0, 0}},
    {25, {0, 0, 0, 0, -1, 0, -1}},
    {50, {-1, 0, -1, 0, -1, 0, -1}},
    {75, {-1, 0, -2, 0, -2, +1, -2}},
}};

/// Chance that the trainer's `Motivate` lifts a tired fighter one tier.
inline constexpr int kFatigueMotivatePerPoint = 5;
inline constexpr int kFatigueMotivateCap = 50;

// ---------------------------------------------------------------------------
// Gashes over the eyes, per round. `Gash(eye)` is the severity; 3 and above
// count as 3.

inline constexpr int kMaxGashGrade = 3;
/// By the worse eye's grade, 1 to 3.
inline constexpr std::array<RoundRow, kMaxGashGrade> kGashGrade = {{
    //   AggR CpR DefnR EndrR HpR Kdr1R PlR
    {0, 0, -1, 0, 0, 0, 0},
    {0, 0, -1, 0, 0, 0, -1},
    {0, 0, -2, 0, 0, +1, -1},
}};
/// Added when both eyes bleed.
inline constexpr RoundRow kGashBothEyes = {0, 0, 0, 0, 0, 0, -1};
/// Chance, per gashed eye, that the cut man's `CloseCuts` eases it a grade.
inline constexpr int kCloseCutsPerPoint = 10;
inline constexpr int kCloseCutsCap = 90;

// ---------------------------------------------------------------------------
// Injuries, per round.

enum CornerSkill : uint8_t { kNoSkill, kReduceSwelling };

struct InjuryRow {
  EInjuryType type;
  RoundRow change;
  /// The cut man's skill that can halve the effect, and its chance.
  CornerSkill treated_by;
};

inline constexpr std::array<InjuryRow, 4> kInjury = {{
    //             AggR CpR DefnR EndrR HpR Kdr1R PlR
    {einHand, {0, 0, 0, 0, -2, 0, -1}, kNoSkill},
    {einSwollenEye, {0, 0, -1, 0, 0, 0, -1}, kReduceSwelling},
    {einRibs, {-1, 0, 0, -2, -1, 0, 0}, kNoSkill},
    {einShoulder, {0, -1, 0, 0, -1, 0, -1}, kNoSkill},
}};
/// A swollen eye costs this much more when any swelling entry of either eye
/// is at least kClosingEye percent.
inline constexpr int kClosingEye = 50;
inline constexpr RoundRow kEyeClosing = {0, 0, -1, 0, 0, 0, 0};
inline constexpr int kReduceSwellingPerPoint = 10;
inline constexpr int kReduceSwellingCap = 90;

// ---------------------------------------------------------------------------
// Compile-time checks that every table keeps its effects small.

template <std::size_t N>
constexpr bool Small(const std::array<int8_t, N>& row) {
  for (int8_t d : row) {
    if (d < -kMaxDelta || d > kMaxDelta) return false;
  }
  return true;
}

constexpr bool TablesAreBounded() {
  for (const auto& r : kTrainingFocus) {
    if (!Small(r.overtraining)) return false;
    for (const auto& s : r.steps) {
      if (s.gain != 1 && s.gain != -1) return false;
    }
  }
  for (const auto& r : kCareer) {
    if (!Small(r.change)) return false;
  }
  for (const auto& r : kCondition) {
    if (!Small(r.change) || r.cf_modifier < -kMaxDelta || r.cf_modifier > kMaxDelta) return false;
  }
  for (const auto& r : kStrategy) {
    if (!Small(r.change)) return false;
  }
  for (const auto& r : kFatigue) {
    if (!Small(r.change)) return false;
  }
  for (const auto& r : kGashGrade) {
    if (!Small(r)) return false;
  }
  for (const auto& r : kInjury) {
    if (!Small(r.change)) return false;
  }
  return Small(kKillerInstinct) && Small(kGashBothEyes) && Small(kEyeClosing);
}
static_assert(TablesAreBounded(), "an adjustment table moves a rating by more than kMaxDelta");
static_assert(kMaxTrainingSteps <= 3, "a training step must not touch the same rating twice");

}  // namespace ringbook::engine_detail
