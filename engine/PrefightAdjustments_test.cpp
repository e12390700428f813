#include <gtest/gtest.h>

#include <ostream>
#include <utility>

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
  for (auto set : {&CFighter::SetPl, &CFighter::SetCp, &CFighter::SetHp, &CFighter::SetDefn,
                   &CFighter::SetE10}) {
    (fr.*set)(10);
  }
  for (auto set : {&CFighter::SetKdr1, &CFighter::SetKdr2, &CFighter::SetKor, &CFighter::SetKi,
                   &CFighter::SetCfb, &CFighter::SetCfs}) {
    (fr.*set)(5);
  }
  fr.SetTko(3);
  fr.SetDivision(3);
}

// How far each rating moved from the baseline.
struct Moved {
  int pl = 0, cp = 0, hp = 0, defn = 0, e10 = 0, kdr1 = 0, kdr2 = 0, kor = 0, ki = 0, tko = 0,
      cfb = 0, cfs = 0;
  bool operator==(const Moved&) const = default;
};
void PrintTo(const Moved& m, std::ostream* os) {
  *os << "{pl " << m.pl << ", cp " << m.cp << ", hp " << m.hp << ", defn " << m.defn << ", e10 "
      << m.e10 << ", kdr1 " << m.kdr1 << ", kdr2 " << m.kdr2 << ", kor " << m.kor << ", ki " << m.ki
      << ", tko " << m.tko << ", cfb " << m.cfb << ", cfs " << m.cfs << "}";
}
Moved MovedFrom(const CFighter& fr) {
  return {fr.Pl() - 10,  fr.Cp() - 10, fr.Hp() - 10, fr.Defn() - 10, fr.E10() - 10, fr.Kdr1() - 5,
          fr.Kdr2() - 5, fr.Kor() - 5, fr.Ki() - 5,  fr.Tko() - 3,   fr.Cfb() - 5,  fr.Cfs() - 5};
}

// ---- The chain ----

class ChainTest : public ::testing::Test {
 protected:
  ChainTest() {
    SetBaseline(*me.FR());
    SetBaseline(*opponent.FR());
    // Bout fields whose adjustments change nothing and roll nothing, so that
    // a test switches on only what it looks at.
    me.SetTraining(99);
    me.SetCondition(99);
    options.SetAdjWeightClass(false);
    options.Referee()->SetStoppage(1);
  }

  test::TempSettings settings;  // the options keep their file in a temporary folder
  COptions options;
  CFighterInFight me;
  CFighterInFight opponent;
};

TEST_F(ChainTest, RunsEveryStepInOrder) {
  ScriptedDiceScope dice;
  me.SetTraining(etfOffense);
  me.Trainer()->SetTrainingOffense(3);  // one step: Pl + 1
  me.SetCareer(ecsRising);              // no penalty, no roll: E10 + 1, Ki + 1
  opponent.FR()->SetSouthPaw(1);
  me.SetCondition(ecnNormal);  // E10 - 1
  options.Referee()->SetStoppage(0);
  options.SetAdjWeightClass(true);
  me.FR()->SetDivision(4);  // d = 1
  dice->Then(50)            // camp roll: neither good nor bad
      .Then(21)             // south-paw: Pl and Cp - 2
      .Then(1)              // discipline 0: conditioning runs
      .Then(100);           // the fighter's own conditioning does not help

  me.MakePrefightAdjustments(opponent, options);
  EXPECT_EQ(MovedFrom(*me.FR()), (Moved{.pl = 1 - 2 - 2,
                                        .cp = -2 - 2,
                                        .hp = -1,
                                        .defn = 1 + 2,
                                        .e10 = 1 - 1,
                                        .kdr1 = 1,
                                        .kdr2 = 1,
                                        .ki = 1,
                                        .tko = 1,
                                        .cfb = -1 - 1,
                                        .cfs = -1 - 1}));
  EXPECT_EQ(MovedFrom(*opponent.FR()), Moved{});  // only read
}

TEST_F(ChainTest, SkipTrainingSkipsOnlyTheCamp) {
  ScriptedDiceScope dice;
  me.SetTraining(etfOffense);
  me.Trainer()->SetTrainingOffense(9);
  me.SetCondition(ecnSharp);          // E10 + 1, no roll of its own
  options.Referee()->SetStoppage(0);  // Tko + 1
  dice->Then(1);                      // the discipline roll only: no camp roll
  me.MakePrefightAdjustments(opponent, options, true);
  EXPECT_EQ(MovedFrom(*me.FR()), (Moved{.e10 = 1, .tko = 1}));
}

