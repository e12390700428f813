#include "engine/CFighterInFight.h"

#include <gtest/gtest.h>

#include "core/Error.h"
#include "support/ScriptedDice.h"

namespace ringbook {
namespace {

using test::ScriptedDiceScope;
using F = CFighterInFight;

// The per-round tables (rounds 0 to 15) and the plain 16-bit fields, so that
// a test can fill every entry with a value of its own.
struct RoundTable {
  int16_t (F::*get)(int16_t) const;
  void (F::*set)(int16_t, int16_t);
};
constexpr RoundTable kRoundTables[] = {
    {&F::AggR, &F::SetAggR},
    {&F::CfR, &F::SetCfR},
    {&F::CpR, &F::SetCpR},
    {&F::DefnR, &F::SetDefnR},
    {&F::EndrR, &F::SetEndrR},
    {&F::HpR, &F::SetHpR},
    {&F::Kdr1R, &F::SetKdr1R},
    {&F::PlR, &F::SetPlR},
    {&F::PmR, &F::SetPmR},
    {&F::PointsScored, &F::SetPointsScored},
    {&F::ThreeKDcount, &F::SetThreeKDcount},
    {&F::Cut, &F::SetCut},  // 1 to 8 only; filled over those below
};
struct Field {
  int16_t (F::*get)() const;
  void (F::*set)(int16_t);
};
constexpr Field kFields[] = {
    {&F::AmtTimeDown, &F::SetAmtTimeDown},
    {&F::Career, &F::SetCareer},
    {&F::CfModifier, &F::SetCfModifier},
    {&F::EnduranceLost, &F::SetEnduranceLost},
    {&F::Fouls, &F::SetFouls},
    {&F::KDEffects, &F::SetKDEffects},
    {&F::KiR, &F::SetKiR},
    {&F::KnockDowns, &F::SetKnockDowns},
    {&F::MinuteDown, &F::SetMinuteDown},
    {&F::RmCount, &F::SetRmCount},
    {&F::StrategyUsed, &F::SetStrategyUsed},
    {&F::TempFatigued, &F::SetTempFatigued},
    {&F::Training, &F::SetTraining},
    {&F::WinInside, &F::SetWinInside},
};

constexpr void (F::*kEyeSetters[])(int16_t, int16_t) = {
    &F::SetCutOver, &F::SetCutUnder, &F::SetGash, &F::SetLEyeSwelling, &F::SetREyeSwelling};

bool InTable(std::size_t table, int16_t index) {
  return table == std::size(kRoundTables) - 1 ? index >= 1 && index <= 8 : true;
}
// A distinct value for every entry, none of them clamped (Kdr1R holds 10 at
// most before the first round).
int16_t Pattern(std::size_t table, int16_t index) {
  if (kRoundTables[table].get == &F::Kdr1R && index == 0) return 10;
  return static_cast<int16_t>(11 + table * 20 + index);
}

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
  f.SetREyeSwelling(0, 100);
  f.SetREyeSwelling(1, -7);
  EXPECT_EQ(f.LEyeSwelling(1), 100);
  EXPECT_EQ(f.REyeSwelling(0), 100);
  EXPECT_EQ(f.REyeSwelling(1), 0);

  f.SetPmCount(1, 300);  // the low byte
  f.SetClCount(15, -1);
  EXPECT_EQ(f.PmCount(1), 44);
  EXPECT_EQ(f.ClCount(15), 255);
}

TEST(CFighterInFightTest, SecondPunchVariantsShareTheirFamilysEntries) {
  F f;
  f.SetPunchCount(2, 2, 9);
  f.SetPunchCount(10, 15, 4);  // type 10 writes type 5
  f.SetPunchCount(5, 1, 1);    // neighbours of (1, 2) in storage
  f.SetPunchCount(11, 2, 50);  // ignored
  f.SetPunchCount(-1, 2, 50);  // ignored
  EXPECT_EQ(f.PunchCount(7, 2), 9);
  EXPECT_EQ(f.PunchCount(5, 15), 4);
  EXPECT_EQ(f.PunchCount(1, 2), 0);
  EXPECT_EQ(f.PunchCount(11, 2), 0);
  EXPECT_EQ(f.PunchCount(0, 2), 0);
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
  EXPECT_EQ(f.ScoreCardTotal(2), 10);
  EXPECT_EQ(f.ScoreCardTotal(0, 4), 17);
  EXPECT_EQ(f.ScoreCardTotal(3, 4), 8);

  f.SetPointsScored(0, 10);
  f.SetPointsScored(15, 5);
  EXPECT_EQ(f.PointsScoredTotal(), 15);

  f.SetPunchCount(1, 1, 3);
  f.SetPunchCount(3, 1, 4);
  f.SetPunchCount(3, 9, 5);
  EXPECT_EQ(f.PunchCountTotal(), 12);
  EXPECT_EQ(f.PunchCountTotal(3), 9);
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
  try {
    f.PointsScoredTotal();
    FAIL() << "no overflow";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kOverflow);
  }
}

