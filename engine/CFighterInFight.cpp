#include "engine/CFighterInFight.h"

#include <cstdint>

#include "core/Error.h"
#include "core/HostServices.h"
#include "engine/TableIndex_impl.h"

namespace ringbook {
namespace {

using engine_detail::ReadEntry;
using engine_detail::Slot;
using engine_detail::WriteEntry;

constexpr int kRoundHi = CFighterInFight::kLastRound;

// The totals are 16-bit results: a sum past that range is an overflow, as the
// runtime reports it, rather than a silently wrapped figure.
int16_t ToInteger(int32_t sum) {
  if (sum < INT16_MIN || sum > INT16_MAX) throw Error::Overflow();
  return static_cast<int16_t>(sum);
}

// Punch types 6 to 10 count with 1 to 5; 0 for any type that has no entry.
int PunchFamily(int type) {
  if (type >= 1 && type <= 5) return type;
  if (type >= 6 && type <= 10) return type - 5;
  return 0;
}

// Roll of at least this knocks out a fighter of `Kor` 1 to 10: 5 % more for
// each step of `Kor`.
constexpr int16_t kKnockoutRoll[10] = {96, 91, 86, 81, 76, 71, 66, 61, 56, 51};

}  // namespace

CFighterInFight::CFighterInFight()
    : fr_(std::make_shared<CFighter>()),
      trainer_(std::make_shared<CCornerman>()),
      cut_man_(std::make_shared<CCornerman>()) {}

void CFighterInFight::ThrowNotSet() {
  throw Error::ObjectNotSet();
}

CCornerman& CFighterInFight::TrainerRef() const {
  if (!trainer_) throw Error::ObjectNotSet();
  return *trainer_;
}

CCornerman& CFighterInFight::CutManRef() const {
  if (!cut_man_) throw Error::ObjectNotSet();
  return *cut_man_;
}

// ---- Indexed tables ----

namespace {

// What a setter stores of the value it is given, by table. The index comes
// along for the rules that hold only one entry.
int16_t Kept(int, int16_t value) {
  return value;
}
int16_t NonNegative(int, int16_t value) {
  return value < 0 ? int16_t{0} : value;
}
// Only the value before the first round is held to the record's scale;
// knock-downs during the bout may push later rounds past it.
int16_t RecordScaleBeforeFirstRound(int index, int16_t value) {
  return index == 0 && value >= 11 ? int16_t{10} : value;
}
uint8_t LowByte(int, int16_t value) {
  return static_cast<uint8_t>(value & 0xFF);
}
// Swelling is a percentage of the eye closed.
uint8_t Percentage(int, int16_t value) {
  if (value > 100) return 100;
  if (value < 0) return 0;
  return static_cast<uint8_t>(value);
}

}  // namespace

// One getter and setter pair of a table indexed `lo` to `hi`; the setter
// stores `rule(index, value)`. Out-of-range indexes are handled by
// ReadEntry/WriteEntry.
#define RINGBOOK_INDEXED_TABLE(Name, table, lo, hi, rule)                        \
  auto CFighterInFight::Name(int16_t index) const->decltype(table)::value_type { \
    return ReadEntry<lo, hi>(table, index);                                      \
  }                                                                              \
  void CFighterInFight::Set##Name(int16_t index, int16_t value) {                \
    WriteEntry<lo, hi>(table, index, rule(index, value));                        \
  }

