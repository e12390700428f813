#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "engine/CFighterInFight.h"
#include "support/ScriptedDice.h"

namespace ringbook {
namespace {

// How far each entry of one round moved from 5.
struct Moved {
  int agg = 0, cp = 0, defn = 0, endr = 0, hp = 0, kdr1 = 0, pl = 0;
  bool operator==(const Moved&) const = default;
};
void PrintTo(const Moved& m, std::ostream* os) {
  *os << "{agg " << m.agg << ", cp " << m.cp << ", defn " << m.defn << ", endr " << m.endr
      << ", hp " << m.hp << ", kdr1 " << m.kdr1 << ", pl " << m.pl << "}";
}

// A fighter whose in-fight entries are 5 in every round, so that a change to
// the wrong round shows, and dice that must roll exactly `rolls`.
struct Bout {
  explicit Bout(const std::vector<int32_t>& rolls) {
    for (int32_t roll : rolls) dice->Then(roll);
    for (int16_t r = 0; r <= 15; ++r) {
      for (auto set :
           {&CFighterInFight::SetAggR, &CFighterInFight::SetCpR, &CFighterInFight::SetDefnR,
            &CFighterInFight::SetEndrR, &CFighterInFight::SetHpR, &CFighterInFight::SetKdr1R,
            &CFighterInFight::SetPlR}) {
        (f.*set)(r, 5);
      }
    }
  }
  Moved In(int16_t r) const {
    return {f.AggR(r) - 5, f.CpR(r) - 5,   f.DefnR(r) - 5, f.EndrR(r) - 5,
            f.HpR(r) - 5,  f.Kdr1R(r) - 5, f.PlR(r) - 5};
  }
  // How far round `round` moved; every other round must not have.
  Moved Only(int16_t round) const {
    for (int16_t r = 0; r <= 15; ++r) {
      if (r != round) {
        EXPECT_EQ(In(r), Moved{}) << "round " << r;
      }
    }
    return In(round);
  }
  test::ScriptedDiceScope dice;
  CFighterInFight f;
};

TEST(StrategyAdjustmentTest, APlanIsCarriedOutWhenTheTrainerWinsTheRoll) {
  struct Case {
    int16_t strategy;
    int16_t trainer;  // Strategy rating: 50 % + 5 % a point, at most 95 %
    std::vector<int32_t> rolls;
    bool ki;
    Moved moved;
  };
  const Case cases[] = {
      {estAllOut, 6, {77}, false, {.agg = 2, .defn = -2, .endr = -1, .hp = 1, .pl = -1}},
      {estBox, 0, {50}, false, {.agg = -1, .defn = 1, .hp = -1, .pl = 1}},
      {estSurvive, 30, {95}, false, {.agg = -2, .defn = 2, .hp = -1, .pl = -1}},
      {estSurvive, 30, {96}, false, {}},  // even the best corner can be ignored
      {estNone, 0, {}, true, {.agg = 2, .defn = -1, .hp = 1}},  // killer instinct alone
      {42, 0, {}, false, {}},
      {estCounter, 0, {1}, true, {.agg = 1, .cp = 1, .hp = 1}},  // both
  };
  for (const Case& c : cases) {
    Bout b(c.rolls);
    b.f.SetStrategyUsed(c.strategy);
    b.f.Trainer()->SetStrategy(c.trainer);
    b.f.AdjustForStrategy(3, c.ki);
    EXPECT_EQ(b.Only(3), c.moved) << "plan " << c.strategy << " trainer " << c.trainer;
  }
}

TEST(EnduranceAdjustmentTest, TiersFollowTheShareOfEnduranceLost) {
  const Moved tier1 = {.hp = -1, .pl = -1};
  const Moved tier2 = {.agg = -1, .defn = -1, .hp = -1, .pl = -1};
  const Moved tier3 = {.agg = -1, .defn = -2, .hp = -2, .kdr1 = 1, .pl = -2};
  struct Case {
    int16_t e10, lost, motivate;
    std::vector<int32_t> rolls;
    Moved moved;
  };
  const Case cases[] = {
      {20, 4, 0, {}, {}},  // 20 %: fresh
      {20, 5, 0, {1}, tier1},     {20, 10, 0, {1}, tier2},
      {20, 400, 0, {100}, tier3}, {20, 15, 10, {50}, tier2},  // Motivate 10 (50 %) lifts him a tier
      {20, 15, 10, {51}, tier3},  {40, 22, 4, {13}, tier1},   // 55 %, lifted
      {0, 1, 0, {100}, tier3},                                // nothing left to lose
  };
  for (const Case& c : cases) {
    Bout b(c.rolls);
    b.f.FR()->SetE10(c.e10);
    b.f.SetEnduranceLost(c.lost);
    b.f.Trainer()->SetMotivate(c.motivate);
    b.f.AdjustForEnduranceLost(7);
    EXPECT_EQ(b.Only(7), c.moved) << "lost " << c.lost << " of " << c.e10;
  }
}

TEST(GashAdjustmentTest, TheWorseEyeSetsTheGradeAndTheCutManEasesEachEye) {
  struct Case {
    int16_t left, right, close_cuts;
    std::vector<int32_t> rolls;
    Moved moved;
  };
  const Case cases[] = {
      {0, -1, 0, {}, {}},  // no gash, no roll
      {2, 0, 0, {1}, {.defn = -1, .pl = -1}},
      {7, 1, 0, {100, 100}, {.defn = -2, .kdr1 = 1, .pl = -2}},  // 7 counts as 3; both eyes
      {3, 1, 9, {91, 90}, {.defn = -2, .kdr1 = 1, .pl = -1}},    // the right one closes
      {1, 0, 50, {91}, {.defn = -1}},                            // 90 % at most
      {2, 1, 5, {70, 22}, {.defn = -1, .pl = -1}},
  };
  for (const Case& c : cases) {
    Bout b(c.rolls);
    b.f.SetGash(0, c.left);
    b.f.SetGash(1, c.right);
    b.f.CutMan()->SetCloseCuts(c.close_cuts);
    b.f.AdjustForGash(4);
    EXPECT_EQ(b.Only(4), c.moved) << "gashes " << c.left << ", " << c.right;
    EXPECT_EQ(b.f.Gash(1), c.right);  // the host's record of the gash is kept
  }
}

TEST(InjuryAdjustmentTest, EachTypeHampersItsRoundAndIsRecorded) {
  Bout b({});  // only a swollen eye rolls
  b.f.AdjustForInjuries(einHand, 1);
  b.f.AdjustForInjuries(einRibs, 2);
  b.f.AdjustForInjuries(einShoulder, 3);
  b.f.AdjustForInjuries(einHand, 4);  // the same injury again: the same bit
  b.f.AdjustForInjuries(0, 5);
  b.f.AdjustForInjuries(9, 5);
  EXPECT_EQ(b.In(1), (Moved{.hp = -2, .pl = -1}));
  EXPECT_EQ(b.In(2), (Moved{.agg = -1, .endr = -2, .hp = -1}));
  EXPECT_EQ(b.In(3), (Moved{.cp = -1, .hp = -1, .pl = -1}));
  EXPECT_EQ(b.In(5), Moved{});
  EXPECT_EQ(b.f.Injuries(), 0b1101);

  // A swollen eye costs more when closing and is eased by the cut man.
  struct Case {
    int16_t swelling, reduce_swelling;
    int32_t roll;
    Moved moved;
  };
  for (const Case& c :
       {Case{0, 0, 1, {.defn = -1, .pl = -1}}, Case{50, 0, 1, {.defn = -2, .pl = -1}},
        Case{65, 3, 80, {.defn = -2, .pl = -1}},  // not treated
        Case{65, 3, 30, {}}}) {                   // treated: every one-point cost halves to nothing
    Bout eye({c.roll});
    eye.f.SetREyeSwelling(1, c.swelling);
    eye.f.CutMan()->SetReduceSwelling(c.reduce_swelling);
    eye.f.AdjustForInjuries(einSwollenEye, 6);
    EXPECT_EQ(eye.Only(6), c.moved) << "swelling " << c.swelling << " roll " << c.roll;
    EXPECT_EQ(eye.f.Injuries(), 0b0010);
  }
}

TEST(InBoutAdjustmentTest, EntriesStayInsideTheirBands) {
  test::ScriptedDiceScope dice;
  CFighterInFight f;
  // Round 8 left at 0 by the host but for a Kdr1R already past the scale.
  f.SetKdr1R(8, 12);
  f.SetEnduranceLost(100);
  f.FR()->SetE10(10);
  dice->Then(100).Then(100);
  f.AdjustForEnduranceLost(8);
  EXPECT_EQ(f.PlR(8), 0);
  EXPECT_EQ(f.AggR(8), 0);
  EXPECT_EQ(f.Kdr1R(8), 12);
  f.SetKdr1R(9, 10);
  f.SetHpR(9, 1);
  f.AdjustForEnduranceLost(9);
  EXPECT_EQ(f.Kdr1R(9), 10);
  EXPECT_EQ(f.HpR(9), 0);
}

}  // namespace
}  // namespace ringbook
