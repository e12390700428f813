#include "engine/CFighterInFight.h"

#include <gtest/gtest.h>

#include "core/Error.h"
#include "support/ScriptedDice.h"

namespace ringbook {
namespace {

using test::ScriptedDiceScope;

TEST(CFighterInFightTest, NewStateHasItsObjectsAndInitialValues) {
  CFighterInFight f;
  ASSERT_NE(f.FR(), nullptr);
  ASSERT_NE(f.Trainer(), nullptr);
  ASSERT_NE(f.CutMan(), nullptr);
  EXPECT_NE(f.Trainer(), f.CutMan());
  EXPECT_EQ(f.Career(), 2);
  EXPECT_EQ(f.UseConditioning(), -1);
  EXPECT_EQ(f.Condition(), 0);
  EXPECT_EQ(f.Training(), 0);
  EXPECT_EQ(f.Injuries(), 0);
  EXPECT_FALSE(f.Winner());
  EXPECT_EQ(f.TournamentID(), "");
  EXPECT_EQ(f.PmTotal(), 0);
  EXPECT_EQ(f.ClTotal(), 0);
  EXPECT_EQ(f.PointsScoredTotal(), 0);
  EXPECT_EQ(f.PunchCountTotal(), 0);
  EXPECT_EQ(f.ScoreCardTotal(), 0);
  EXPECT_EQ(f.AggR(15), 0);
  EXPECT_EQ(f.Cut(8), 0);
}

TEST(CFighterInFightTest, TableSettersClampByTheirOwnRules) {
  CFighterInFight f;
  // Kdr1R is held to 10 before the first round only.
  f.SetKdr1R(0, 14);
  f.SetKdr1R(3, 14);
  EXPECT_EQ(f.Kdr1R(0), 10);
  EXPECT_EQ(f.Kdr1R(3), 14);
  f.SetKdr1R(0, 10);
  EXPECT_EQ(f.Kdr1R(0), 10);
  f.SetKdr1R(0, -3);
  EXPECT_EQ(f.Kdr1R(0), -3);

  f.SetHpR(2, -4);
  f.SetEndrR(15, -1);
  f.SetPointsScored(0, -9);
  EXPECT_EQ(f.HpR(2), 0);
  EXPECT_EQ(f.EndrR(15), 0);
  EXPECT_EQ(f.PointsScored(0), 0);
  // The tables without a rule keep negatives.
  f.SetPlR(1, -4);
  f.SetDefnR(1, -5);
  EXPECT_EQ(f.PlR(1), -4);
  EXPECT_EQ(f.DefnR(1), -5);

  f.SetLEyeSwelling(1, 180);
  f.SetREyeSwelling(0, 100);
  f.SetREyeSwelling(1, -7);
  EXPECT_EQ(f.LEyeSwelling(1), 100);
  EXPECT_EQ(f.REyeSwelling(0), 100);
  EXPECT_EQ(f.REyeSwelling(1), 0);

  // Byte tables keep the low byte.
  f.SetPmCount(1, 300);
  f.SetClCount(15, -1);
  EXPECT_EQ(f.PmCount(1), 44);
  EXPECT_EQ(f.ClCount(15), 255);
}

TEST(CFighterInFightTest, TablesKeepTheirEntriesApart) {
  // Every entry of every 1-D table set to a distinct value and read back.
  CFighterInFight f;
  for (int16_t r = 0; r <= 15; ++r) {
    f.SetAggR(r, static_cast<int16_t>(100 + r));
    f.SetCfR(r, static_cast<int16_t>(200 + r));
    f.SetThreeKDcount(r, static_cast<int16_t>(300 + r));
  }
  for (int16_t r = 1; r <= 15; ++r) f.SetPmCount(r, r);
  for (int16_t c = 1; c <= 8; ++c) f.SetCut(c, static_cast<int16_t>(c * 3));
  f.SetCutOver(0, 1);
  f.SetCutOver(1, 2);
  f.SetCutUnder(1, 3);
  f.SetGash(0, 4);
  for (int16_t r = 0; r <= 15; ++r) {
    EXPECT_EQ(f.AggR(r), 100 + r);
    EXPECT_EQ(f.CfR(r), 200 + r);
    EXPECT_EQ(f.ThreeKDcount(r), 300 + r);
  }
  for (int16_t r = 1; r <= 15; ++r) EXPECT_EQ(f.PmCount(r), r);
  for (int16_t c = 1; c <= 8; ++c) EXPECT_EQ(f.Cut(c), c * 3);
  EXPECT_EQ(f.CutOver(0), 1);
  EXPECT_EQ(f.CutOver(1), 2);
  EXPECT_EQ(f.CutUnder(0), 0);
  EXPECT_EQ(f.CutUnder(1), 3);
  EXPECT_EQ(f.Gash(0), 4);
  EXPECT_EQ(f.Gash(1), 0);
}

TEST(CFighterInFightTest, SecondPunchVariantsShareTheirFamilysEntries) {
  CFighterInFight f;
  f.SetPunchCount(2, 2, 9);
  EXPECT_EQ(f.PunchCount(7, 2), 9);
  f.SetPunchCount(10, 15, 4);  // type 10 writes type 5
  EXPECT_EQ(f.PunchCount(5, 15), 4);
  EXPECT_EQ(f.PunchCount(11, 2), 0);
  EXPECT_EQ(f.PunchCount(0, 2), 0);
  f.SetPunchCount(11, 2, 50);  // ignored
  f.SetPunchCount(-1, 2, 50);  // ignored
  EXPECT_EQ(f.PunchCountTotal(), 13);
  // Neighbouring entries are distinct: the round runs slower than the type.
  f.SetPunchCount(5, 1, 1);
  f.SetPunchCount(1, 2, 2);
  EXPECT_EQ(f.PunchCount(5, 1), 1);
  EXPECT_EQ(f.PunchCount(1, 2), 2);
  EXPECT_EQ(f.PunchCount(2, 2), 9);
}

TEST(CFighterInFightTest, TotalsCountRoundZeroExceptForPunches) {
  CFighterInFight f;
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
  EXPECT_EQ(f.ScoreCardTotal(1, 15), 7);

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
  EXPECT_EQ(f.PunchCountTotal(11), 0);

  f.SetPmCount(1, 255);
  f.SetPmCount(15, 255);
  f.SetClCount(7, 3);
  EXPECT_EQ(f.PmTotal(), 510);
  EXPECT_EQ(f.ClTotal(), 3);
}

TEST(CFighterInFightTest, TotalsPastTheIntegerRangeOverflow) {
  CFighterInFight f;
  f.SetPointsScored(1, 32767);
  EXPECT_EQ(f.PointsScoredTotal(), 32767);
  f.SetPointsScored(2, 1);
  try {
    f.PointsScoredTotal();
    FAIL() << "no overflow";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kOverflow);
  }
  f.SetScoreCard(1, 1, -32768);
  f.SetScoreCard(2, 1, -1);
  EXPECT_THROW(f.ScoreCardTotal(), Error);
}

TEST(CFighterInFightTest, EitherStyleIsStyleTwoOnly) {
  CFighterInFight f;
  for (int16_t style : {0, 1, 3, -2}) {
    f.FR()->SetStyle(style);
    EXPECT_FALSE(f.EitherStyle()) << style;
  }
  f.FR()->SetStyle(2);
  EXPECT_TRUE(f.EitherStyle());
}

TEST(CFighterInFightTest, KnockOutThresholdsAtTheirEdges) {
  CFighterInFight f;
  ScriptedDiceScope dice;
  // Each Kor at its threshold and one below it.
  for (int16_t kor = 1; kor <= 10; ++kor) {
    f.FR()->SetKor(kor);
    const int32_t threshold = 101 - 5 * kor;
    dice->Then(threshold).Then(threshold - 1);
    EXPECT_TRUE(f.IsKnockedout()) << "Kor " << kor;
    EXPECT_FALSE(f.IsKnockedout()) << "Kor " << kor;
  }
  f.FR()->SetKor(10);
  dice->Then(51).Then(50).Then(100).Then(1);
  EXPECT_TRUE(f.IsKnockedout());
  EXPECT_FALSE(f.IsKnockedout());
  EXPECT_TRUE(f.IsKnockedout());
  EXPECT_FALSE(f.IsKnockedout());
}

TEST(CFighterInFightTest, KnockOutOutsideTheScaleRollsAndSaysNo) {
  CFighterInFight f;
  ScriptedDiceScope dice;
  for (int16_t kor : {0, 11, -1}) {
    f.FR()->SetKor(kor);
    dice->Then(100);
    EXPECT_FALSE(f.IsKnockedout()) << "Kor " << kor;
  }
  EXPECT_EQ(dice->Rolled(), 3);
}

TEST(CFighterInFightTest, KnockOutTestReadsKorAndSoRaisesTheProfileFlag) {
  CFighterInFight f;
  ScriptedDiceScope dice;
  dice->Then(1);
  ASSERT_FALSE(f.FR()->Dirty());
  f.IsKnockedout();
  EXPECT_TRUE(f.FR()->ProfileDirty());
}

TEST(CFighterInFightTest, MissingObjectsFailAsNotSet) {
  CFighterInFight f;
  f.SetFR(nullptr);
  try {
    f.EitherStyle();
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kObjectNotSet);
  }
  CFighterInFight source;
  EXPECT_THROW(source.Clone(f), Error);
}

