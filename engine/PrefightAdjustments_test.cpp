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

// ---- Training ----

TEST(TrainingAdjustmentTest, TrainerGradeAndCampRollSetTheSteps) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.SetTraining(etfOffense);
  f.Trainer()->SetTrainingOffense(9);  // three steps
  f.Trainer()->SetTrainingAverage(0);  // not the rating an offense camp reads
  dice->Then(50);
  int16_t v = 0;
  f.AdjustForTraining(v);
  EXPECT_EQ(v, 3);
  EXPECT_EQ(f.FR()->Pl(), 11);
  EXPECT_EQ(f.FR()->Hp(), 11);
  EXPECT_EQ(f.FR()->Cp(), 11);
  EXPECT_EQ(f.FR()->Defn(), 10);

  // A balanced camp with a grade-1 trainer: a bad camp roll of 10 wipes out
  // the step, a roll of 11 does not, a roll of 91 adds one.
  struct Case {
    int32_t roll;
    int16_t steps;
    int16_t pl;
    int16_t defn;
  };
  for (const Case c : {Case{10, 0, 10, 10}, Case{11, 1, 11, 10}, Case{91, 2, 11, 11}}) {
    SetBaseline(*f.FR());
    f.SetTraining(etfBalanced);
    f.Trainer()->SetTrainingAverage(4);
    dice->Then(c.roll);
    v = 0;
    f.AdjustForTraining(v);
    EXPECT_EQ(v, c.steps) << "roll " << c.roll;
    EXPECT_EQ(f.FR()->Pl(), c.pl) << "roll " << c.roll;
    EXPECT_EQ(f.FR()->Defn(), c.defn) << "roll " << c.roll;
    EXPECT_EQ(f.FR()->E10(), 10) << "roll " << c.roll;
  }
}

TEST(TrainingAdjustmentTest, HostStepsAreAddedAndTheTotalIsBounded) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.SetTraining(etfDefense);
  f.Trainer()->SetTrainingDefense(0);
  dice->Then(1);  // bad camp: -1, plus the host's -5, held at -2
  int16_t v = -5;
  f.AdjustForTraining(v);
  EXPECT_EQ(v, -2);
  EXPECT_EQ(f.FR()->Defn(), 9);
  EXPECT_EQ(f.FR()->Kdr1(), 6);  // a lost defensive step: easier to drop
  EXPECT_EQ(f.FR()->Kdr2(), 5);

  SetBaseline(*f.FR());
  f.Trainer()->SetTrainingDefense(10);
  dice->Then(100);  // 3 + 1 + the host's 4, held at 3
  v = 4;
  f.AdjustForTraining(v);
  EXPECT_EQ(v, 3);
  EXPECT_EQ(f.FR()->Defn(), 11);  // no rating moves by more than one
  EXPECT_EQ(f.FR()->Kdr1(), 4);
  EXPECT_EQ(f.FR()->Kdr2(), 4);
}

TEST(TrainingAdjustmentTest, RatingsStayInsideTheirBands) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  f.SetTraining(etfDefense);
  f.Trainer()->SetTrainingDefense(9);
  f.FR()->SetKdr1(1);  // already as hard to drop as the scale allows
  f.FR()->SetKdr2(0);  // outside the scale: left alone
  dice->Then(50);
  int16_t v = 0;
  f.AdjustForTraining(v);
  EXPECT_EQ(f.FR()->Kdr1(), 1);
  EXPECT_EQ(f.FR()->Kdr2(), 0);
  EXPECT_EQ(f.FR()->Defn(), 1);
}

TEST(TrainingAdjustmentTest, HardCampRisksOvertraining) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.SetTraining(etfHardCamp);
  f.Trainer()->SetTrainingAverage(6);  // 2 steps, and 1 for the hard camp
  dice->Then(50).Then(20);             // camp roll, then overtrained
  int16_t v = 0;
  f.AdjustForTraining(v);
  EXPECT_EQ(v, 3);
  EXPECT_EQ(f.FR()->E10(), 10 + 1 - 2);
  EXPECT_EQ(f.FR()->Hp(), 11);
  EXPECT_EQ(f.FR()->Defn(), 11);

  SetBaseline(*f.FR());
  dice->Then(50).Then(21);
  v = 0;
  f.AdjustForTraining(v);
  EXPECT_EQ(f.FR()->E10(), 11);
}

TEST(TrainingAdjustmentTest, NoCampForAnUnknownFocus) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.SetTraining(7);
  int16_t v = 2;
  f.AdjustForTraining(v);
  EXPECT_EQ(v, 0);
  EXPECT_EQ(f.FR()->Pl(), 10);
  EXPECT_EQ(dice->Rolled(), 0);
}

// ---- Career stage ----

TEST(CareerStageAdjustmentTest, EachStageChangesWhatItsRowSays) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.SetCareer(ecsFaded);
  dice->Then(1);  // Motivate 0: a chance of 0, the penalties stand
  Variant v;
  f.AdjustForCareerStage(v);
  EXPECT_EQ(v.ToInteger(), ecsFaded);
  EXPECT_EQ(f.FR()->Pl(), 9);
  EXPECT_EQ(f.FR()->E10(), 8);
  EXPECT_EQ(f.FR()->Kdr1(), 6);
  EXPECT_EQ(f.FR()->Kor(), 7);

  SetBaseline(*f.FR());
  f.SetCareer(ecsRising);  // bonuses only: no roll
  v = Variant();
  f.AdjustForCareerStage(v);
  EXPECT_EQ(f.FR()->E10(), 11);
  EXPECT_EQ(f.FR()->Ki(), 6);

  SetBaseline(*f.FR());
  f.SetCareer(ecsPrime);
  f.AdjustForCareerStage(v = Variant());
  EXPECT_EQ(v.ToInteger(), ecsPrime);
  f.SetCareer(12);  // not a stage
  f.AdjustForCareerStage(v = Variant());
  EXPECT_EQ(v.ToInteger(), 12);
  EXPECT_EQ(f.FR()->E10(), 10);
  EXPECT_EQ(f.FR()->Pl(), 10);
}

