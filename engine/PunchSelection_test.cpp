#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <random>

#include "core/SeededDice.h"
#include "engine/CFighterInFight.h"
#include "support/ScriptedDice.h"

namespace ringbook {
namespace {

using test::DiceScope;
using test::ScriptedDiceScope;

// Ratings in the walking order: J3, J2, H3, H2, Cr3, Cr2, Cb3, Cb2, U3, U2.
void SetPunches(CFighter& fr, const std::array<float, 10>& r) {
  const float* value = r.data();
  for (auto set : {&CFighter::SetJ3, &CFighter::SetJ2, &CFighter::SetH3, &CFighter::SetH2,
                   &CFighter::SetCr3, &CFighter::SetCr2, &CFighter::SetCb3, &CFighter::SetCb2,
                   &CFighter::SetU3, &CFighter::SetU2}) {
    (fr.*set)(*value++);
  }
}
// The punch type of each rating in the walking order.
constexpr int16_t kTypeOf[10] = {1, 6, 2, 7, 3, 8, 4, 9, 5, 10};

constexpr int32_t kTop = 10000;

TEST(PunchTypeTest, PartialSumsAreRoundedTo32BitFloats) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  // 0.03f + 0.98f rounds to a float just below 1.01, while the exact sum of
  // the two floats lies above it: the draw of 1.01 passes J2.
  SetPunches(*f.FR(), {0.03f, 0.98f, 1, 0, 0, 0, 0, 0, 0, 0});
  dice->Then(100, kTop).Then(101, kTop).Then(3, kTop);
  EXPECT_EQ(f.PunchType(), 6);
  EXPECT_EQ(f.PunchType(), 2);
  // 0.03f itself is just below 0.03: the draw of 0.03 already passes J3.
  EXPECT_EQ(f.PunchType(), 6);

  // The other way round: 0.06f + 0.01f rounds up to just above 0.07, while
  // the exact sum lies below it, so the draw of 0.07 stops at J2.
  SetPunches(*f.FR(), {0.06f, 0.01f, 1, 0, 0, 0, 0, 0, 0, 0});
  dice->Then(7, kTop).Then(8, kTop);
  EXPECT_EQ(f.PunchType(), 6);
  EXPECT_EQ(f.PunchType(), 2);
}

TEST(PunchTypeTest, SeededDrawsFollowTheRatingsShares) {
  CFighterInFight f;
  const std::array<float, 10> ratings = {12.5f, 7.5f, 10, 5, 8, 4, 6, 3, 9, 5};  // 70 in all
  SetPunches(*f.FR(), ratings);
  std::array<double, 11> share{};
  for (int i = 0; i < 10; ++i) share[static_cast<std::size_t>(kTypeOf[i])] = ratings[i] / 100.0;
  share[0] = 0.30;

  DiceScope dice(std::make_shared<SeededDice>(20240521));
  constexpr int kDraws = 100000;
  for (bool force : {false, true}) {
    std::array<int, 11> seen{};
    for (int i = 0; i < kDraws; ++i) ++seen[static_cast<std::size_t>(f.PunchType(force))];
    for (std::size_t type = 0; type <= 10; ++type) {
      // A forced punch spreads the 30 % of no punch over the ten ratings.
      const double p = force ? (type == 0 ? 0.0 : share[type] / 0.70) : share[type];
      const double expected = p * kDraws;
      const double tolerance = 5 * std::sqrt(kDraws * p * (1 - p)) + 1;
      EXPECT_NEAR(seen[type], expected, tolerance) << "type " << type << " forced " << force;
    }
  }
}

TEST(PunchTypeTest, ForcedPunchRedrawsAndChangedRatingsCountAtOnce) {
  ScriptedDiceScope dice;
  CFighterInFight f;
  SetPunches(*f.FR(), {10, 5, 0, 0, 0, 0, 0, 0, 0, 0});
  dice->Then(1501, kTop).Then(9999, kTop).Then(1001, kTop).Then(1501, kTop);
  EXPECT_EQ(f.PunchType(true), 6);
  EXPECT_EQ(dice->Rolled(), 3);
  EXPECT_EQ(f.PunchType(), 0);  // unforced, the same draw throws nothing

  dice->Then(1200, kTop).Then(1200, kTop).Then(1200, kTop).Then(1200, kTop);
  EXPECT_EQ(f.PunchType(), 6);
  f.FR()->SetJ3(12);
  EXPECT_EQ(f.PunchType(), 1);
  // A new record object with the old ratings.
  auto other = std::make_shared<CFighter>();
  SetPunches(*other, {10, 5, 0, 0, 0, 0, 0, 0, 0, 0});
  f.SetFR(other);
  EXPECT_EQ(f.PunchType(), 6);
  other->SetJ2(0);
  EXPECT_EQ(f.PunchType(), 0);
}

// Dice that count up from 1 and wrap after 10000: every draw in turn.
class EveryRoll : public IDice {
 public:
  int32_t Roll(int32_t upper, int32_t lower) override {
    EXPECT_EQ(upper, 10000);
    EXPECT_EQ(lower, 1);
    next_ = next_ % 10000 + 1;
    return next_;
  }

 private:
  int32_t next_ = 0;
};

TEST(PunchTypeTest, AgreesWithAPlainWalkOfTheRatingsOnEveryDraw) {
  // The plain rule, worked per draw: p = roll / 100 in double precision
  // against each running sum rounded to a float.
  const auto walk = [](const std::array<float, 10>& r, int32_t roll) -> int16_t {
    float sum = 0;
    for (std::size_t i = 0; i < r.size(); ++i) {
      sum = static_cast<float>(sum + r[i]);
      if (roll / 100.0 <= sum) return kTypeOf[i];
    }
    return 0;
  };
  std::mt19937 gen(7);
  std::uniform_int_distribution<int> cents(0, 1500);
  std::uniform_real_distribution<float> any(0.0f, 15.0f);
  DiceScope scope(std::make_shared<EveryRoll>());
  CFighterInFight f;
  for (int set = 0; set < 30; ++set) {
    std::array<float, 10> r{};
    // Two-decimal ratings, as the game stores them, and arbitrary floats;
    // sums from well below to well past 100.
    for (float& v : r) v = set % 2 == 0 ? static_cast<float>(cents(gen) / 100.0) : any(gen);
    SetPunches(*f.FR(), r);
    for (int32_t roll = 1; roll <= kTop; ++roll) {
      ASSERT_EQ(f.PunchType(), walk(r, roll)) << "set " << set << " roll " << roll;
    }
  }
}

}  // namespace
}  // namespace ringbook