CFighterInFight FilledState() {
  CFighterInFight f;
  f.FR()->SetFirstName("Eli");
  f.FR()->SetKor(4);
  f.FR()->SetWon(12);
  f.Trainer()->SetStrategy(7);
  f.CutMan()->SetCloseCuts(9);
  for (int16_t r = 0; r <= 15; ++r) {
    f.SetAggR(r, static_cast<int16_t>(r + 1));
    f.SetCfR(r, static_cast<int16_t>(r + 2));
    f.SetCpR(r, static_cast<int16_t>(r + 3));
    f.SetDefnR(r, static_cast<int16_t>(r + 4));
    f.SetEndrR(r, static_cast<int16_t>(r + 5));
    f.SetHpR(r, static_cast<int16_t>(r + 6));
    f.SetKdr1R(r, static_cast<int16_t>(r + 7));
    f.SetPlR(r, static_cast<int16_t>(r + 8));
    f.SetPmR(r, static_cast<int16_t>(r + 9));
    f.SetPointsScored(r, static_cast<int16_t>(r + 10));
    f.SetThreeKDcount(r, static_cast<int16_t>(r % 3));
    for (int16_t card = 1; card <= 3; ++card) {
      f.SetScoreCard(card, r, static_cast<int16_t>(10 - card));
    }
  }
  for (int16_t r = 1; r <= 15; ++r) {
    f.SetPmCount(r, static_cast<int16_t>(r * 11));
    f.SetClCount(r, static_cast<int16_t>(r * 2));
    for (int16_t t = 1; t <= 5; ++t) f.SetPunchCount(t, r, static_cast<int16_t>(t * r));
  }
  for (int16_t c = 1; c <= 8; ++c) f.SetCut(c, c);
  for (int16_t e = 0; e <= 1; ++e) {
    f.SetCutOver(e, static_cast<int16_t>(e + 1));
    f.SetCutUnder(e, static_cast<int16_t>(e + 2));
    f.SetGash(e, static_cast<int16_t>(e + 3));
    f.SetLEyeSwelling(e, static_cast<int16_t>(40 + e));
    f.SetREyeSwelling(e, static_cast<int16_t>(60 + e));
  }
  f.SetAmtTimeDown(1);
  f.SetCareer(4);
  f.SetCfModifier(-2);
  f.SetUseConditioning(0);
  f.SetCondition(3);
  f.SetEnduranceLost(17);
  f.SetFoulPenalty(true);
  f.SetFouls(2);
  f.SetHandsLow(true);
  f.SetInTheCorner(true);
  f.SetKDEffects(5);
  f.SetKiR(6);
  f.SetKnockDowns(2);
  f.SetMinuteDown(1);
  f.SetRmCount(8);
  f.SetStrategyUsed(3);
  f.SetTempFatigued(1);
  f.SetTournamentID("T-9");
  f.SetTraining(1);
  f.SetWinInside(4);
  f.SetWinner(true);
  f.SetInjuries(5);
  return f;
}

