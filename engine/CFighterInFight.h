#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "core/Export.h"
#include "core/Object.h"
#include "core/Variant.h"
#include "engine/EngineEnums.h"
#include "fighters/CFighter.h"
#include "people/CCornerman.h"

namespace ringbook {

class COptions;

/// One fighter's state during one bout: the record he fights with (`FR`), his
/// corner (`Trainer`, `CutMan`), the bout fields, and the per-round tables of
/// in-fight ratings, damage, knock-downs, punch counts and score cards. The
/// host fills it, runs `MakePrefightAdjustments` once, then reads and writes
/// it round by round and asks it for punches and knock-outs.
///
/// Tables have fixed index bases that differ from table to table (given on
/// each). An index outside a table's bounds is the caller's fault: debug
/// builds stop on an assertion; release builds read 0 and ignore the write.
///
/// Members that work on `FR`, `Trainer` or `CutMan` fail with "object not
/// set" (`Error` 91) when that reference has been set to nullptr.
class RINGBOOK_EXPORT CFighterInFight : public Object {
 public:
  static constexpr int16_t kLastRound = 15;

  /// Creates a new, empty `CFighter` for `FR` and a new `CCornerman` for each
  /// of `Trainer` and `CutMan`.
  CFighterInFight();

  // ---- The fighter and his corner ----

  /// The fighter's record. The adjustments change its ratings in place
  /// through its setters: give it a clone when the stored record must stay.
  const std::shared_ptr<CFighter>& FR() const { return fr_; }
  void SetFR(std::shared_ptr<CFighter> value) { fr_ = std::move(value); }
  const std::shared_ptr<CCornerman>& Trainer() const { return trainer_; }
  void SetTrainer(std::shared_ptr<CCornerman> value) { trainer_ = std::move(value); }
  const std::shared_ptr<CCornerman>& CutMan() const { return cut_man_; }
  void SetCutMan(std::shared_ptr<CCornerman> value) { cut_man_ = std::move(value); }

  // ---- Bout fields: stored as given ----

  /// An `ECondition` code; 0 on creation.
  int32_t Condition() const { return condition_; }
  void SetCondition(int32_t value) { condition_ = value; }
  /// -1 on creation: the corner's discipline decides whether the conditioning
  /// adjustment runs. Any other value makes it run always.
  int32_t UseConditioning() const { return use_conditioning_; }
  void SetUseConditioning(int32_t value) { use_conditioning_ = value; }
  /// An `ECareerStage` code; 2 (`ecsPrime`) on creation.
  int16_t Career() const { return career_; }
  void SetCareer(int16_t value) { career_ = value; }
  /// An `ETrainingFocus` code.
  int16_t Training() const { return training_; }
  void SetTraining(int16_t value) { training_ = value; }
  bool Winner() const { return winner_; }
  void SetWinner(bool value) { winner_ = value; }
  /// Carried for the host; nothing here reads it.
  const std::string& TournamentID() const { return tournament_id_; }
  void SetTournamentID(const std::string& value) { tournament_id_ = value; }
  /// The modifier of the ring-control rating (`CfR`) that the conditioning
  /// adjustment leaves for the round simulation.
  int16_t CfModifier() const { return cf_modifier_; }
  void SetCfModifier(int16_t value) { cf_modifier_ = value; }
  /// Endurance spent so far in the bout, in the units of `FR.E10`.
  int16_t EnduranceLost() const { return endurance_lost_; }
  void SetEnduranceLost(int16_t value) { endurance_lost_ = value; }
  bool InTheCorner() const { return in_the_corner_; }
  void SetInTheCorner(bool value) { in_the_corner_ = value; }
  /// An `EStrategy` code: the plan for the current round.
  int16_t StrategyUsed() const { return strategy_used_; }
  void SetStrategyUsed(int16_t value) { strategy_used_ = value; }
  int16_t Fouls() const { return fouls_; }
  void SetFouls(int16_t value) { fouls_ = value; }
  bool FoulPenalty() const { return foul_penalty_; }
  void SetFoulPenalty(bool value) { foul_penalty_ = value; }
  int16_t WinInside() const { return win_inside_; }
  void SetWinInside(int16_t value) { win_inside_ = value; }
  int16_t KiR() const { return ki_r_; }
  void SetKiR(int16_t value) { ki_r_ = value; }
  int16_t KnockDowns() const { return knock_downs_; }
  void SetKnockDowns(int16_t value) { knock_downs_ = value; }
  int16_t AmtTimeDown() const { return amt_time_down_; }
  void SetAmtTimeDown(int16_t value) { amt_time_down_ = value; }
  int16_t KDEffects() const { return kd_effects_; }
  void SetKDEffects(int16_t value) { kd_effects_ = value; }
  int16_t MinuteDown() const { return minute_down_; }
  void SetMinuteDown(int16_t value) { minute_down_ = value; }
  int16_t RmCount() const { return rm_count_; }
  void SetRmCount(int16_t value) { rm_count_ = value; }
  bool HandsLow() const { return hands_low_; }
  void SetHandsLow(bool value) { hands_low_ = value; }
  int16_t TempFatigued() const { return temp_fatigued_; }
  void SetTempFatigued(int16_t value) { temp_fatigued_ = value; }
  /// One bit per `EInjuryType` suffered in this bout, bit (type - 1); set by
  /// `AdjustForInjuries`. Not copied by `Clone`.
  int16_t Injuries() const { return injuries_; }
  void SetInjuries(int16_t value) { injuries_ = value; }