TEST_F(ChainTest, ConditioningRunsUnlessTheCornersDisciplineSparesIt) {
  me.SetCondition(ecnSharp);  // E10 + 1 each time the adjustment runs
  me.CutMan()->SetDiscipline(20);
  me.Trainer()->SetDiscipline(5);  // the better of the two counts: 3 x 20 = 60
  struct Case {
    int32_t use_conditioning;
    int roll;  // 0: no discipline roll expected
    int e10;
  };
  for (const Case c : {Case{-1, 60, 10}, Case{-1, 61, 11}, Case{0, 0, 12}, Case{7, 0, 13}}) {
    ScriptedDiceScope dice;
    me.SetUseConditioning(c.use_conditioning);
    if (c.roll != 0) dice->Then(c.roll);
    me.MakePrefightAdjustments(opponent, options);
    EXPECT_EQ(me.FR()->E10(), c.e10) << "roll " << c.roll;
  }
  // A discipline of 34 or more spares it whatever the roll.
  ScriptedDiceScope dice;
  me.SetUseConditioning(-1);
  me.Trainer()->SetDiscipline(34);
  dice->Then(100);
  me.MakePrefightAdjustments(opponent, options);
  EXPECT_EQ(me.FR()->E10(), 13);
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

// ---- The fixed adjustments ----

TEST(RefereeAdjustmentTest, StoppageMovesTkoAndTheRecordKeepsItAtLeastOne) {
  CFighterInFight f;
  f.FR()->SetTko(1);
  for (int16_t stoppage : {0, 1, 3, -1, 2, 2}) f.AdjustForReferee(stoppage);
  EXPECT_EQ(f.FR()->Tko(), 1);  // 1 + 1 - 1, then held at 1
  f.AdjustForReferee(0);
  EXPECT_EQ(f.FR()->Tko(), 2);
}

TEST(SouthPawAdjustmentTest, OnlyTheOrthodoxFighterFacingASouthPawLoses) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  for (const auto [roll, loss] : {std::pair{20, 1}, std::pair{21, 2}}) {
    SetBaseline(*f.FR());
    dice->Then(roll);
    f.AdjustForSouthPaw(roll == 20 ? 1 : 255);
    EXPECT_EQ(MovedFrom(*f.FR()),
              (Moved{.pl = -loss, .cp = -loss, .defn = 1, .cfb = -1, .cfs = -1}))
        << "roll " << roll;
  }
  // Two orthodox fighters, two south-paws, a south-paw facing an orthodox
  // fighter: nothing changes and nothing is rolled.
  SetBaseline(*f.FR());
  f.AdjustForSouthPaw(0);
  f.FR()->SetSouthPaw(1);
  f.AdjustForSouthPaw(1);
  f.AdjustForSouthPaw(0);
  EXPECT_EQ(MovedFrom(*f.FR()), Moved{});
  EXPECT_EQ(dice->Rolled(), 2);
}

TEST(WeightClassAdjustmentTest, TheHigherDivisionGivesWay) {
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.FR()->SetDivision(5);
  f.FR()->SetCfb(6);
  f.FR()->SetCfs(2);
  f.AdjustForWeightClass(3);  // d = 2; Cfs 2 - 2 = 0 is raised to 1
  EXPECT_EQ(MovedFrom(*f.FR()), (Moved{.pl = -4,
                                       .cp = -4,
                                       .hp = -2,
                                       .defn = 4,
                                       .kdr1 = 2,
                                       .kdr2 = 2,
                                       .cfb = 6 - 2 - 5,
                                       .cfs = 1 - 5}));

  SetBaseline(*f.FR());
  f.AdjustForWeightClass(5);  // the lighter side
  f.AdjustForWeightClass(3);  // equal divisions
  EXPECT_EQ(MovedFrom(*f.FR()), Moved{});

  // Past the 16-bit range: the runtime's overflow, earlier changes kept.
  f.FR()->SetDivision(4);
  f.FR()->SetDefn(32766);
  try {
    f.AdjustForWeightClass(3);
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kOverflow);
  }
  EXPECT_EQ(f.FR()->Kdr2(), 6);
}

// ---- Training ----

TEST(TrainingAdjustmentTest, TrainerGradeCampRollAndHostStepsSetTheGains) {
  struct Case {
    ETrainingFocus focus;
    int16_t trainer;  // the rating the focus reads; the others stay 0
    int32_t camp;
    int16_t host;
    int16_t steps;
    Moved moved;
  };
  const Case cases[] = {
      // The documented example: a grade-2 trainer and a good camp.
      {etfOffense, 7, 95, 0, 3, {.pl = 1, .cp = 1, .hp = 1}},
      {etfBalanced, 4, 10, 0, 0, {}},  // a bad camp wipes out the one step
      {etfBalanced, 4, 11, 0, 1, {.pl = 1}},
      {etfBalanced, 4, 91, 0, 2, {.pl = 1, .defn = 1}},
      // Lost steps come back off the same ratings; -6 is held at -2.
      {etfDefense, 0, 1, -5, -2, {.defn = -1, .kdr1 = 1}},
      // 3 + 1 + 4 is held at 3: no rating moves by more than one.
      {etfDefense, 10, 100, 4, 3, {.defn = 1, .kdr1 = -1, .kdr2 = -1}},
  };
  for (const Case& c : cases) {
    ScriptedDiceScope dice;
    CFighterInFight f;
    SetBaseline(*f.FR());
    f.SetTraining(c.focus);
    f.Trainer()->SetTrainingOffense(c.focus == etfOffense ? c.trainer : 0);
    f.Trainer()->SetTrainingDefense(c.focus == etfDefense ? c.trainer : 0);
    f.Trainer()->SetTrainingAverage(c.focus == etfBalanced ? c.trainer : 0);
    dice->Then(c.camp);
    int16_t v = c.host;
    f.AdjustForTraining(v);
    EXPECT_EQ(v, c.steps) << "focus " << c.focus << " camp " << c.camp;
    EXPECT_EQ(MovedFrom(*f.FR()), c.moved) << "focus " << c.focus << " camp " << c.camp;
  }
}