TEST(CFighterInFightTest, KnockOutThresholdsAtTheirEdges) {
  F f;
  ScriptedDiceScope dice;
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
  EXPECT_EQ(dice->Rolled(), 23);
  EXPECT_TRUE(f.FR()->ProfileDirty());  // reading Kor raises the record's flag
}

TEST(CFighterInFightTest, MissingObjectsFailAsNotSet) {
  F f;
  f.SetFR(nullptr);
  try {
    f.PunchType();
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kObjectNotSet);
  }
  EXPECT_THROW(F().Clone(f), Error);
}

TEST(CFighterInFightTest, CloneCopiesEverythingButInjuries) {
  F source;
  source.FR()->SetFirstName("Eli");
  source.FR()->SetWon(12);
  source.Trainer()->SetStrategy(7);
  source.CutMan()->SetCloseCuts(9);
  for (std::size_t t = 0; t < std::size(kRoundTables); ++t) {
    for (int16_t r = 0; r <= 15; ++r) {
      if (InTable(t, r)) (source.*kRoundTables[t].set)(r, Pattern(t, r));
    }
  }
  for (std::size_t i = 0; i < std::size(kFields); ++i) {
    (source.*kFields[i].set)(static_cast<int16_t>(100 + i));
  }
  for (int16_t r = 1; r <= 15; ++r) {
    source.SetPmCount(r, static_cast<int16_t>(r * 11));
    source.SetClCount(r, static_cast<int16_t>(r * 2));
    for (int16_t t = 1; t <= 5; ++t) source.SetPunchCount(t, r, static_cast<int16_t>(t * r));
    for (int16_t c = 1; c <= 3; ++c) source.SetScoreCard(c, r, static_cast<int16_t>(c * r));
  }
  for (int16_t c = 1; c <= 3; ++c) source.SetScoreCard(c, 0, c);
  for (int16_t e = 0; e <= 1; ++e) {
    for (auto set : kEyeSetters) (source.*set)(e, static_cast<int16_t>(40 + e));
  }
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
  for (std::size_t t = 0; t < std::size(kRoundTables); ++t) {
    for (int16_t r = 0; r <= 15; ++r) {
      if (InTable(t, r))
        EXPECT_EQ((target.*kRoundTables[t].get)(r), Pattern(t, r)) << t << "/" << r;
    }
  }
  for (std::size_t i = 0; i < std::size(kFields); ++i) {
    EXPECT_EQ((target.*kFields[i].get)(), 100 + static_cast<int>(i)) << "field " << i;
  }
  for (int16_t r = 1; r <= 15; ++r) EXPECT_EQ(target.PunchCountTotal(0, r), 15 * r);
  for (int16_t e = 0; e <= 1; ++e) {
    EXPECT_EQ(target.CutOver(e) + target.CutUnder(e) + target.Gash(e), 3 * (40 + e));
    EXPECT_EQ(target.LEyeSwelling(e) + target.REyeSwelling(e), 2 * (40 + e));
  }
  EXPECT_EQ(target.PmTotal(), source.PmTotal());
  EXPECT_EQ(target.ClTotal(), source.ClTotal());
  EXPECT_EQ(target.ScoreCardTotal(), source.ScoreCardTotal());
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