  // ---- Per-round tables, rounds 0 to 15; entry 0 is the value before the
  // first round. AggR to PmR are the in-fight values of the record's ratings.

  int16_t AggR(int16_t iRound) const;
  void SetAggR(int16_t iRound, int16_t value);
  int16_t CfR(int16_t iRound) const;
  void SetCfR(int16_t iRound, int16_t value);
  int16_t CpR(int16_t iRound) const;
  void SetCpR(int16_t iRound, int16_t value);
  int16_t DefnR(int16_t iRound) const;
  void SetDefnR(int16_t iRound, int16_t value);
  /// A negative value is stored as 0.
  int16_t EndrR(int16_t iRound) const;
  void SetEndrR(int16_t iRound, int16_t value);
  /// A negative value is stored as 0.
  int16_t HpR(int16_t iRound) const;
  void SetHpR(int16_t iRound, int16_t value);
  /// For round 0 alone a value of 11 or more is stored as 10; later rounds
  /// keep what they are given.
  int16_t Kdr1R(int16_t iRound) const;
  void SetKdr1R(int16_t iRound, int16_t value);
  int16_t PlR(int16_t iRound) const;
  void SetPlR(int16_t iRound, int16_t value);
  int16_t PmR(int16_t iRound) const;
  void SetPmR(int16_t iRound, int16_t value);
  /// A negative value is stored as 0.
  int16_t PointsScored(int16_t iRound) const;
  void SetPointsScored(int16_t iRound, int16_t value);
  int16_t ThreeKDcount(int16_t iRound) const;
  void SetThreeKDcount(int16_t iRound, int16_t value);

  // ---- Byte tables, rounds 1 to 15: the setter keeps the low byte ----

  uint8_t PmCount(int16_t iRound) const;
  void SetPmCount(int16_t iRound, int16_t value);
  uint8_t ClCount(int16_t iRound) const;
  void SetClCount(int16_t iRound, int16_t value);

  // ---- Damage ----

  /// Cut types 1 to 8.
  int16_t Cut(int16_t iCutType) const;
  void SetCut(int16_t iCutType, int16_t value);
  /// Eyes 0 and 1.
  int16_t CutOver(int16_t iWhichEye) const;
  void SetCutOver(int16_t iWhichEye, int16_t value);
  int16_t CutUnder(int16_t iWhichEye) const;
  void SetCutUnder(int16_t iWhichEye, int16_t value);
  /// Eyes 0 and 1; 0 is no gash, 1 to 3 and above its growing severity
  /// (`AdjustForGash`).
  int16_t Gash(int16_t iWhichEye) const;
  void SetGash(int16_t iWhichEye, int16_t value);
  /// Elements 0 and 1, each a byte from 0 to 100: a value above 100 is stored
  /// as 100, and a negative one (which no byte holds) as 0.
  uint8_t LEyeSwelling(int16_t iElement) const;
  void SetLEyeSwelling(int16_t iElement, int16_t value);
  uint8_t REyeSwelling(int16_t iElement) const;
  void SetREyeSwelling(int16_t iElement, int16_t value);

  // ---- Counts and cards ----

  /// Punch types 1 to 10, rounds 1 to 15. Types 6 to 10 are the same entries
  /// as types 1 to 5 (type t above 5 is type t - 5); any other type reads 0
  /// and its writes are ignored.
  int16_t PunchCount(int16_t iPunchType, int16_t iRound) const;
  void SetPunchCount(int16_t iPunchType, int16_t iRound, int16_t value);
  /// Judge's cards 1 to 3, rounds 0 to 15.
  int16_t ScoreCard(int16_t iCard, int16_t iRound) const;
  void SetScoreCard(int16_t iCard, int16_t iRound, int16_t value);

  // ---- Totals. A total beyond the 16-bit range fails with overflow (6). ----

