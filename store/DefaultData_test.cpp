#include "store/DefaultData.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace ringbook {
namespace {

struct BlockShape {
  DefaultDataBlock Block;
  int32_t CountEntry;
  int Count;
  // The inclusive range of each field by number from 1; {0, -1}: a text.
  std::vector<std::pair<int, int>> Fields;
};

constexpr std::pair<int, int> kText{0, -1};

// The layout the host relies on, written out independently of the reader.
const BlockShape kShapes[] = {
    {DefaultDataBlock::Cities, 100, 46, {kText}},
    {DefaultDataBlock::Announcers, 200, 13, {kText, kText, {0, 1}}},
    {DefaultDataBlock::Judges, 300, 117, {kText, kText, {0, 2}}},
    {DefaultDataBlock::Referees, 500, 36, {kText, kText, {0, 1}, {0, 2}, {0, 2}}},
    {DefaultDataBlock::Cornermen,
     700,
     79,
     {kText, kText, {0, 2}, {0, 10}, {2, 13}, {0, 10}, {0, 0}, {0, 0}, {0, 0}}},
    {DefaultDataBlock::Locations, 900, 137, {kText, kText, kText, {1, 5}, {10, 70}, {0, 0}}},
};

bool ParseInt(const std::string& text, int& value) {
  const char* end = text.data() + text.size();
  auto [ptr, ec] = std::from_chars(text.data(), end, value);
  return ec == std::errc() && ptr == end && !text.empty();
}

// The host walks each block by string number alone: the count from the
// count entry, then every field of every row, then nothing after the last.
TEST(DefaultDataTest, EveryBlockWalksFromItsCountEntry) {
  for (const BlockShape& shape : kShapes) {
    SCOPED_TRACE(shape.CountEntry);
    int count = 0;
    ASSERT_TRUE(ParseInt(DefaultDataString(shape.CountEntry), count));
    EXPECT_EQ(count, shape.Count);
    EXPECT_EQ(DefaultDataCountEntry(shape.Block), shape.CountEntry);
    const int fields = static_cast<int>(shape.Fields.size());
    EXPECT_EQ(DefaultDataFieldCount(shape.Block), fields);

    for (int32_t row = shape.CountEntry + 1; row <= shape.CountEntry + count; ++row) {
      if (fields == 1) {
        EXPECT_FALSE(DefaultDataString(row).empty()) << row;
        continue;
      }
      for (int f = 1; f <= fields; ++f)
        EXPECT_FALSE(DefaultDataString(row * 10 + f).empty()) << row * 10 + f;
      // The unused numbers of a row's ten hold nothing.
      for (int f = fields + 1; f <= 9; ++f) EXPECT_EQ(DefaultDataString(row * 10 + f), "");
      EXPECT_EQ(DefaultDataString(row * 10), "");
    }
    const int32_t past = shape.CountEntry + count + 1;
    EXPECT_EQ(DefaultDataString(fields == 1 ? past : past * 10 + 1), "");
  }
}

TEST(DefaultDataTest, NumericFieldsAreWithinTheirRanges) {
  for (const BlockShape& shape : kShapes) {
    const auto rows = DefaultDataRows(shape.Block);
    ASSERT_EQ(rows.size(), static_cast<size_t>(shape.Count));
    for (size_t r = 0; r < rows.size(); ++r) {
      ASSERT_EQ(rows[r].size(), shape.Fields.size());
      for (size_t f = 0; f < shape.Fields.size(); ++f) {
        const auto [low, high] = shape.Fields[f];
        if (low > high) continue;
        SCOPED_TRACE(std::to_string(shape.CountEntry) + " row " + std::to_string(r + 1) +
                     " field " + std::to_string(f + 1) + ": " + rows[r][f]);
        int value = -1;
        ASSERT_TRUE(ParseInt(rows[r][f], value));
        EXPECT_GE(value, low);
        EXPECT_LE(value, high);
      }
    }
  }
}

TEST(DefaultDataTest, KnownEntries) {
  EXPECT_EQ(DefaultDataString(101), "<generic>");

  // The first announcer's first name, and the same through the row walk.
  const auto announcers = DefaultDataRows(DefaultDataBlock::Announcers);
  EXPECT_EQ(DefaultDataString(2011), "Harlan");
  EXPECT_EQ(announcers.front().front(), "Harlan");
  EXPECT_EQ(DefaultDataString(2133), announcers.back()[2]);

  EXPECT_EQ(DefaultDataString(9011), "Madison Square Garden II");

  // Texts come back as UTF-8.
  bool found = false;
  for (const auto& row : DefaultDataRows(DefaultDataBlock::Locations))
    found = found || row[0] == "V\xC3\xA9lodrome d'Hiver";
  EXPECT_TRUE(found);
}

TEST(DefaultDataTest, UnknownNumbersGiveTheEmptyString) {
  for (int32_t n : {0, -1, 99, 147, 2010, 2014, 6000, 10377, INT32_MIN, INT32_MAX})
    EXPECT_EQ(DefaultDataString(n), "") << n;
}

TEST(DefaultDataTest, EntryNumbersFollowTheBlockLayout) {
  EXPECT_EQ(DefaultDataEntryNumber(DefaultDataBlock::Cities, 46, 1), 146);
  EXPECT_EQ(DefaultDataEntryNumber(DefaultDataBlock::Judges, 117, 3), 4173);
  EXPECT_EQ(DefaultDataEntryNumber(DefaultDataBlock::Locations, 137, 6), 10376);
}

}  // namespace
}  // namespace ringbook
