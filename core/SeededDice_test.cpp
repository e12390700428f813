#include "core/SeededDice.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <vector>

namespace ringbook {
namespace {

std::vector<int32_t> Rolls(SeededDice& dice, int n, int32_t upper, int32_t lower) {
  std::vector<int32_t> out;
  for (int i = 0; i < n; ++i) out.push_back(dice.Roll(upper, lower));
  return out;
}

TEST(SeededDiceTest, SameSeedSameRollsAndReseedRestarts) {
  SeededDice a(12345);
  SeededDice b(12345);
  SeededDice c(12346);
  const auto first = Rolls(a, 200, 100, 1);
  EXPECT_EQ(first, Rolls(b, 200, 100, 1));
  EXPECT_NE(first, Rolls(c, 200, 100, 1));
  a.Reseed(12345);
  EXPECT_EQ(first, Rolls(a, 200, 100, 1));
}

TEST(SeededDiceTest, BoundsAreInclusiveUpperFirst) {
  SeededDice dice(7);
  std::map<int32_t, int> seen;
  for (int i = 0; i < 20000; ++i) {
    const int32_t r = dice.Roll(100, 1);
    ASSERT_GE(r, 1);
    ASSERT_LE(r, 100);
    ++seen[r];
  }
  EXPECT_EQ(seen.size(), 100u);  // both ends and everything between
  EXPECT_GT(seen[1], 0);
  EXPECT_GT(seen[100], 0);
  // A fair die: no face far from its expected 200.
  for (const auto& [face, count] : seen) EXPECT_NEAR(count, 200, 80) << face;
}

TEST(SeededDiceTest, UnusualBounds) {
  SeededDice dice(99);
  for (int i = 0; i < 1000; ++i) {
    const int32_t r = dice.Roll(1, 6);  // bounds given the other way round
    ASSERT_GE(r, 1);
    ASSERT_LE(r, 6);
    ASSERT_EQ(dice.Roll(5, 5), 5);
    const int32_t n = dice.Roll(-3, -10);
    ASSERT_GE(n, -10);
    ASSERT_LE(n, -3);
  }
  // The full 32-bit range does not overflow.
  dice.Roll(INT32_MAX, INT32_MIN);
  dice.Roll(INT32_MAX, -1);
}

}  // namespace
}  // namespace ringbook