TEST(CFighterInFightTest, CloneCopiesEverythingButInjuries) {
  const CFighterInFight source = FilledState();
  CFighterInFight target;
  target.SetInjuries(2);
  source.Clone(target);

  EXPECT_EQ(target.Injuries(), 2);
  EXPECT_EQ(target.FR()->FirstName(), "Eli");
  EXPECT_EQ(target.FR()->Kor(), 4);
  EXPECT_EQ(target.FR()->Won(), 12);  // both sections
  EXPECT_NE(target.FR(), source.FR());
  EXPECT_TRUE(target.FR()->Dirty());  // copied through the target's setters
  EXPECT_EQ(target.Trainer()->Strategy(), 7);
  EXPECT_EQ(target.CutMan()->CloseCuts(), 9);

  for (int16_t r = 0; r <= 15; ++r) {
    EXPECT_EQ(target.AggR(r), source.AggR(r));
    EXPECT_EQ(target.CfR(r), source.CfR(r));
    EXPECT_EQ(target.CpR(r), source.CpR(r));
    EXPECT_EQ(target.DefnR(r), source.DefnR(r));
    EXPECT_EQ(target.EndrR(r), source.EndrR(r));
    EXPECT_EQ(target.HpR(r), source.HpR(r));
    EXPECT_EQ(target.Kdr1R(r), source.Kdr1R(r));
    EXPECT_EQ(target.PlR(r), source.PlR(r));
    EXPECT_EQ(target.PmR(r), source.PmR(r));
    EXPECT_EQ(target.PointsScored(r), source.PointsScored(r));
    EXPECT_EQ(target.ThreeKDcount(r), source.ThreeKDcount(r));
  }
  for (int16_t r = 1; r <= 15; ++r) {
    EXPECT_EQ(target.PmCount(r), source.PmCount(r));
    EXPECT_EQ(target.ClCount(r), source.ClCount(r));
    for (int16_t t = 1; t <= 5; ++t) EXPECT_EQ(target.PunchCount(t, r), t * r);
  }
  for (int16_t c = 1; c <= 8; ++c) EXPECT_EQ(target.Cut(c), c);
  for (int16_t e = 0; e <= 1; ++e) {
    EXPECT_EQ(target.CutOver(e), source.CutOver(e));
    EXPECT_EQ(target.CutUnder(e), source.CutUnder(e));
    EXPECT_EQ(target.Gash(e), source.Gash(e));
    EXPECT_EQ(target.LEyeSwelling(e), source.LEyeSwelling(e));
    EXPECT_EQ(target.REyeSwelling(e), source.REyeSwelling(e));
  }
  EXPECT_EQ(target.PmTotal(), source.PmTotal());
  EXPECT_EQ(target.ClTotal(), source.ClTotal());
  EXPECT_EQ(target.PointsScoredTotal(), source.PointsScoredTotal());
  EXPECT_EQ(target.PunchCountTotal(), source.PunchCountTotal());
  EXPECT_EQ(target.ScoreCardTotal(), source.ScoreCardTotal());

  EXPECT_EQ(target.AmtTimeDown(), 1);
  EXPECT_EQ(target.Career(), 4);
  EXPECT_EQ(target.CfModifier(), -2);
  EXPECT_EQ(target.UseConditioning(), 0);
  EXPECT_EQ(target.Condition(), 3);
  EXPECT_EQ(target.EnduranceLost(), 17);
  EXPECT_TRUE(target.FoulPenalty());
  EXPECT_EQ(target.Fouls(), 2);
  EXPECT_TRUE(target.HandsLow());
  EXPECT_TRUE(target.InTheCorner());
  EXPECT_EQ(target.KDEffects(), 5);
  EXPECT_EQ(target.KiR(), 6);
  EXPECT_EQ(target.KnockDowns(), 2);
  EXPECT_EQ(target.MinuteDown(), 1);
  EXPECT_EQ(target.RmCount(), 8);
  EXPECT_EQ(target.StrategyUsed(), 3);
  EXPECT_EQ(target.TempFatigued(), 1);
  EXPECT_EQ(target.TournamentID(), "T-9");
  EXPECT_EQ(target.Training(), 1);
  EXPECT_EQ(target.WinInside(), 4);
  EXPECT_TRUE(target.Winner());
}

#ifndef NDEBUG
TEST(CFighterInFightDeathTest, IndexOutsideATableStopsDebugBuilds) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  CFighterInFight f;
  EXPECT_DEATH(f.SetAggR(16, 1), "out of bounds");
  EXPECT_DEATH(f.PmCount(0), "out of bounds");
  EXPECT_DEATH(f.SetScoreCard(4, 0, 1), "out of bounds");
  EXPECT_DEATH(f.PunchCount(1, 0), "out of bounds");
  EXPECT_DEATH(f.SetLEyeSwelling(2, 1), "out of bounds");
}
#else
TEST(CFighterInFightTest, IndexOutsideATableIsHarmlessInReleaseBuilds) {
  CFighterInFight f;
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