TEST(TrainingAdjustmentTest, HardCampRisksOvertrainingAndAnUnknownFocusIsNoCamp) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  f.SetTraining(etfHardCamp);
  f.Trainer()->SetTrainingAverage(6);  // 2 steps, and 1 for the hard camp
  for (const auto [overtraining, e10] : {std::pair{20, 1 - 2}, std::pair{21, 1}}) {
    SetBaseline(*f.FR());
    dice->Then(50).Then(overtraining);
    int16_t v = 0;
    f.AdjustForTraining(v);
    EXPECT_EQ(v, 3);
    EXPECT_EQ(MovedFrom(*f.FR()), (Moved{.hp = 1, .defn = 1, .e10 = e10}));
  }

  SetBaseline(*f.FR());
  f.SetTraining(7);
  int16_t v = 2;
  f.AdjustForTraining(v);
  EXPECT_EQ(v, 0);
  EXPECT_EQ(MovedFrom(*f.FR()), Moved{});
  EXPECT_EQ(dice->Rolled(), 4);
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

// ---- Career stage ----

TEST(CareerStageAdjustmentTest, EachStageAndTheTrainersMotivation) {
  struct Case {
    int16_t stage;
    int16_t motivate;
    int32_t roll;  // 0: no roll expected (the stage has no penalty)
    Moved moved;
  };
  const Case cases[] = {
      {ecsNovice, 0, 1, {.pl = -1, .defn = -1, .e10 = 1, .kdr1 = 1, .ki = -1}},
      {ecsRising, 0, 0, {.e10 = 1, .ki = 1}},
      {12, 0, 0, {}},  // not a stage
      // The documented example: Motivate 6 (30 %) and a roll of 42.
      {ecsVeteran, 6, 42, {.defn = 1, .e10 = -1, .kor = 1}},
      {ecsVeteran, 6, 30, {.defn = 1}},                                // spared: the bonus stays
      {ecsFaded, 40, 51, {.pl = -1, .e10 = -2, .kdr1 = 1, .kor = 2}},  // capped at 50 %
      {ecsFaded, 40, 50, {}},
  };
  for (const Case& c : cases) {
    ScriptedDiceScope dice;
    CFighterInFight f;
    SetBaseline(*f.FR());
    f.SetCareer(c.stage);
    f.Trainer()->SetMotivate(c.motivate);
    if (c.roll != 0) dice->Then(c.roll);
    Variant v;
    f.AdjustForCareerStage(v);
    EXPECT_EQ(v.ToInteger(), c.stage);
    EXPECT_EQ(MovedFrom(*f.FR()), c.moved) << "stage " << c.stage << " roll " << c.roll;
  }
}

TEST(CareerStageAdjustmentTest, AGivenStageOverridesCareerAndKorStaysOnItsScale) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetBaseline(*f.FR());
  f.FR()->SetKor(9);
  dice->Then(100);
  Variant v(int16_t{ecsFaded});
  f.AdjustForCareerStage(v);     // Career is still prime
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
  struct Case {
    int32_t condition;
    int16_t conditioning;
    int32_t roll;  // 0: no roll expected
    Moved moved;
    int16_t cf_modifier;
  };
  const Case cases[] = {
      // The documented example: Conditioning 8 (40 %), roll 25: halved.
      {ecnPoor, 8, 25, {.e10 = -1}, -1},
      {ecnPoor, 8, 41, {.pl = -1, .defn = -1, .e10 = -3, .kdr1 = 1}, -2},
      {ecnDrained, 0, 1, {.hp = -1, .e10 = -2, .kdr1 = 1, .kor = 1}, -1},
      {ecnSharp, 0, 0, {.e10 = 1}, 1},
      {ecnNormal, 20, 51, {.e10 = -1}, 0},  // capped at 50 %
      {9, 0, 0, {}, 0},
  };
  for (const Case& c : cases) {
    ScriptedDiceScope dice;
    CFighterInFight f;
    SetBaseline(*f.FR());
    f.FR()->SetConditioning(c.conditioning);
    f.SetCondition(c.condition);
    if (c.roll != 0) dice->Then(c.roll);
    f.AdjustForConditioning();
    EXPECT_EQ(MovedFrom(*f.FR()), c.moved) << "condition " << c.condition << " roll " << c.roll;
    EXPECT_EQ(f.CfModifier(), c.cf_modifier) << "condition " << c.condition;
  }
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

}  // namespace
}  // namespace ringbook
