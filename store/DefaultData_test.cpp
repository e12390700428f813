#include "store/DefaultData.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace ringbook {
namespace {

struct BlockShape {
  DefaultDataBlock Block;
  int32_t CountEntry;
  int Count;
  int Fields;
  // Inclusive range of each numeric field, by field number from 1.
  std::vector<std::pair<int, std::pair<int, int>>> Numbers;
};

// The layout the host relies on, written out independently of the reader.
const std::vector<BlockShape>& Shapes() {
  static const std::vector<BlockShape> shapes = {
      {DefaultDataBlock::Cities, 100, 46, 1, {}},
      {DefaultDataBlock::Announcers, 200, 13, 3, {{3, {0, 1}}}},
      {DefaultDataBlock::Judges, 300, 117, 3, {{3, {0, 2}}}},
      {DefaultDataBlock::Referees, 500, 36, 5, {{3, {0, 1}}, {4, {0, 2}}, {5, {0, 2}}}},
      {DefaultDataBlock::Cornermen,
       700,
       79,
       9,
       {{3, {0, 2}},
        {4, {0, 10}},
        {5, {2, 13}},
        {6, {0, 10}},
        {7, {0, 0}},
        {8, {0, 0}},
        {9, {0, 0}}}},
      {DefaultDataBlock::Locations, 900, 137, 6, {{4, {1, 5}}, {5, {10, 70}}, {6, {0, 0}}}},
  };
  return shapes;
}

bool ParseInt(const std::string& text, int& value) {
  const char* end = text.data() + text.size();
  auto [ptr, ec] = std::from_chars(text.data(), end, value);
  return ec == std::errc() && ptr == end && !text.empty();
}

// Walks each block by string number alone, as the host does: the count from
// the count entry, then every field of every row, then nothing after the last.
TEST(DefaultDataTest, EveryBlockWalksFromItsCountEntry) {
  for (const BlockShape& shape : Shapes()) {
    SCOPED_TRACE(shape.CountEntry);
    int count = 0;
    ASSERT_TRUE(ParseInt(DefaultDataString(shape.CountEntry), count));
    EXPECT_EQ(count, shape.Count);
    EXPECT_EQ(DefaultDataCountEntry(shape.Block), shape.CountEntry);
    EXPECT_EQ(DefaultDataFieldCount(shape.Block), shape.Fields);

    for (int32_t row = shape.CountEntry + 1; row <= shape.CountEntry + count; ++row) {
      if (shape.Fields == 1) {
        EXPECT_FALSE(DefaultDataString(row).empty()) << row;
        continue;
      }
      for (int f = 1; f <= shape.Fields; ++f)
        EXPECT_FALSE(DefaultDataString(row * 10 + f).empty()) << row * 10 + f;
      // The unused numbers of a row's ten hold nothing.
      for (int f = shape.Fields + 1; f <= 9; ++f) EXPECT_EQ(DefaultDataString(row * 10 + f), "");
      EXPECT_EQ(DefaultDataString(row * 10), "");
    }
    const int32_t past = shape.CountEntry + count + 1;
    EXPECT_EQ(DefaultDataString(shape.Fields == 1 ? past : past * 10 + 1), "");
  }
}

TEST(DefaultDataTest, NumericFieldsAreWithinTheirRanges) {
  for (const BlockShape& shape : Shapes()) {
    const auto rows = DefaultDataRows(shape.Block);
    ASSERT_EQ(rows.size(), static_cast<size_t>(shape.Count));
    for (size_t r = 0; r < rows.size(); ++r) {
      ASSERT_EQ(rows[r].size(), static_cast<size_t>(shape.Fields));
      for (const auto& [field, range] : shape.Numbers) {
        int value = -1;
        const std::string& text = rows[r][field - 1];
        ASSERT_TRUE(ParseInt(text, value)) << shape.CountEntry << " row " << r + 1 << ": " << text;
        EXPECT_GE(value, range.first) << shape.CountEntry << " row " << r + 1 << " field " << field;
        EXPECT_LE(value, range.second)
            << shape.CountEntry << " row " << r + 1 << " field " << field;
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
