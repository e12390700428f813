#include <gtest/gtest.h>

#include "engine/CFighterInFight.h"
#include "support/ScriptedDice.h"

namespace ringbook {
namespace {

using test::ScriptedDiceScope;

// In-fight entries of 5 (Kdr1R 5) in every round, so that a change to the
// wrong round shows.
void FillRounds(CFighterInFight& f) {
  for (int16_t r = 0; r <= 15; ++r) {
    f.SetAggR(r, 5);
    f.SetCpR(r, 5);
    f.SetDefnR(r, 5);
    f.SetEndrR(r, 5);
    f.SetHpR(r, 5);
    f.SetKdr1R(r, 5);
    f.SetPlR(r, 5);
  }
}

struct Entries {
  int16_t agg, cp, defn, endr, hp, kdr1, pl;
  bool operator==(const Entries&) const = default;
};

Entries Round(const CFighterInFight& f, int16_t r) {
  return {f.AggR(r), f.CpR(r), f.DefnR(r), f.EndrR(r), f.HpR(r), f.Kdr1R(r), f.PlR(r)};
}

constexpr Entries kUntouched = {5, 5, 5, 5, 5, 5, 5};

void ExpectOtherRoundsUntouched(const CFighterInFight& f, int16_t changed) {
  for (int16_t r = 0; r <= 15; ++r) {
    if (r != changed) EXPECT_TRUE(Round(f, r) == kUntouched) << "round " << r;
  }
}

TEST(StrategyAdjustmentTest, APlanCarriedOutChangesItsRoundOnly) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  FillRounds(f);
  f.SetStrategyUsed(estAllOut);
  dice->Then(50);  // Strategy 0: a 50 % chance, won
  f.AdjustForStrategy(3);
  EXPECT_TRUE(Round(f, 3) == (Entries{7, 5, 3, 4, 6, 5, 4}));
  ExpectOtherRoundsUntouched(f, 3);

  dice->Then(51);  // lost: the fighter fights his own fight
  f.AdjustForStrategy(4);
  EXPECT_TRUE(Round(f, 4) == kUntouched);
}

TEST(StrategyAdjustmentTest, TheTrainersStrategyRaisesTheChanceUpToItsCap) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  FillRounds(f);
  f.SetStrategyUsed(estSurvive);
  f.Trainer()->SetStrategy(9);  // 50 + 45 = 95 %
  dice->Then(95).Then(96);
  f.AdjustForStrategy(1);
  f.AdjustForStrategy(2);
  EXPECT_TRUE(Round(f, 1) == (Entries{3, 5, 7, 5, 4, 5, 4}));
  EXPECT_TRUE(Round(f, 2) == kUntouched);

  f.Trainer()->SetStrategy(30);  // still 95 %: a plan can always be ignored
  dice->Then(96);
  f.AdjustForStrategy(5);
  EXPECT_TRUE(Round(f, 5) == kUntouched);
}

TEST(StrategyAdjustmentTest, KillerInstinctSurgesWhateverThePlan) {
  ScriptedDiceScope dice;  // no plan: no roll
  CFighterInFight f;
  FillRounds(f);
  f.SetStrategyUsed(estNone);
  f.AdjustForStrategy(6, true);
  EXPECT_TRUE(Round(f, 6) == (Entries{7, 5, 4, 5, 6, 5, 5}));
  f.SetStrategyUsed(42);  // unknown plan: the same
  f.AdjustForStrategy(7, false);
  EXPECT_TRUE(Round(f, 7) == kUntouched);
  EXPECT_EQ(dice->Rolled(), 0);
}

TEST(EnduranceAdjustmentTest, TiersFollowTheShareOfEnduranceLost) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  FillRounds(f);
  f.FR()->SetE10(20);
  struct Case {
    int16_t lost;
    Entries round;
  };
  const Case cases[] = {
      {4, kUntouched},               // 20 %: fresh, no roll
      {5, {5, 5, 5, 5, 4, 5, 4}},    // 25 %
      {10, {4, 5, 4, 5, 4, 5, 4}},   // 50 %
      {15, {4, 5, 3, 5, 3, 6, 3}},   // 75 %
      {400, {4, 5, 3, 5, 3, 6, 3}},  // far past: the last tier
  };
  int16_t round = 1;
  for (const Case& c : cases) {
    f.SetEnduranceLost(c.lost);
    if (c.lost >= 5) dice->Then(1);  // Motivate 0 never lifts him
    f.AdjustForEnduranceLost(round);
    EXPECT_TRUE(Round(f, round) == c.round) << "lost " << c.lost;
    ++round;
  }
  EXPECT_TRUE(Round(f, 0) == kUntouched);
}

