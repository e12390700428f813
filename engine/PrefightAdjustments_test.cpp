#include <gtest/gtest.h>

#include <ostream>
#include <utility>
#include <vector>

#include "core/Error.h"
#include "engine/CFighterInFight.h"
#include "options/COptions.h"
#include "support/Raised.h"
#include "support/ScriptedDice.h"
#include "support/TempSettings.h"

namespace ringbook {
namespace {

using test::ScriptedDiceScope;

// A mid-table fighter whose every adjusted rating has room to move both ways.
void SetBaseline(CFighter& fr) {
  using C = CFighter;
  for (auto set : {&C::SetPl, &C::SetCp, &C::SetHp, &C::SetDefn, &C::SetE10}) (fr.*set)(10);
  for (auto set : {&C::SetKdr1, &C::SetKdr2, &C::SetKor, &C::SetKi, &C::SetCfb, &C::SetCfs}) {
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

// A baseline fighter and dice that must roll exactly `rolls`.
struct Camp {
  explicit Camp(const std::vector<int32_t>& rolls) {
    SetBaseline(*f.FR());
    for (int32_t roll : rolls) dice->Then(roll);
  }
  Moved moved() const { return MovedFrom(*f.FR()); }
  ScriptedDiceScope dice;
  CFighterInFight f;
};

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
  // Training, career, south-paw, condition, referee, weight class in turn.
  Moved want = {.pl = 1 - 2 - 2, .cp = -2 - 2, .hp = -1, .defn = 1 + 2, .e10 = 1 - 1};
  want.kdr1 = want.kdr2 = want.ki = want.tko = 1;
  want.cfb = want.cfs = -1 - 1;
  EXPECT_EQ(MovedFrom(*me.FR()), want);
  EXPECT_EQ(MovedFrom(*opponent.FR()), Moved{});  // only read
}

TEST_F(ChainTest, SkipTrainingSkipsOnlyTheCampAndWeightClassNeedsTheOption) {
  ScriptedDiceScope dice;
  me.SetTraining(etfOffense);
  me.Trainer()->SetTrainingOffense(9);
  me.SetCondition(ecnSharp);          // E10 + 1, no roll of its own
  options.Referee()->SetStoppage(0);  // Tko + 1
  me.FR()->SetDivision(5);            // heavier, but the options leave it be
  dice->Then(1);                      // the discipline roll only: no camp roll
  me.MakePrefightAdjustments(opponent, options, true);
  EXPECT_EQ(MovedFrom(*me.FR()), (Moved{.e10 = 1, .tko = 1}));
}

TEST_F(ChainTest, ConditioningRunsUnlessTheCornersDisciplineSparesIt) {
  me.SetCondition(ecnSharp);       // E10 + 1 each time the adjustment runs
  me.CutMan()->SetDiscipline(20);  // the better of the two counts: 3 % a point
  struct Case {
    int32_t use_conditioning;
    int16_t trainer_discipline;
    int roll;  // 0: no discipline roll expected
    int e10;
  };
  for (const Case c : {Case{-1, 5, 60, 10}, Case{-1, 5, 61, 11}, Case{0, 5, 0, 12},
                       Case{7, 5, 0, 13}, Case{-1, 34, 100, 13}}) {  // 34: spared whatever the roll
    ScriptedDiceScope dice;
    me.SetUseConditioning(c.use_conditioning);
    me.Trainer()->SetDiscipline(c.trainer_discipline);
    if (c.roll != 0) dice->Then(c.roll);
    me.MakePrefightAdjustments(opponent, options);
    EXPECT_EQ(me.FR()->E10(), c.e10) << "roll " << c.roll;
  }
}

TEST_F(ChainTest, MissingRefereeFailsAfterTheEarlierSteps) {
  ScriptedDiceScope dice;
  me.SetUseConditioning(0);
  me.SetCondition(ecnSharp);
  options.SetReferee(nullptr);
  EXPECT_EQ(test::Raised([&] { me.MakePrefightAdjustments(opponent, options); }).Number(),
            errnum::kObjectNotSet);
  EXPECT_EQ(me.FR()->E10(), 11);  // conditioning, made before, stays made
}

TEST(FixedAdjustmentTest, RefereeSouthPawAndWeightClass) {
  CFighterInFight f;
  f.FR()->SetTko(1);
  for (int16_t stoppage : {0, 1, 3, -1, 2, 2}) f.AdjustForReferee(stoppage);
  EXPECT_EQ(f.FR()->Tko(), 1);  // 1 + 1 - 1, then held at 1
  f.AdjustForReferee(0);
  EXPECT_EQ(f.FR()->Tko(), 2);

  // Only the orthodox fighter facing a south-paw loses.
  ScriptedDiceScope dice;
  for (const auto& [roll, loss] : {std::pair{20, 1}, std::pair{21, 2}}) {
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

  // The higher division gives way.
  SetBaseline(*f.FR());
  f.FR()->SetSouthPaw(0);
  f.FR()->SetDivision(5);
  f.FR()->SetCfb(6);
  f.FR()->SetCfs(2);
  f.AdjustForWeightClass(3);  // d = 2; Cfb 6 - 2 = 4, Cfs 2 - 2 = 0 is raised to 1
  Moved heavier = {.pl = -4, .cp = -4, .hp = -2, .defn = 4, .kdr1 = 2, .kdr2 = 2};
  heavier.cfb = 4 - 5;
  heavier.cfs = 1 - 5;
  EXPECT_EQ(MovedFrom(*f.FR()), heavier);

  SetBaseline(*f.FR());
  f.AdjustForWeightClass(5);  // the lighter side
  f.AdjustForWeightClass(3);  // equal divisions
  EXPECT_EQ(MovedFrom(*f.FR()), Moved{});

  // Past the 16-bit range: the runtime's overflow, earlier changes kept.
  f.FR()->SetDivision(4);
  f.FR()->SetDefn(32766);
  EXPECT_EQ(test::Raised([&] { f.AdjustForWeightClass(3); }).Number(), errnum::kOverflow);
  EXPECT_EQ(f.FR()->Kdr2(), 6);
}

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
      // A grade-2 trainer and a good camp.
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
    Camp b({c.camp});
    b.f.SetTraining(c.focus);
    b.f.Trainer()->SetTrainingOffense(c.focus == etfOffense ? c.trainer : 0);
    b.f.Trainer()->SetTrainingDefense(c.focus == etfDefense ? c.trainer : 0);
    b.f.Trainer()->SetTrainingAverage(c.focus == etfBalanced ? c.trainer : 0);
    int16_t v = c.host;
    b.f.AdjustForTraining(v);
    EXPECT_EQ(v, c.steps) << "focus " << c.focus << " camp " << c.camp;
    EXPECT_EQ(b.moved(), c.moved) << "focus " << c.focus << " camp " << c.camp;
  }
}

TEST(TrainingAdjustmentTest, HardCampRisksOvertrainingAndAnUnknownFocusIsNoCamp) {
  for (const auto& [overtraining, e10] : {std::pair{20, 1 - 2}, std::pair{21, 1}}) {
    Camp b({50, overtraining});
    b.f.SetTraining(etfHardCamp);
    b.f.Trainer()->SetTrainingAverage(6);  // 2 steps, and 1 for the hard camp
    int16_t v = 0;
    b.f.AdjustForTraining(v);
    EXPECT_EQ(v, 3);
    EXPECT_EQ(b.moved(), (Moved{.hp = 1, .defn = 1, .e10 = e10}));
  }
  Camp b({});
  b.f.SetTraining(7);
  int16_t v = 2;
  b.f.AdjustForTraining(v);
  EXPECT_EQ(v, 0);
  EXPECT_EQ(b.moved(), Moved{});
}

TEST(CareerStageAdjustmentTest, EachStageAndTheTrainersMotivation) {
  struct Case {
    int16_t stage;
    int16_t motivate;
    std::vector<int32_t> rolls;  // none when the stage has no penalty
    Moved moved;
  };
  const Case cases[] = {
      {ecsRising, 0, {}, {.e10 = 1, .ki = 1}},
      {12, 0, {}, {}},  // not a stage
      // Motivate 6 spares the penalties at 30 % or less.
      {ecsVeteran, 6, {31}, {.defn = 1, .e10 = -1, .kor = 1}},
      {ecsVeteran, 6, {30}, {.defn = 1}},                                // spared: the bonus stays
      {ecsFaded, 40, {51}, {.pl = -1, .e10 = -2, .kdr1 = 1, .kor = 2}},  // capped at 50 %
      {ecsFaded, 40, {50}, {}},
  };
  for (const Case& c : cases) {
    Camp b(c.rolls);
    b.f.SetCareer(c.stage);
    b.f.Trainer()->SetMotivate(c.motivate);
    Variant v;
    b.f.AdjustForCareerStage(v);
    EXPECT_EQ(v.ToInteger(), c.stage);
    EXPECT_EQ(b.moved(), c.moved) << "stage " << c.stage << " motivate " << c.motivate;
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

TEST(ConditioningAdjustmentTest, ConditionRowsAndTheFightersOwnHabits) {
  struct Case {
    int32_t condition;
    int16_t conditioning;
    std::vector<int32_t> rolls;
    Moved moved;
    int16_t cf_modifier;
  };
  const Case cases[] = {
      // Conditioning 8 halves the penalties at 40 % or less.
      {ecnPoor, 8, {40}, {.e10 = -1}, -1},
      {ecnPoor, 8, {41}, {.pl = -1, .defn = -1, .e10 = -3, .kdr1 = 1}, -2},
      {ecnSharp, 0, {}, {.e10 = 1}, 1},
      {ecnNormal, 20, {51}, {.e10 = -1}, 0},  // capped at 50 %
      {9, 0, {}, {}, 0},
  };
  for (const Case& c : cases) {
    Camp b(c.rolls);
    b.f.FR()->SetConditioning(c.conditioning);
    b.f.SetCondition(c.condition);
    b.f.AdjustForConditioning();
    EXPECT_EQ(b.moved(), c.moved) << "condition " << c.condition;
    EXPECT_EQ(b.f.CfModifier(), c.cf_modifier) << "condition " << c.condition;
  }
}

TEST(PrefightAdjustmentTest, RatingsStayInsideTheirBands) {
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