RINGBOOK_INDEXED_TABLE(AggR, agg_r_, 0, kRoundHi, Kept)
RINGBOOK_INDEXED_TABLE(CfR, cf_r_, 0, kRoundHi, Kept)
RINGBOOK_INDEXED_TABLE(CpR, cp_r_, 0, kRoundHi, Kept)
RINGBOOK_INDEXED_TABLE(DefnR, defn_r_, 0, kRoundHi, Kept)
RINGBOOK_INDEXED_TABLE(EndrR, endr_r_, 0, kRoundHi, NonNegative)
RINGBOOK_INDEXED_TABLE(HpR, hp_r_, 0, kRoundHi, NonNegative)
RINGBOOK_INDEXED_TABLE(Kdr1R, kdr1_r_, 0, kRoundHi, RecordScaleBeforeFirstRound)
RINGBOOK_INDEXED_TABLE(PlR, pl_r_, 0, kRoundHi, Kept)
RINGBOOK_INDEXED_TABLE(PmR, pm_r_, 0, kRoundHi, Kept)
RINGBOOK_INDEXED_TABLE(PointsScored, points_scored_, 0, kRoundHi, NonNegative)
RINGBOOK_INDEXED_TABLE(ThreeKDcount, three_kd_count_, 0, kRoundHi, Kept)
RINGBOOK_INDEXED_TABLE(PmCount, pm_count_, 1, kRoundHi, LowByte)
RINGBOOK_INDEXED_TABLE(ClCount, cl_count_, 1, kRoundHi, LowByte)
RINGBOOK_INDEXED_TABLE(Cut, cut_, 1, 8, Kept)
RINGBOOK_INDEXED_TABLE(CutOver, cut_over_, 0, 1, Kept)
RINGBOOK_INDEXED_TABLE(CutUnder, cut_under_, 0, 1, Kept)
RINGBOOK_INDEXED_TABLE(Gash, gash_, 0, 1, Kept)
RINGBOOK_INDEXED_TABLE(LEyeSwelling, l_eye_swelling_, 0, 1, Percentage)
RINGBOOK_INDEXED_TABLE(REyeSwelling, r_eye_swelling_, 0, 1, Percentage)

#undef RINGBOOK_INDEXED_TABLE

// ---- Counts and cards ----

int16_t CFighterInFight::PunchCount(int16_t iPunchType, int16_t iRound) const {
  const int family = PunchFamily(iPunchType);
  if (family == 0) return 0;
  const int round = Slot<1, kRoundHi>(iRound);
  if (round < 0) return 0;
  return punch_count_[static_cast<std::size_t>(round) * kPunchFamilies +
                      static_cast<std::size_t>(family - 1)];
}

void CFighterInFight::SetPunchCount(int16_t iPunchType, int16_t iRound, int16_t value) {
  const int family = PunchFamily(iPunchType);
  if (family == 0) return;
  const int round = Slot<1, kRoundHi>(iRound);
  if (round < 0) return;
  punch_count_[static_cast<std::size_t>(round) * kPunchFamilies +
               static_cast<std::size_t>(family - 1)] = value;
}

int16_t CFighterInFight::ScoreCard(int16_t iCard, int16_t iRound) const {
  const int card = Slot<1, 3>(iCard);
  const int round = Slot<0, kRoundHi>(iRound);
  if (card < 0 || round < 0) return 0;
  return score_card_[static_cast<std::size_t>(card) * kRounds + static_cast<std::size_t>(round)];
}

void CFighterInFight::SetScoreCard(int16_t iCard, int16_t iRound, int16_t value) {
  const int card = Slot<1, 3>(iCard);
  const int round = Slot<0, kRoundHi>(iRound);
  if (card < 0 || round < 0) return;
  score_card_[static_cast<std::size_t>(card) * kRounds + static_cast<std::size_t>(round)] = value;
}

// ---- Totals ----

int16_t CFighterInFight::PmTotal() const {
  int32_t sum = 0;
  for (uint8_t count : pm_count_) sum += count;
  return ToInteger(sum);
}

int16_t CFighterInFight::ClTotal() const {
  int32_t sum = 0;
  for (uint8_t count : cl_count_) sum += count;
  return ToInteger(sum);
}

int16_t CFighterInFight::PointsScoredTotal() const {
  int32_t sum = 0;
  for (int16_t points : points_scored_) sum += points;
  return ToInteger(sum);
}

int16_t CFighterInFight::PunchCountTotal(int16_t iPunchType, int16_t iRound) const {
  const int first_type = iPunchType == 0 ? 1 : iPunchType;
  const int last_type = iPunchType == 0 ? 5 : iPunchType;
  const int first_round = iRound == 0 ? 1 : iRound;
  const int last_round = iRound == 0 ? kRoundHi : iRound;
  int32_t sum = 0;
  for (int type = first_type; type <= last_type; ++type) {
    for (int round = first_round; round <= last_round; ++round) {
      sum += PunchCount(static_cast<int16_t>(type), static_cast<int16_t>(round));
    }
  }
  return ToInteger(sum);
}