TEST(EnduranceAdjustmentTest, AMotivatingTrainerLiftsOneTier) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  FillRounds(f);
  f.FR()->SetE10(20);
  f.SetEnduranceLost(15);
  f.Trainer()->SetMotivate(10);  // 50 %
  dice->Then(50).Then(51);
  f.AdjustForEnduranceLost(2);
  f.AdjustForEnduranceLost(3);
  EXPECT_TRUE(Round(f, 2) == (Entries{4, 5, 4, 5, 4, 5, 4}));  // the 50 % tier
  EXPECT_TRUE(Round(f, 3) == (Entries{4, 5, 3, 5, 3, 6, 3}));

  // Without endurance to lose, any loss is the worst tier.
  f.FR()->SetE10(0);
  f.SetEnduranceLost(1);
  f.Trainer()->SetMotivate(0);
  dice->Then(100);
  f.AdjustForEnduranceLost(4);
  EXPECT_TRUE(Round(f, 4) == (Entries{4, 5, 3, 5, 3, 6, 3}));
}

TEST(GashAdjustmentTest, TheWorseEyeSetsTheGradeAndBothEyesCostMore) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  FillRounds(f);
  f.SetGash(0, 2);
  dice->Then(1);  // CloseCuts 0: the cut man cannot help
  f.AdjustForGash(1);
  EXPECT_TRUE(Round(f, 1) == (Entries{5, 5, 4, 5, 5, 5, 4}));

  f.SetGash(0, 7);  // counts as 3
  f.SetGash(1, 1);
  dice->Then(100).Then(100);
  f.AdjustForGash(2);
  EXPECT_TRUE(Round(f, 2) == (Entries{5, 5, 3, 5, 5, 6, 3}));
  EXPECT_TRUE(Round(f, 3) == kUntouched);
}

TEST(GashAdjustmentTest, TheCutMansWorkEasesEachEyeAGrade) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  FillRounds(f);
  f.CutMan()->SetCloseCuts(9);  // 90 %
  f.SetGash(0, 3);
  f.SetGash(1, 1);
  dice->Then(91).Then(90);  // the left gash stays at 3, the right one closes
  f.AdjustForGash(4);
  EXPECT_TRUE(Round(f, 4) == (Entries{5, 5, 3, 5, 5, 6, 4}));  // no both-eyes cost
  EXPECT_EQ(f.Gash(1), 1);  // the host's record of the gash is kept

  f.CutMan()->SetCloseCuts(50);  // still 90 %
  f.SetGash(0, 1);
  f.SetGash(1, 0);
  dice->Then(91);
  f.AdjustForGash(5);
  EXPECT_TRUE(Round(f, 5) == (Entries{5, 5, 4, 5, 5, 5, 5}));
}

TEST(GashAdjustmentTest, NoGashNoRoll) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  FillRounds(f);
  f.SetGash(0, -1);
  f.AdjustForGash(1);
  EXPECT_TRUE(Round(f, 1) == kUntouched);
  EXPECT_EQ(dice->Rolled(), 0);
}

