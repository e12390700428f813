#include <gtest/gtest.h>

#include "core/Error.h"
#include "engine/CFighterInFight.h"
#include "options/COptions.h"
#include "support/ScriptedDice.h"
#include "support/TempSettings.h"

namespace ringbook {
namespace {

using test::ScriptedDiceScope;

// A mid-table fighter whose every adjusted rating has room to move both ways.
void SetBaseline(CFighter& fr) {
  fr.SetPl(10);
  fr.SetCp(10);
  fr.SetHp(10);
  fr.SetDefn(10);
  fr.SetE10(10);
  fr.SetKdr1(5);
  fr.SetKdr2(5);
  fr.SetKor(5);
  fr.SetKi(5);
  fr.SetCfb(5);
  fr.SetCfs(5);
  fr.SetTko(3);
  fr.SetDivision(3);
}

// Bout fields whose adjustments change nothing and roll nothing, so that a
// test switches on only what it looks at.
void SetQuiet(CFighterInFight& f) {
  f.SetTraining(99);
  f.SetCareer(ecsPrime);
  f.SetCondition(99);
}

class ChainTest : public ::testing::Test {
 protected:
  ChainTest() {
    SetBaseline(*me.FR());
    SetBaseline(*opponent.FR());
    SetQuiet(me);
    options.SetAdjWeightClass(false);
    options.Referee()->SetStoppage(1);  // changes nothing
  }

  test::TempSettings settings;  // the options keep their file in a temporary folder
  COptions options;
  CFighterInFight me;
  CFighterInFight opponent;
};

TEST_F(ChainTest, QuietFighterWithADisciplinedCornerIsUnchanged) {
  ScriptedDiceScope dice;
  me.Trainer()->SetDiscipline(34);  // 3 x 34 > 100: conditioning always spared
  dice->Then(100);                  // the discipline roll is still made
  me.MakePrefightAdjustments(opponent, options);
  EXPECT_EQ(me.FR()->Pl(), 10);
  EXPECT_EQ(me.FR()->E10(), 10);
  EXPECT_EQ(me.FR()->Tko(), 3);
  EXPECT_EQ(me.CfModifier(), 0);
}

TEST_F(ChainTest, RunsEveryStepInOrder) {
  ScriptedDiceScope dice;
  me.SetTraining(etfOffense);
  me.Trainer()->SetTrainingOffense(3);  // one step: Pl + 1
  me.SetCareer(ecsRising);              // no penalty, no roll: E10 + 1, Ki + 1
  opponent.FR()->SetSouthPaw(1);
  me.SetCondition(ecnNormal);         // E10 - 1
  options.Referee()->SetStoppage(0);  // Tko + 1
  options.SetAdjWeightClass(true);
  me.FR()->SetDivision(4);  // d = 1
  dice->Then(50)            // camp roll: neither good nor bad
      .Then(21)             // south-paw: Pl and Cp - 2
      .Then(1)              // discipline 0: conditioning runs
      .Then(100);           // the fighter's own conditioning does not help

  me.MakePrefightAdjustments(opponent, options);
  const CFighter& fr = *me.FR();
  EXPECT_EQ(fr.Pl(), 10 + 1 - 2 - 2);
  EXPECT_EQ(fr.Cp(), 10 - 2 - 2);
  EXPECT_EQ(fr.E10(), 10 + 1 - 1);
  EXPECT_EQ(fr.Ki(), 6);
  EXPECT_EQ(fr.Cfb(), 5 - 1 - 1);
  EXPECT_EQ(fr.Defn(), 10 + 1 + 2);
  EXPECT_EQ(fr.Tko(), 4);
  EXPECT_EQ(fr.Kdr1(), 6);
  EXPECT_EQ(fr.Hp(), 9);
  // The opponent's record is only read.
  EXPECT_EQ(opponent.FR()->Pl(), 10);
}

TEST_F(ChainTest, SkipTrainingSkipsOnlyTheCamp) {
  ScriptedDiceScope dice;
  me.SetTraining(etfOffense);
  me.Trainer()->SetTrainingOffense(9);
  me.SetCondition(ecnSharp);          // E10 + 1, no roll of its own
  options.Referee()->SetStoppage(0);  // Tko + 1
  dice->Then(1);                      // discipline roll only: no camp roll
  me.MakePrefightAdjustments(opponent, options, true);
  EXPECT_EQ(me.FR()->Pl(), 10);
  EXPECT_EQ(me.FR()->E10(), 11);
  EXPECT_EQ(me.FR()->Tko(), 4);
}

TEST_F(ChainTest, ConditioningRunsUnlessTheCornersDisciplineSparesIt) {
  me.SetCondition(ecnSharp);  // E10 + 1 when the adjustment runs
  me.CutMan()->SetDiscipline(20);
  me.Trainer()->SetDiscipline(5);  // the better of the two counts: 3 x 20 = 60
  {
    ScriptedDiceScope dice;
    dice->Then(60);
    me.MakePrefightAdjustments(opponent, options);
    EXPECT_EQ(me.FR()->E10(), 10);
  }
  {
    ScriptedDiceScope dice;
    dice->Then(61);
    me.MakePrefightAdjustments(opponent, options);
    EXPECT_EQ(me.FR()->E10(), 11);
  }
  {
    // Any other UseConditioning runs it without the discipline roll.
    ScriptedDiceScope dice;
    me.SetUseConditioning(0);
    me.MakePrefightAdjustments(opponent, options);
    EXPECT_EQ(me.FR()->E10(), 12);
  }
}

TEST_F(ChainTest, WeightClassOnlyWhenTheOptionsSaySo) {
  ScriptedDiceScope dice;
  me.SetUseConditioning(0);
  me.FR()->SetDivision(5);
  me.MakePrefightAdjustments(opponent, options);
  EXPECT_EQ(me.FR()->Defn(), 10);
  options.SetAdjWeightClass(true);
  me.MakePrefightAdjustments(opponent, options);
  EXPECT_EQ(me.FR()->Defn(), 14);
}

TEST_F(ChainTest, MissingRefereeFailsAfterTheEarlierSteps) {
  ScriptedDiceScope dice;
  me.SetUseConditioning(0);
  me.SetCondition(ecnSharp);
  options.SetReferee(nullptr);
  try {
    me.MakePrefightAdjustments(opponent, options);
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kObjectNotSet);
  }
  EXPECT_EQ(me.FR()->E10(), 11);  // conditioning, made before, stays made
}

TEST(RefereeAdjustmentTest, StoppageMovesTko) {
  CFighterInFight f;
  f.FR()->SetTko(3);
  f.AdjustForReferee(0);
  EXPECT_EQ(f.FR()->Tko(), 4);
  f.AdjustForReferee(1);
  f.AdjustForReferee(3);
  f.AdjustForReferee(-1);
  EXPECT_EQ(f.FR()->Tko(), 4);
  f.AdjustForReferee(2);
  EXPECT_EQ(f.FR()->Tko(), 3);
  f.FR()->SetTko(1);
  f.AdjustForReferee(2);
  EXPECT_EQ(f.FR()->Tko(), 1);
}

TEST(SouthPawAdjustmentTest, OrthodoxFacingASouthPawLosesByTheRoll) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  dice->Then(20);
  f.AdjustForSouthPaw(1);
  EXPECT_EQ(f.FR()->Pl(), 9);
  EXPECT_EQ(f.FR()->Cp(), 9);
  EXPECT_EQ(f.FR()->Cfb(), 4);
  EXPECT_EQ(f.FR()->Cfs(), 4);
  EXPECT_EQ(f.FR()->Defn(), 11);

