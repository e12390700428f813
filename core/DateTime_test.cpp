#include "core/DateTime.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/Error.h"
#include "support/Raised.h"

namespace ringbook {
namespace {

TEST(DateTimeTest, KnownDayNumbers) {
  EXPECT_EQ(DateFromParts(1899, 12, 30), 0.0);
  EXPECT_EQ(DateFromParts(1900, 3, 1), 61.0);  // 1900 is not a leap year here
  EXPECT_EQ(DateFromParts(2000, 1, 1), 36526.0);
  EXPECT_EQ(DateFromParts(2000, 1, 1, 18, 0, 0), 36526.75);
  EXPECT_EQ(DateFromParts(100, 1, 1), -657434.0);
  EXPECT_EQ(DateFromParts(9999, 12, 31), 2958465.0);
  EXPECT_EQ(DateFromParts(2024, 3, 1) - DateFromParts(2024, 2, 28), 2.0);
  EXPECT_EQ(DateFromParts(2100, 3, 1) - DateFromParts(2100, 2, 28), 1.0);
}

TEST(DateTimeTest, BeforeTheEpochTheTimeStillCountsFromMidnight) {
  EXPECT_EQ(DateFromParts(1899, 12, 29, 6, 0, 0), -1.25);
  EXPECT_EQ(DateToParts(-1.25), (CivilDateTime{1899, 12, 29, 6, 0, 0}));
  EXPECT_EQ(DateToParts(-1.75), (CivilDateTime{1899, 12, 29, 18, 0, 0}));
  EXPECT_EQ(DateToParts(-2.0), (CivilDateTime{1899, 12, 28, 0, 0, 0}));
  // Day 0 with a negative fraction is still 30 December.
  EXPECT_EQ(DateToParts(-0.25), (CivilDateTime{1899, 12, 30, 6, 0, 0}));
}

TEST(DateTimeTest, PartsRoundTripAcrossTheCalendar) {
  for (double day = -657434; day <= 2958465; day += 997) {
    for (const int seconds : {0, 1, 43199, 86399}) {
      const double date = day < 0 ? day - seconds / 86400.0 : day + seconds / 86400.0;
      const CivilDateTime p = DateToParts(date);
      EXPECT_EQ(p.Hour * 3600 + p.Minute * 60 + p.Second, seconds) << date;
      const double back = DateFromParts(p.Year, p.Month, p.Day, p.Hour, p.Minute, p.Second);
      ASSERT_NEAR(back, date, 1e-9) << date;
    }
  }
}

TEST(DateTimeTest, PartsOutOfRangeAreAnInvalidCall) {
  const int bad[][6] = {{1900, 2, 29, 0, 0, 0}, {2023, 2, 29, 0, 0, 0}, {2000, 13, 1, 0, 0, 0},
                        {2000, 0, 1, 0, 0, 0},  {2000, 4, 31, 0, 0, 0}, {2000, 1, 0, 0, 0, 0},
                        {2000, 1, 1, 24, 0, 0}, {2000, 1, 1, 0, 60, 0}, {2000, 1, 1, 0, 0, -1},
                        {99, 1, 1, 0, 0, 0},    {10000, 1, 1, 0, 0, 0}};
  for (const auto& p : bad) {
    SCOPED_TRACE(testing::Message() << p[0] << "-" << p[1] << "-" << p[2] << " " << p[3] << ":"
                                    << p[4] << ":" << p[5]);
    const Error e = test::Raised([&] { DateFromParts(p[0], p[1], p[2], p[3], p[4], p[5]); });
    EXPECT_EQ(e.Number(), 5);
    EXPECT_EQ(e.Description(), "Invalid procedure call or argument");
  }
}

TEST(DateTimeTest, PartsRoundToTheNearestSecondAndDamagedValuesArePinned) {
  EXPECT_EQ(DateToParts(1.0 - 1e-9), (CivilDateTime{1899, 12, 31, 0, 0, 0}));
  EXPECT_EQ(DateToParts(0.4 / 86400), (CivilDateTime{1899, 12, 30, 0, 0, 0}));
  EXPECT_EQ(DateToParts(1e300).Year, 9999);
  EXPECT_EQ(DateToParts(-1e300).Year, 100);
  EXPECT_EQ(DateToParts(std::nan("")), (CivilDateTime{1899, 12, 30}));
}

TEST(DateTimeTest, Formats) {
  EXPECT_EQ(FormatDate(36526.75), "2000-01-01");
  EXPECT_EQ(FormatDate(-1.25), "1899-12-29");
  EXPECT_EQ(FormatDateTime(36526), "2000-01-01");
  EXPECT_EQ(FormatDateTime(DateFromParts(1975, 10, 1, 9, 5, 7)), "1975-10-01 09:05:07");
}

TEST(DateTimeTest, NowIsAPlausibleDate) {
  const double now = NowDate();
  EXPECT_GT(now, DateFromParts(2020, 1, 1));
  EXPECT_LT(now, DateFromParts(2200, 1, 1));
}

}  // namespace
}  // namespace ringbook