  /// `PmCount` over rounds 1 to 15.
  int16_t PmTotal() const;
  /// `ClCount` over rounds 1 to 15.
  int16_t ClTotal() const;
  /// `PointsScored` over rounds 0 to 15: round 0 counts.
  int16_t PointsScoredTotal() const;
  /// `PunchCount` over one type (0: types 1 to 5) and one round (0: rounds
  /// 1 to 15). Round 0 never counts here, unlike the other two totals.
  int16_t PunchCountTotal(int16_t iPunchType = 0, int16_t iRound = 0) const;
  /// `ScoreCard` over one card (0: cards 1 to 3) and one round (0: rounds 0
  /// to 15, entry 0 included).
  int16_t ScoreCardTotal(int16_t iCard = 0, int16_t iRound = 0) const;

  // ---- Rules ----

  /// True when `FR` has `Style` 2 (a fighter who can box or slug).
  bool EitherStyle() const;

  /// Whether this punch knocks the fighter out. Rolls 1 to 100 first (always,
  /// even when the answer does not depend on it), then reads `FR.Kor` (which
  /// raises the record's profile flag). A `Kor` outside 1 to 10 is never
  /// knocked out; otherwise a roll of at least 101 - 5 x `Kor` is: 5 % at
  /// `Kor` 1, 50 % at `Kor` 10.
  bool IsKnockedout() const;

  /// The next punch: 1 to 10, or 0 for none. One draw p of 0.01 to 100.00
  /// (a roll of 1 to 10000, divided by 100) against the running sum, held as
  /// a 32-bit float, of `J3`, `J2`, `H3`, `H2`, `Cr3`, `Cr2`, `Cb3`, `Cb2`,
  /// `U3`, `U2` in that order (each family's "3" then its "2": types 1, 6, 2,
  /// 7, 3, 8, 4, 9, 5, 10); the first rating whose running sum reaches p
  /// gives the type. With `ForcePunch`, a draw beyond the ten ratings' sum is
  /// redrawn until a punch comes. Forcing a punch from a fighter whose ten
  /// punch ratings are all 0 therefore never returns: callers must not.
  int16_t PunchType(bool ForcePunch = false) const;

  /// Copies this state into `Target` through its setters: the record (both
  /// sections) and the two cornermen by their own `Clone`, the per-round
  /// tables, the punch counts, the bout fields, the damage and the cards.
  /// `Injuries` is deliberately not copied: the target keeps its own.
  void Clone(CFighterInFight& Target) const;

  // ---- Pre-fight adjustments (change `FR` through its setters) ----

  /// Runs the pre-fight chain once: training (unless `SkipTraining`), career
  /// stage, the opponent's stance, conditioning (when the corner's discipline
  /// does not spare it), the referee's stoppage tendency and, when
  /// `Options.AdjWeightClass`, the division difference. Running it twice
  /// applies everything twice. Adjustments made before a failure stay made.
  void MakePrefightAdjustments(const CFighterInFight& Opponent, const COptions& Options,
                               bool SkipTraining = false);

  /// The training camp (`Training`, the trainer's training ratings and a camp
  /// roll). `v` comes in as extra steps the host grants (the chain passes 0)
  /// and goes out as the steps applied, from -2 to 3.
  void AdjustForTraining(int16_t& v);
  /// The career stage. `v` Empty or Null uses `Career`; a number is used as
  /// the stage instead. On return `v` holds the stage applied (16-bit).
  void AdjustForCareerStage(Variant& v);
  /// The shape the fighter arrives in (`Condition`), softened by his own
  /// `Conditioning` rating; also moves `CfModifier`.
  void AdjustForConditioning();
  /// The referee's stoppage tendency: 0 raises `FR.Tko` by 1, 2 lowers it by
  /// 1 (the record keeps it at least 1), anything else changes nothing.
  void AdjustForReferee(int16_t RefereeStoppage);
  /// An orthodox fighter facing a south-paw (non-zero argument): roll 1 to
  /// 100; above 20 costs 2 of `Pl` and `Cp`, otherwise 1; then `Cfb` - 1,
  /// `Cfs` - 1, `Defn` + 1. Any other pairing changes nothing and rolls none.
  void AdjustForSouthPaw(uint8_t OpponentIsSouthPaw);
  /// With d = `FR.Division` - `OpponentDivision` above 0: `Cfb` and `Cfs`
  /// - d (raised to 1 when below), `Hp` - d, `Pl` and `Cp` - 2d, `Kdr1` and
  /// `Kdr2` + d, `Defn` + 2d. Nothing when d is 0 or negative.
  void AdjustForWeightClass(int16_t OpponentDivision);

  // ---- In-bout adjustments (change the given round's entries) ----