TEST(CareerStageAdjustmentTest, AMotivatingTrainerSparesThePenaltiesOnly) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.Trainer()->SetMotivate(10);  // 50 %
  f.SetCareer(ecsVeteran);
  dice->Then(50);
  Variant v;
  f.AdjustForCareerStage(v);
  EXPECT_EQ(f.FR()->Defn(), 11);  // the bonus stays
  EXPECT_EQ(f.FR()->E10(), 10);
  EXPECT_EQ(f.FR()->Kor(), 5);

  SetBaseline(*f.FR());
  f.Trainer()->SetMotivate(40);  // capped at 50 %
  dice->Then(51);
  f.AdjustForCareerStage(v = Variant());
  EXPECT_EQ(f.FR()->Defn(), 11);
  EXPECT_EQ(f.FR()->E10(), 9);
  EXPECT_EQ(f.FR()->Kor(), 6);
}

TEST(CareerStageAdjustmentTest, AGivenStageOverridesCareerAndKorStaysOnItsScale) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.FR()->SetKor(9);
  f.SetCareer(ecsPrime);
  dice->Then(100);
  Variant v(int16_t{ecsFaded});
  f.AdjustForCareerStage(v);
  EXPECT_EQ(f.FR()->Kor(), 10);  // 9 + 2, held at the top of the scale

  // A fighter the rules never knock out (Kor 0) is not made knockable.
  f.FR()->SetKor(0);
  dice->Then(100);
  f.AdjustForCareerStage(v = Variant("4"));
  EXPECT_EQ(f.FR()->Kor(), 0);

  v = Variant("veteran");
  EXPECT_THROW(f.AdjustForCareerStage(v), Error);
}

// ---- Conditioning ----

TEST(ConditioningAdjustmentTest, ConditionRowsAndTheFightersOwnHabits) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.SetCondition(ecnPoor);
  dice->Then(1);  // Conditioning 0: no help
  f.AdjustForConditioning();
  EXPECT_EQ(f.FR()->Pl(), 9);
  EXPECT_EQ(f.FR()->Defn(), 9);
  EXPECT_EQ(f.FR()->E10(), 7);
  EXPECT_EQ(f.FR()->Kdr1(), 6);
  EXPECT_EQ(f.CfModifier(), -2);

  // Conditioning 10 gives a 50 % chance of halving every penalty.
  SetBaseline(*f.FR());
  f.FR()->SetConditioning(10);
  f.SetCfModifier(0);
  dice->Then(50);
  f.AdjustForConditioning();
  EXPECT_EQ(f.FR()->Pl(), 10);
  EXPECT_EQ(f.FR()->Defn(), 10);
  EXPECT_EQ(f.FR()->E10(), 9);
  EXPECT_EQ(f.FR()->Kdr1(), 5);
  EXPECT_EQ(f.CfModifier(), -1);

  SetBaseline(*f.FR());
  f.SetCondition(ecnSharp);  // no penalty, no roll
  f.AdjustForConditioning();
  EXPECT_EQ(f.FR()->E10(), 11);
  EXPECT_EQ(f.CfModifier(), 0);
}

TEST(ConditioningAdjustmentTest, EffectsStayBounded) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  f.FR()->SetE10(2);
  f.FR()->SetKdr1(10);
  f.SetCfModifier(-4);
  f.SetCondition(ecnPoor);
  dice->Then(100);
  f.AdjustForConditioning();
  EXPECT_EQ(f.FR()->E10(), 0);    // not below the record's floor
  EXPECT_EQ(f.FR()->Kdr1(), 10);  // not above the scale
  EXPECT_EQ(f.CfModifier(), -5);  // held to its band
  EXPECT_EQ(f.FR()->Pl(), 0);
}

// The worked examples of docs/engine-adjustments.md.
TEST(DocumentedExamplesTest, TrainingCareerAndConditioning) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.SetTraining(etfOffense);
  f.Trainer()->SetTrainingOffense(7);
  dice->Then(95);
  int16_t v = 0;
  f.AdjustForTraining(v);
  EXPECT_EQ(v, 3);
  EXPECT_EQ(f.FR()->Pl(), 11);
  EXPECT_EQ(f.FR()->Hp(), 11);
  EXPECT_EQ(f.FR()->Cp(), 11);

  SetBaseline(*f.FR());
  f.SetCareer(ecsVeteran);
  f.Trainer()->SetMotivate(6);
  dice->Then(42);
  Variant stage;
  f.AdjustForCareerStage(stage);
  EXPECT_EQ(f.FR()->Defn(), 11);
  EXPECT_EQ(f.FR()->E10(), 9);
  EXPECT_EQ(f.FR()->Kor(), 6);

  SetBaseline(*f.FR());
  f.SetCondition(ecnPoor);
  f.FR()->SetConditioning(8);
  dice->Then(25);
  f.AdjustForConditioning();
  EXPECT_EQ(f.FR()->E10(), 9);
  EXPECT_EQ(f.CfModifier(), -1);
  EXPECT_EQ(f.FR()->Pl(), 10);
  EXPECT_EQ(f.FR()->Defn(), 10);
  EXPECT_EQ(f.FR()->Kdr1(), 5);
}

}  // namespace
}  // namespace ringbook