TEST(InjuryAdjustmentTest, EachTypeHampersItsRoundAndIsRecorded) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  FillRounds(f);
  f.AdjustForInjuries(einHand, 1);  // no treatment roll
  EXPECT_TRUE(Round(f, 1) == (Entries{5, 5, 5, 5, 3, 5, 4}));
  EXPECT_EQ(f.Injuries(), 0b0001);
  f.AdjustForInjuries(einRibs, 2);
  EXPECT_TRUE(Round(f, 2) == (Entries{4, 5, 5, 3, 4, 5, 5}));
  f.AdjustForInjuries(einShoulder, 3);
  EXPECT_TRUE(Round(f, 3) == (Entries{5, 4, 5, 5, 4, 5, 4}));
  EXPECT_EQ(f.Injuries(), 0b1101);
  f.AdjustForInjuries(einHand, 4);  // the same injury again: same bit
  EXPECT_EQ(f.Injuries(), 0b1101);

  f.AdjustForInjuries(0, 5);
  f.AdjustForInjuries(9, 5);
  EXPECT_TRUE(Round(f, 5) == kUntouched);
  EXPECT_EQ(f.Injuries(), 0b1101);
  EXPECT_EQ(dice->Rolled(), 0);
}

TEST(InjuryAdjustmentTest, ASwollenEyeIsWorseWhenClosingAndEasedByTheCutMan) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  FillRounds(f);
  dice->Then(1);  // ReduceSwelling 0
  f.AdjustForInjuries(einSwollenEye, 1);
  EXPECT_TRUE(Round(f, 1) == (Entries{5, 5, 4, 5, 5, 5, 4}));
  EXPECT_EQ(f.Injuries(), 0b0010);

  f.SetREyeSwelling(1, 50);
  dice->Then(1);
  f.AdjustForInjuries(einSwollenEye, 2);
  EXPECT_TRUE(Round(f, 2) == (Entries{5, 5, 3, 5, 5, 5, 4}));

  // Treated (ReduceSwelling 5: 50 %): every one-point cost halves to nothing.
  f.CutMan()->SetReduceSwelling(5);
  dice->Then(50);
  f.AdjustForInjuries(einSwollenEye, 3);
  EXPECT_TRUE(Round(f, 3) == kUntouched);
}

TEST(InBoutAdjustmentTest, EntriesStayInsideTheirBands) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  // Round 8 left at 0 by the host except a Kdr1R already past the scale.
  f.SetKdr1R(8, 12);
  f.SetEnduranceLost(100);
  f.FR()->SetE10(10);
  dice->Then(100);
  f.AdjustForEnduranceLost(8);
  EXPECT_TRUE(Round(f, 8) == (Entries{0, 0, 0, 0, 0, 12, 0}));

  f.SetKdr1R(9, 10);
  f.SetHpR(9, 1);
  dice->Then(100);
  f.AdjustForEnduranceLost(9);
  EXPECT_EQ(f.Kdr1R(9), 10);
  EXPECT_EQ(f.HpR(9), 0);
}

// The worked examples of docs/engine-adjustments.md.
TEST(DocumentedExamplesTest, StrategyEnduranceGashAndInjury) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  f.SetStrategyUsed(estAllOut);
  f.Trainer()->SetStrategy(6);
  f.SetAggR(9, 6);
  f.SetDefnR(9, 5);
  f.SetEndrR(9, 7);
  f.SetHpR(9, 8);
  f.SetPlR(9, 6);
  dice->Then(77);
  f.AdjustForStrategy(9);
  EXPECT_TRUE(Round(f, 9) == (Entries{8, 0, 3, 6, 9, 0, 5}));

  FillRounds(f);
  f.FR()->SetE10(40);
  f.SetEnduranceLost(22);
  f.Trainer()->SetMotivate(4);
  dice->Then(13);
  f.AdjustForEnduranceLost(2);
  EXPECT_TRUE(Round(f, 2) == (Entries{5, 5, 5, 5, 4, 5, 4}));

  f.SetGash(0, 2);
  f.SetGash(1, 1);
  f.CutMan()->SetCloseCuts(5);
  dice->Then(70).Then(22);
  f.AdjustForGash(3);
  EXPECT_TRUE(Round(f, 3) == (Entries{5, 5, 4, 5, 5, 5, 4}));

  f.SetREyeSwelling(0, 65);
  f.CutMan()->SetReduceSwelling(3);
  dice->Then(80);
  f.AdjustForInjuries(einSwollenEye, 6);
  EXPECT_TRUE(Round(f, 6) == (Entries{5, 5, 3, 5, 5, 5, 4}));
}

}  // namespace
}  // namespace ringbook