  /// The plan in `StrategyUsed` for round `Round`, carried out when the
  /// trainer's `Strategy` wins a roll; `IsKIActive` adds the killer-instinct
  /// surge whatever the plan.
  void AdjustForStrategy(int16_t Round, bool IsKIActive = false);
  /// Fatigue: the share of `FR.E10` spent (`EnduranceLost`), eased one tier
  /// when the trainer's `Motivate` wins a roll.
  void AdjustForEnduranceLost(int16_t iRound);
  /// Blood from the gashes in `Gash(0)` and `Gash(1)`, each eased one grade
  /// when the cut man's `CloseCuts` wins a roll.
  void AdjustForGash(int16_t iRound);
  /// One injury of `EInjuryType` `nInjuryType`: records it in `Injuries` and
  /// hampers round `iRound`. An unknown type does nothing.
  void AdjustForInjuries(int32_t nInjuryType, int16_t iRound);

 private:
  static constexpr std::size_t kRounds = 16;       // rounds 0 to 15
  static constexpr std::size_t kCountRounds = 15;  // rounds 1 to 15
  static constexpr std::size_t kPunchFamilies = 5;
  static constexpr std::size_t kCards = 3;

  /// The held record; fails with "object not set" when `FR` is nullptr.
  /// Inline: the punch and knock-out calls make it thousands of times a bout.
  CFighter& Record() const {
    if (!fr_) ThrowNotSet();
    return *fr_;
  }
  [[noreturn]] static void ThrowNotSet();
  CCornerman& TrainerRef() const;
  CCornerman& CutManRef() const;

  std::shared_ptr<CFighter> fr_;
  std::shared_ptr<CCornerman> trainer_;
  std::shared_ptr<CCornerman> cut_man_;

  int32_t condition_ = 0;
  int32_t use_conditioning_ = -1;
  int16_t career_ = 2;
  int16_t training_ = 0;
  bool winner_ = false;
  std::string tournament_id_;
  int16_t cf_modifier_ = 0;
  int16_t endurance_lost_ = 0;
  bool in_the_corner_ = false;
  int16_t strategy_used_ = 0;
  int16_t fouls_ = 0;
  bool foul_penalty_ = false;
  int16_t win_inside_ = 0;
  int16_t ki_r_ = 0;
  int16_t knock_downs_ = 0;
  int16_t amt_time_down_ = 0;
  int16_t kd_effects_ = 0;
  int16_t minute_down_ = 0;
  int16_t rm_count_ = 0;
  bool hands_low_ = false;
  int16_t temp_fatigued_ = 0;
  int16_t injuries_ = 0;

  std::array<int16_t, kRounds> agg_r_{};
  std::array<int16_t, kRounds> cf_r_{};
  std::array<int16_t, kRounds> cp_r_{};
  std::array<int16_t, kRounds> defn_r_{};
  std::array<int16_t, kRounds> endr_r_{};
  std::array<int16_t, kRounds> hp_r_{};
  std::array<int16_t, kRounds> kdr1_r_{};
  std::array<int16_t, kRounds> pl_r_{};
  std::array<int16_t, kRounds> pm_r_{};
  std::array<int16_t, kRounds> points_scored_{};
  std::array<int16_t, kRounds> three_kd_count_{};
  std::array<uint8_t, kCountRounds> pm_count_{};
  std::array<uint8_t, kCountRounds> cl_count_{};
  std::array<int16_t, 8> cut_{};
  std::array<int16_t, 2> cut_over_{};
  std::array<int16_t, 2> cut_under_{};
  std::array<int16_t, 2> gash_{};
  std::array<uint8_t, 2> l_eye_swelling_{};
  std::array<uint8_t, 2> r_eye_swelling_{};
  /// Punch type fastest: (type, round) at (round - 1) * 5 + (type - 1).
  std::array<int16_t, kPunchFamilies * kCountRounds> punch_count_{};
  /// Round fastest: (card, round) at (card - 1) * 16 + round.
  std::array<int16_t, kCards * kRounds> score_card_{};

  /// Speeds up `PunchType`, which a bout calls thousands of times: the stamp
  /// of the record's punch ratings it was built from, and for each running
  /// sum of the ratings in walking order the highest roll it still covers.
  /// Checked against the record's stamp on every call and rebuilt when they
  /// differ, so it is never stale; it is not part of the state (stamp 0 is
  /// all zero ratings, which cover no roll).
  /// The reach table has two spare entries that cover every roll, so that
  /// counting over it works on whole vector registers.
  mutable uint64_t punch_stamp_ = 0;
  mutable std::array<int32_t, 12> punch_reach_{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, INT32_MAX, INT32_MAX};
  /// Out of line and cold: it runs once per change of the ratings, and
  /// keeping it apart leaves `PunchType` without a stack frame.
  [[gnu::noinline, gnu::cold]] void RebuildPunchReach(const CFighter& fr) const;
  int RatingsPassed(int32_t roll) const;
  [[gnu::noinline]] int16_t ForcedPunchType() const;
};

}  // namespace ringbook
