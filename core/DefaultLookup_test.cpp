#include "core/DefaultLookup.h"

#include <gtest/gtest.h>

namespace ringbook {
namespace {

TEST(DefaultLookupTest, BandsCoverTheScaleWithoutGapsOrOverlaps) {
  DefaultLookup lookup;
  const ProficiencyBounds all = lookup.Proficiency(0);
  EXPECT_EQ(all.Low, -32768);
  EXPECT_EQ(all.High, 32767);
  // Each band starts one above the end of the one before, from 0 upwards,
  // and the last is open to the top.
  int expected_low = 0;
  for (int16_t filter = 1; filter <= 4; ++filter) {
    const ProficiencyBounds band = lookup.Proficiency(filter);
    EXPECT_EQ(band.Low, expected_low) << filter;
    EXPECT_LE(band.Low, band.High) << filter;
    expected_low = band.High + 1;
  }
  EXPECT_EQ(lookup.Proficiency(4).High, 32767);
  // A filter without a band of its own lists every fighter.
  for (int16_t filter : {-1, 5, 32767}) {
    EXPECT_EQ(lookup.Proficiency(filter).Low, -32768) << filter;
    EXPECT_EQ(lookup.Proficiency(filter).High, 32767) << filter;
  }
}

TEST(DefaultLookupTest, TextsByCategoryAndCode) {
  DefaultLookup lookup;
  EXPECT_EQ(lookup.Text(ILookup::kFightingStyle, 4), "Counter-puncher");
  EXPECT_EQ(lookup.Text(ILookup::kActiveRetired, 1), "Retired");
  // Codes without a text, and unknown categories, show the number.
  EXPECT_EQ(lookup.Text(ILookup::kFightingStyle, 5), "5");
  EXPECT_EQ(lookup.Text(ILookup::kActiveRetired, -1), "-1");
  EXPECT_EQ(lookup.Text(2, 0), "0");
  SetLookup(nullptr);  // the thread's default object
  EXPECT_NE(dynamic_cast<DefaultLookup*>(&Lookup()), nullptr);
}

}  // namespace
}  // namespace ringbook
