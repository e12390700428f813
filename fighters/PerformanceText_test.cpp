#include "fighters/PerformanceText.h"

#include <gtest/gtest.h>

namespace ringbook {
namespace {

TEST(PerformanceTextTest, TwoToThreeDecimalsWithoutALeadingZeroRoundedHalfAwayFromZero) {
  // clang-format off
  const std::pair<double, const char*> cases[] = {
      {0.5, ".50"}, {12.3456, "12.346"}, {3.5, "3.50"}, {1.125, "1.125"}, {0.0, ".00"},
      {1234567.0, "1234567.00"},
      // Not exact in binary: the 15-digit decimal form is what is rounded.
      {0.0005, ".001"}, {9.9995, "10.00"}, {99.99951, "100.00"}, {0.0004, ".00"},
      {-2.0005, "-2.001"},
      // A float stored in a Double column keeps its binary tail; 15 digits hide it.
      {static_cast<double>(3.3f), "3.30"},
      // A sign only for figures that do not round to zero.
      {-0.5, "-.50"}, {-0.0001, ".00"}, {-0.0, ".00"}};
  // clang-format on
  for (const auto& [value, text] : cases) EXPECT_EQ(PerformanceText(value), text) << value;
}

TEST(PerformanceTextTest, NoValueIsEmptyAndTextIsReadAsANumberWhenItIsOne) {
  EXPECT_EQ(PerformanceText(int32_t{7}), "7.00");
  EXPECT_EQ(PerformanceText(Variant::Null()), "");
  EXPECT_EQ(PerformanceText(Variant()), "");
  EXPECT_EQ(PerformanceText(Variant(" 4.5")), "4.50");
  EXPECT_EQ(PerformanceText(Variant("n/a")), "n/a");
  EXPECT_EQ(PerformanceText(Variant(true)), "-1.00");
  EXPECT_EQ(PerformanceText(Variant(1.5f)), "1.50");
}

}  // namespace
}  // namespace ringbook
