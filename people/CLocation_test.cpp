#include "people/CLocation.h"

#include <gtest/gtest.h>

#include <tuple>

#include "core/Error.h"
#include "support/Bytes.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;
using test::WriteFileBytes;

CLocation MakeLocation(const std::string& arena, const std::string& city,
                       const std::string& country) {
  CLocation loc;
  loc.SetArena(arena);
  loc.SetCity(city);
  loc.SetCountry(country);
  return loc;
}

TEST(CLocationTest, NameJoinsCityWithCommaAndCountryWithBlank) {
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"Alpha", "Beta", "Gamma", "Alpha, Beta Gamma"},
      {"Alpha", "", "Gamma", "Alpha Gamma"},
      {"Alpha", "   ", "Gamma", "Alpha Gamma"},  // blanks only count as no city
      {"Alpha", "Beta", "", "Alpha, Beta"},
      {"Alpha", "", "", "Alpha"},
      {"  Alpha ", " Beta  ", "  Gamma ", "Alpha, Beta Gamma"},
      {"", "Beta", "Gamma", ""},  // no arena, no name
      {"   ", "Beta", "Gamma", ""},
  };
  for (const auto& [arena, city, country, name] : cases) {
    EXPECT_EQ(MakeLocation(arena, city, country).Name(), name) << arena << "|" << city;
  }
  // The parts keep their blanks, and every setter rebuilds the name.
  CLocation loc = MakeLocation(" Alpha", "Beta", "Gamma");
  EXPECT_EQ(loc.Arena(), " Alpha");
  loc.SetCountry("");
  EXPECT_EQ(loc.Name(), "Alpha, Beta");
  loc.SetCity("");
  EXPECT_EQ(loc.Name(), "Alpha");
  loc.SetArena("");
  EXPECT_EQ(loc.Name(), "");
}

TEST(CLocationTest, CloneCopiesEveryFieldAndRebuildsTheTargetName) {
  CLocation source = MakeLocation("Alpha", " Beta", "Gamma");
  source.SetID(17);
  source.SetEra(3);
  source.SetPriceIndex(70000);
  source.SetSiteRating(-5);
  CLocation target = MakeLocation("Old", "Old", "Old");
  source.Clone(target);
  EXPECT_EQ(target.City(), " Beta");
  EXPECT_EQ(target.Name(), "Alpha, Beta Gamma");
  EXPECT_EQ(target.ID(), 17);
  EXPECT_EQ(target.Era(), 3);
  EXPECT_EQ(target.PriceIndex(), 70000);  // the full 32-bit value, unlike a saved record
  EXPECT_EQ(target.SiteRating(), -5);
}

TEST(CLocationTest, RecordHoldsTheFieldsInOrderWithLow16BitFigures) {
  test::TempDir dir;
  CLocation loc = MakeLocation("Arena \xC3\xA9", "City", "");  // "é" is one Windows-1252 byte
  loc.SetEra(2);
  loc.SetID(0x01020304);
  loc.SetPriceIndex(70000);  // 0x00011170
  loc.SetSiteRating(40000);  // 0x00009C40
  loc.SaveToFile(dir.File("loc.bin"));
  Bytes expected;
  expected.Lng(1000001).Str("Arena \xE9").Str("City").Str("").Int(2).Lng(0x01020304);
  EXPECT_EQ(ReadFileBytes(dir.File("loc.bin")), expected.Int(0x1170).Int(-25536).Get());

  CLocation loaded;
  ClearLastError();
  loaded.LoadFromFile(dir.File("loc.bin"));
  EXPECT_EQ(LastError().Number, 0);
  EXPECT_EQ(loaded.Name(), "Arena \xC3\xA9, City");
  EXPECT_EQ(loaded.Era(), 2);
  EXPECT_EQ(loaded.ID(), 0x01020304);
  EXPECT_EQ(loaded.PriceIndex(), 4464);    // low 16 bits of 70000
  EXPECT_EQ(loaded.SiteRating(), -25536);  // 40000 widened with its sign
}

TEST(CLocationTest, MarkerIsNotCheckedAndAShortRecordLeavesTheRestZeroWithEof) {
  test::TempDir dir;
  WriteFileBytes(dir.File("loc.bin"),
                 Bytes().Lng(42).Str("A").Str("B").Str("C").Int(1).Lng(7).Int(-1).Int(300).Get());
  CLocation loc;
  loc.LoadFromFile(dir.File("loc.bin"));
  EXPECT_EQ(loc.Name(), "A, B C");
  EXPECT_EQ(loc.ID(), 7);
  EXPECT_EQ(loc.PriceIndex(), -1);
  EXPECT_EQ(loc.SiteRating(), 300);

  WriteFileBytes(dir.File("loc.bin"), Bytes().Lng(1000001).Str("Alpha").Get());
  loc.LoadFromFile(dir.File("loc.bin"));
  EXPECT_EQ(loc.Arena(), "Alpha");
  EXPECT_EQ(loc.City(), "");
  EXPECT_EQ(loc.Name(), "Alpha");
  EXPECT_EQ(loc.ID(), 0);
  EXPECT_EQ(LastError().Number, errnum::kStreamEof);
}

}  // namespace
}  // namespace ringbook
