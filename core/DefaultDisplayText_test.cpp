#include "core/DefaultDisplayText.h"

#include <gtest/gtest.h>

namespace ringbook {
namespace {

TEST(DefaultDisplayTextTest, KnownCodesHaveTheirWords) {
  DefaultDisplayText texts;
  EXPECT_EQ(texts.BiasText(0), "Fair");
  EXPECT_EQ(texts.BiasText(2), "Favors the champion");
  EXPECT_EQ(texts.RefereeRatingText(0), "Poor");
  EXPECT_EQ(texts.RefereeRatingText(2), "Good");
  EXPECT_EQ(texts.SpecialtyText(1), "Cut man");
  EXPECT_EQ(texts.EraText(0), "All eras");
  EXPECT_EQ(texts.EraText(5), "Modern era");
}

TEST(DefaultDisplayTextTest, CodesOutsideTheTablesShowAsNumbers) {
  DefaultDisplayText texts;
  EXPECT_EQ(texts.BiasText(3), "3");
  EXPECT_EQ(texts.BiasText(-1), "-1");
  EXPECT_EQ(texts.RefereeRatingText(3), "3");
  EXPECT_EQ(texts.SpecialtyText(-32768), "-32768");
  EXPECT_EQ(texts.EraText(6), "6");
}

TEST(DefaultDisplayTextTest, IsTheThreadsDefaultObject) {
  SetDisplayText(nullptr);
  EXPECT_EQ(DisplayText().EraText(2), "Golden age");
}

}  // namespace
}  // namespace ringbook
