#include "core/DefaultDisplayText.h"

#include <gtest/gtest.h>

namespace ringbook {
namespace {

TEST(DefaultDisplayTextTest, KnownCodesHaveTheirWordsOthersShowAsNumbers) {
  DefaultDisplayText texts;
  EXPECT_EQ(texts.BiasText(2), "Favors the champion");
  EXPECT_EQ(texts.RefereeRatingText(2), "Good");
  EXPECT_EQ(texts.SpecialtyText(1), "Cut man");
  EXPECT_EQ(texts.EraText(5), "Modern era");
  EXPECT_EQ(texts.BiasText(3), "3");
  EXPECT_EQ(texts.BiasText(-1), "-1");
  EXPECT_EQ(texts.RefereeRatingText(3), "3");
  EXPECT_EQ(texts.SpecialtyText(-32768), "-32768");
  EXPECT_EQ(texts.EraText(6), "6");
  SetDisplayText(nullptr);  // the thread's default object
  EXPECT_EQ(DisplayText().EraText(2), "Golden age");
}

}  // namespace
}  // namespace ringbook