  SetBaseline(*f.FR());
  dice->Then(21);
  f.AdjustForSouthPaw(255);
  EXPECT_EQ(f.FR()->Pl(), 8);
  EXPECT_EQ(f.FR()->Cp(), 8);
  EXPECT_EQ(f.FR()->Cfb(), 4);
  EXPECT_EQ(f.FR()->Defn(), 11);
}

TEST(SouthPawAdjustmentTest, OtherPairingsChangeNothingAndRollNothing) {
  ScriptedDiceScope dice;  // any roll would fail the test
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.AdjustForSouthPaw(0);  // two orthodox fighters
  f.FR()->SetSouthPaw(1);
  f.AdjustForSouthPaw(1);  // two south-paws
  f.AdjustForSouthPaw(0);  // a south-paw facing an orthodox fighter
  EXPECT_EQ(f.FR()->Pl(), 10);
  EXPECT_EQ(f.FR()->Defn(), 10);
  EXPECT_EQ(dice->Rolled(), 0);
}

TEST(WeightClassAdjustmentTest, TheHigherDivisionGivesWay) {
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.FR()->SetDivision(5);
  f.FR()->SetCfb(2);
  f.AdjustForWeightClass(3);  // d = 2
  const CFighter& fr = *f.FR();
  EXPECT_EQ(fr.Cfb(), 1);  // 2 - 2 = 0, raised to 1
  EXPECT_EQ(fr.Cfs(), 3);
  EXPECT_EQ(fr.Hp(), 8);
  EXPECT_EQ(fr.Pl(), 6);
  EXPECT_EQ(fr.Cp(), 6);
  EXPECT_EQ(fr.Kdr1(), 7);
  EXPECT_EQ(fr.Kdr2(), 7);
  EXPECT_EQ(fr.Defn(), 14);

  // The lighter side and equal divisions change nothing.
  CFighterInFight g;
  SetBaseline(*g.FR());
  g.AdjustForWeightClass(5);
  g.AdjustForWeightClass(3);
  EXPECT_EQ(g.FR()->Defn(), 10);
  EXPECT_EQ(g.FR()->Pl(), 10);
  EXPECT_EQ(g.FR()->Kdr1(), 5);
}

TEST(WeightClassAdjustmentTest, ARatingPastTheIntegerRangeOverflows) {
  CFighterInFight f;
  f.FR()->SetDivision(2);
  f.FR()->SetDefn(32766);
  try {
    f.AdjustForWeightClass(1);
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kOverflow);
  }
  EXPECT_EQ(f.FR()->Kdr1(), 1);  // the earlier changes stay made
}

}  // namespace
}  // namespace ringbook