int16_t CFighterInFight::ScoreCardTotal(int16_t iCard, int16_t iRound) const {
  const int first_card = iCard == 0 ? 1 : iCard;
  const int last_card = iCard == 0 ? 3 : iCard;
  // An omitted round means every round, the one before the first included.
  const int first_round = iRound == 0 ? 0 : iRound;
  const int last_round = iRound == 0 ? kRoundHi : iRound;
  int32_t sum = 0;
  for (int card = first_card; card <= last_card; ++card) {
    for (int round = first_round; round <= last_round; ++round) {
      sum += ScoreCard(static_cast<int16_t>(card), static_cast<int16_t>(round));
    }
  }
  return ToInteger(sum);
}

// ---- Rules ----

bool CFighterInFight::EitherStyle() const {
  return Record().Style() == 2;
}

bool CFighterInFight::IsKnockedout() const {
  // The roll comes first and is made whatever `Kor` holds, so that a replay
  // draws the same numbers whatever the ratings.
  const int32_t roll = Dice().Roll(100, 1);
  const int16_t kor = Record().Kor();
  if (kor < 1 || kor > 10) return false;
  return roll >= kKnockoutRoll[kor - 1];
}

void CFighterInFight::Clone(CFighterInFight& Target) const {
  Record().Clone(Target.Record(), ersAll);
  TrainerRef().Clone(Target.TrainerRef());
  CutManRef().Clone(Target.CutManRef());

  for (int16_t round = 0; round <= kRoundHi; ++round) {
    Target.SetAggR(round, AggR(round));
    Target.SetCfR(round, CfR(round));
    Target.SetCpR(round, CpR(round));
    Target.SetDefnR(round, DefnR(round));
    Target.SetEndrR(round, EndrR(round));
    Target.SetHpR(round, HpR(round));
    Target.SetKdr1R(round, Kdr1R(round));
    Target.SetPlR(round, PlR(round));
    Target.SetPmR(round, PmR(round));
    Target.SetPointsScored(round, PointsScored(round));
    Target.SetThreeKDcount(round, ThreeKDcount(round));
    if (round >= 1) {
      Target.SetPmCount(round, PmCount(round));
      Target.SetClCount(round, ClCount(round));
    }
  }
  for (int16_t type = 1; type <= 5; ++type) {
    for (int16_t round = 1; round <= kRoundHi; ++round) {
      Target.SetPunchCount(type, round, PunchCount(type, round));
    }
  }

  Target.SetAmtTimeDown(AmtTimeDown());
  Target.SetCareer(Career());
  Target.SetCfModifier(CfModifier());
  Target.SetUseConditioning(UseConditioning());
  Target.SetCondition(Condition());

  for (int16_t type = 1; type <= 8; ++type) Target.SetCut(type, Cut(type));
  for (int16_t eye = 0; eye <= 1; ++eye) {
    Target.SetCutOver(eye, CutOver(eye));
    Target.SetCutUnder(eye, CutUnder(eye));
    Target.SetGash(eye, Gash(eye));
    Target.SetLEyeSwelling(eye, LEyeSwelling(eye));
    Target.SetREyeSwelling(eye, REyeSwelling(eye));
  }

  Target.SetEnduranceLost(EnduranceLost());
  Target.SetFoulPenalty(FoulPenalty());
  Target.SetFouls(Fouls());
  Target.SetHandsLow(HandsLow());
  Target.SetInTheCorner(InTheCorner());
  Target.SetKDEffects(KDEffects());
  Target.SetKiR(KiR());
  Target.SetKnockDowns(KnockDowns());
  Target.SetMinuteDown(MinuteDown());
  Target.SetRmCount(RmCount());

  for (int16_t card = 1; card <= 3; ++card) {
    for (int16_t round = 0; round <= kRoundHi; ++round) {
      Target.SetScoreCard(card, round, ScoreCard(card, round));
    }
  }

  Target.SetStrategyUsed(StrategyUsed());
  Target.SetTempFatigued(TempFatigued());
  Target.SetTournamentID(TournamentID());
  Target.SetTraining(Training());
  Target.SetWinInside(WinInside());
  Target.SetWinner(Winner());
}

}  // namespace ringbook
