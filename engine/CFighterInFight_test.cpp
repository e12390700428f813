#include "engine/CFighterInFight.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "core/Error.h"
#include "support/Raised.h"
#include "support/ScriptedDice.h"

namespace ringbook {
namespace {

using F = CFighterInFight;

TEST(CFighterInFightTest, TableSettersClampByTheirOwnRules) {
  F f;
  f.SetKdr1R(0, 14);  // held to 10 before the first round only
  f.SetKdr1R(3, 14);
  EXPECT_EQ(f.Kdr1R(0), 10);
  EXPECT_EQ(f.Kdr1R(3), 14);
  f.SetKdr1R(0, -3);
  EXPECT_EQ(f.Kdr1R(0), -3);

  f.SetHpR(2, -4);
  f.SetEndrR(15, -1);
  f.SetPointsScored(0, -9);
  f.SetPlR(1, -4);  // no rule: kept
  EXPECT_EQ(f.HpR(2), 0);
  EXPECT_EQ(f.EndrR(15), 0);
  EXPECT_EQ(f.PointsScored(0), 0);
  EXPECT_EQ(f.PlR(1), -4);

  f.SetLEyeSwelling(1, 180);
  f.SetREyeSwelling(1, -7);
  EXPECT_EQ(f.LEyeSwelling(1), 100);
  EXPECT_EQ(f.REyeSwelling(1), 0);

  f.SetPmCount(1, 300);  // the low byte
  f.SetClCount(15, -1);
  EXPECT_EQ(f.PmCount(1), 44);
  EXPECT_EQ(f.ClCount(15), 255);

  // Types 6 to 10 are the entries of types 1 to 5; other types are ignored.
  f.SetPunchCount(2, 2, 9);
  f.SetPunchCount(10, 15, 4);
  f.SetPunchCount(5, 1, 1);  // the neighbour of (1, 2) in storage
  f.SetPunchCount(11, 2, 50);
  f.SetPunchCount(-1, 2, 50);
  EXPECT_EQ(f.PunchCount(7, 2), 9);
  EXPECT_EQ(f.PunchCount(5, 15), 4);
  EXPECT_EQ(f.PunchCount(1, 2), 0);
  EXPECT_EQ(f.PunchCount(11, 2), 0);
  EXPECT_EQ(f.PunchCountTotal(), 14);
}

TEST(CFighterInFightTest, TotalsCountRoundZeroExceptForPunches) {
  F f;
  f.SetScoreCard(1, 0, 10);
  f.SetScoreCard(2, 0, 1);
  f.SetScoreCard(2, 4, 9);
  f.SetScoreCard(3, 4, 8);
  f.SetScoreCard(1, 15, 7);
  EXPECT_EQ(f.ScoreCardTotal(), 35);
  EXPECT_EQ(f.ScoreCardTotal(1), 17);
  EXPECT_EQ(f.ScoreCardTotal(0, 4), 17);
  EXPECT_EQ(f.ScoreCardTotal(3, 4), 8);

  f.SetPointsScored(0, 10);
  f.SetPointsScored(15, 5);
  EXPECT_EQ(f.PointsScoredTotal(), 15);

  f.SetPunchCount(1, 1, 3);
  f.SetPunchCount(3, 1, 4);
  f.SetPunchCount(3, 9, 5);
  EXPECT_EQ(f.PunchCountTotal(), 12);
  EXPECT_EQ(f.PunchCountTotal(8), 9);  // the "2" variant reads its family
  EXPECT_EQ(f.PunchCountTotal(0, 1), 7);
  EXPECT_EQ(f.PunchCountTotal(3, 9), 5);

  f.SetPmCount(1, 255);
  f.SetPmCount(15, 255);
  f.SetClCount(7, 3);
  EXPECT_EQ(f.PmTotal(), 510);
  EXPECT_EQ(f.ClTotal(), 3);

  // Past the 16-bit range a total overflows, as the runtime's sums do.
  f.SetPointsScored(1, 32767);
  EXPECT_EQ(test::Raised([&] { f.PointsScoredTotal(); }).Number(), errnum::kOverflow);
}

TEST(CFighterInFightTest, KnockOutThresholdsAtTheirEdges) {
  F f;
  test::ScriptedDiceScope dice;
  for (int16_t kor = 1; kor <= 10; ++kor) {
    f.FR()->SetKor(kor);
    const int32_t threshold = 101 - 5 * kor;  // 96 at Kor 1 ... 51 at Kor 10
    dice->Then(threshold).Then(threshold - 1);
    EXPECT_TRUE(f.IsKnockedout()) << "Kor " << kor;
    EXPECT_FALSE(f.IsKnockedout()) << "Kor " << kor;
  }
  // Outside 1 to 10: never, but the roll is still made.
  for (int16_t kor : {0, 11, -1}) {
    f.FR()->SetKor(kor);
    dice->Then(100);
    EXPECT_FALSE(f.IsKnockedout()) << "Kor " << kor;
  }
  EXPECT_TRUE(f.FR()->ProfileDirty());  // reading Kor raises the record's flag

  f.SetFR(nullptr);
  EXPECT_EQ(test::Raised([&] { f.PunchType(); }).Number(), errnum::kObjectNotSet);
  EXPECT_THROW(F().Clone(f), Error);
}

// Every entry the state keeps but Injuries, Kdr1R(0) and the non-numeric
// fields, as reader and writer.
struct Entry {
  std::function<int(const F&)> get;
  std::function<void(F&, int16_t)> set;
};
template <class Value>
struct Table {
  Value (F::*get)(int16_t) const;
  void (F::*set)(int16_t, int16_t);
  int16_t first, last;
};
#define ENTRY(name, first, last) \
  { &F::name, &F::Set##name, first, last }
constexpr Table<int16_t> kTables[] = {
    ENTRY(AggR, 0, 15),         ENTRY(CfR, 0, 15),          ENTRY(CpR, 0, 15),
    ENTRY(DefnR, 0, 15),        ENTRY(EndrR, 0, 15),        ENTRY(HpR, 0, 15),
    ENTRY(Kdr1R, 1, 15),        ENTRY(PlR, 0, 15),          ENTRY(PmR, 0, 15),
    ENTRY(PointsScored, 0, 15), ENTRY(ThreeKDcount, 0, 15), ENTRY(Cut, 1, 8),
    ENTRY(CutOver, 0, 1),       ENTRY(CutUnder, 0, 1),      ENTRY(Gash, 0, 1)};
constexpr Table<uint8_t> kByteTables[] = {ENTRY(PmCount, 1, 15), ENTRY(ClCount, 1, 15),
                                          ENTRY(LEyeSwelling, 0, 1), ENTRY(REyeSwelling, 0, 1)};
#undef ENTRY
#define FIELD(name) \
  { &F::name, &F::Set##name }
constexpr std::pair<int16_t (F::*)() const, void (F::*)(int16_t)> kFields[] = {
    FIELD(AmtTimeDown), FIELD(Career),    FIELD(CfModifier),   FIELD(EnduranceLost),
    FIELD(Fouls),       FIELD(KDEffects), FIELD(KiR),          FIELD(KnockDowns),
    FIELD(MinuteDown),  FIELD(RmCount),   FIELD(StrategyUsed), FIELD(TempFatigued),
    FIELD(Training),    FIELD(WinInside)};
#undef FIELD

std::vector<Entry> Entries() {
  std::vector<Entry> out;
  const auto add = [&out](const auto& table) {
    for (int16_t i = table.first; i <= table.last; ++i) {
      out.push_back({[=](const F& f) { return int{(f.*table.get)(i)}; },
                     [=](F& f, int16_t v) { (f.*table.set)(i, v); }});
    }
  };
  for (const auto& t : kTables) add(t);
  for (const auto& t : kByteTables) add(t);
  for (const auto& [get, set] : kFields) {
    out.push_back(
        {[get](const F& f) { return int{(f.*get)()}; }, [set](F& f, int16_t v) { (f.*set)(v); }});
  }
  for (int16_t r = 0; r <= 15; ++r) {
    for (int16_t t = 1; t <= 5 && r > 0; ++t) {
      out.push_back({[=](const F& f) { return int{f.PunchCount(t, r)}; },
                     [=](F& f, int16_t v) { f.SetPunchCount(t, r, v); }});
    }
    for (int16_t c = 1; c <= 3; ++c) {
      out.push_back({[=](const F& f) { return int{f.ScoreCard(c, r)}; },
                     [=](F& f, int16_t v) { f.SetScoreCard(c, r, v); }});
    }
  }
  return out;
}

TEST(CFighterInFightTest, CloneCopiesEverythingButInjuries) {
  // A distinct value for neighbouring entries, none of them clamped.
  const auto value = [](std::size_t entry) { return static_cast<int16_t>(entry % 97 + 1); };
  const std::vector<Entry> entries = Entries();
  F source;
  source.FR()->SetFirstName("Eli");
  source.FR()->SetWon(12);
  source.Trainer()->SetStrategy(7);
  source.CutMan()->SetCloseCuts(9);
  for (std::size_t i = 0; i < entries.size(); ++i) entries[i].set(source, value(i));
  source.SetKdr1R(0, 10);  // the most round 0 holds
  source.SetUseConditioning(0);
  source.SetCondition(3);
  source.SetTournamentID("T-9");
  source.SetWinner(true);
  source.SetFoulPenalty(true);
  source.SetHandsLow(true);
  source.SetInTheCorner(true);
  source.SetInjuries(5);

  F target;
  target.SetInjuries(2);
  source.Clone(target);

  EXPECT_EQ(target.Injuries(), 2);
  EXPECT_NE(target.FR(), source.FR());
  EXPECT_EQ(target.FR()->FirstName(), "Eli");
  EXPECT_EQ(target.FR()->Won(), 12);  // both sections
  EXPECT_TRUE(target.FR()->Dirty());  // through the target's setters
  EXPECT_EQ(target.Trainer()->Strategy(), 7);
  EXPECT_EQ(target.CutMan()->CloseCuts(), 9);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    EXPECT_EQ(entries[i].get(target), value(i)) << "entry " << i;
  }
  EXPECT_EQ(target.Kdr1R(0), 10);
  EXPECT_EQ(target.UseConditioning(), 0);
  EXPECT_EQ(target.Condition(), 3);
  EXPECT_EQ(target.TournamentID(), "T-9");
  EXPECT_TRUE(target.Winner() && target.FoulPenalty() && target.HandsLow() && target.InTheCorner());
}

#ifndef NDEBUG
TEST(CFighterInFightDeathTest, IndexOutsideATableStopsDebugBuilds) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  F f;
  EXPECT_DEATH(f.SetAggR(16, 1), "out of bounds");
  EXPECT_DEATH(f.PmCount(0), "out of bounds");
  EXPECT_DEATH(f.SetScoreCard(4, 0, 1), "out of bounds");
  EXPECT_DEATH(f.PunchCount(1, 0), "out of bounds");
  EXPECT_DEATH(f.SetLEyeSwelling(2, 1), "out of bounds");
}
#else
TEST(CFighterInFightTest, IndexOutsideATableIsHarmlessInReleaseBuilds) {
  F f;
  f.SetAggR(16, 1);
  f.SetCut(0, 1);
  f.SetScoreCard(4, 0, 1);
  EXPECT_EQ(f.AggR(16), 0);
  EXPECT_EQ(f.AggR(15), 0);
  EXPECT_EQ(f.Cut(1), 0);
  EXPECT_EQ(f.ScoreCardTotal(), 0);
}
#endif

}  // namespace
}  // namespace ringbook
