#include "fighters/PerformanceText.h"

#include <gtest/gtest.h>

namespace ringbook {
namespace {

TEST(PerformanceTextTest, TwoToThreeDecimalsWithoutALeadingZero) {
  EXPECT_EQ(PerformanceText(0.5), ".50");
  EXPECT_EQ(PerformanceText(12.3456), "12.346");
  EXPECT_EQ(PerformanceText(3.5), "3.50");
  EXPECT_EQ(PerformanceText(2.25), "2.25");
  EXPECT_EQ(PerformanceText(1.125), "1.125");
  EXPECT_EQ(PerformanceText(0.0), ".00");
  EXPECT_EQ(PerformanceText(int32_t{7}), "7.00");
  EXPECT_EQ(PerformanceText(1234567.0), "1234567.00");
}

TEST(PerformanceTextTest, RoundsHalfAwayFromZeroOnTheDecimalDigits) {
  // 0.0005 and 9.9995 are not exact in binary; the 15-digit decimal form is
  // what is rounded, so both go up.
  EXPECT_EQ(PerformanceText(0.0005), ".001");
  EXPECT_EQ(PerformanceText(9.9995), "10.00");
  EXPECT_EQ(PerformanceText(99.99951), "100.00");
  EXPECT_EQ(PerformanceText(0.0004), ".00");
  EXPECT_EQ(PerformanceText(-2.0005), "-2.001");
  // A float stored in a Double column keeps its binary tail; 15 digits hide it.
  EXPECT_EQ(PerformanceText(static_cast<double>(3.3f)), "3.30");
}

TEST(PerformanceTextTest, SignOnlyForFiguresThatDoNotRoundToZero) {
  EXPECT_EQ(PerformanceText(-0.5), "-.50");
  EXPECT_EQ(PerformanceText(-0.0001), ".00");
  EXPECT_EQ(PerformanceText(-0.0), ".00");
}

TEST(PerformanceTextTest, NoValueIsEmptyAndTextIsReadAsANumberWhenItIsOne) {
  EXPECT_EQ(PerformanceText(Variant::Null()), "");
  EXPECT_EQ(PerformanceText(Variant()), "");
  EXPECT_EQ(PerformanceText(Variant(" 4.5")), "4.50");
  EXPECT_EQ(PerformanceText(Variant("n/a")), "n/a");
  EXPECT_EQ(PerformanceText(Variant(true)), "-1.00");
  EXPECT_EQ(PerformanceText(Variant(1.5f)), "1.50");
}

}  // namespace
}  // namespace ringbook
