#include "cards/CBout.h"

#include <gtest/gtest.h>

#include <tuple>

#include "core/DefaultUtility.h"
#include "support/Bytes.h"
#include "support/Raised.h"
#include "support/RecordBytes.h"
#include "support/TempSettings.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;
using test::TempSettings;
using test::WriteFileBytes;

void SetTotals(CBout& bout, int16_t first, int16_t second) {
  // Split each total between rating and drawing power: only the sum counts.
  bout.SetRating(1, static_cast<int16_t>(first - 5));
  bout.SetDrawPower(1, 5);
  bout.SetRating(2, static_cast<int16_t>(second - 3));
  bout.SetDrawPower(2, 3);
}

std::string Odds(int16_t first, int16_t second) {
  CBout bout;
  SetTotals(bout, first, second);
  return bout.OddsForFight();
}

// Says no number is even.
class NothingIsEven : public DefaultUtility {
 public:
  bool IsEven(int32_t) override { return false; }
};

class CBoutTest : public testing::Test {
 protected:
  TempSettings env;
};

TEST_F(CBoutTest, OddsFollowTheWorkedExamples) {
  const std::tuple<int16_t, int16_t, const char*> cases[] = {
      {91, 29, "23-2"}, {29, 91, "23-2"},  // the larger total is always first
      {90, 31, "11-1"}, {80, 60, "1-1"},  {70, 69, "17-2"},
      {50, 50, "1-1"},  {50, 1, "51-1"},  // 0 after the subtraction becomes 1
      {40, 4, "13-1"},                    // 41 against 3, odd
  };
  for (const auto& [first, second, odds] : cases) EXPECT_EQ(Odds(first, second), odds);
  // Evenness is the host utility's call.
  SetUtility(std::make_shared<NothingIsEven>());
  EXPECT_EQ(Odds(91, 29), "3-1");  // 92 / 28, the odd rule
  SetUtility(nullptr);
}

TEST_F(CBoutTest, FavoriteUnderdogAndModifier) {
  CBout bout;
  SetTotals(bout, 50, 50);  // equal: fighter 2 is the favourite
  EXPECT_EQ(bout.OddsFavorite(), 2);
  EXPECT_EQ(bout.OddsUnderdog(), 1);
  EXPECT_FLOAT_EQ(bout.OddsModifier(), 1.0f);

  CBout other;
  SetTotals(other, 91, 29);
  EXPECT_EQ(other.OddsFavorite(), 1);
  EXPECT_EQ(other.OddsUnderdog(), 2);
  EXPECT_FLOAT_EQ(other.OddsModifier(), 11.5f);  // works the odds out itself the first time
  SetTotals(other, 29, 90);
  EXPECT_EQ(other.OddsFavorite(), 2);
  EXPECT_EQ(other.OddsUnderdog(), 1);
  EXPECT_FLOAT_EQ(other.OddsModifier(), 11.5f);  // the stored pair until asked again
  other.OddsForFight();
  EXPECT_FLOAT_EQ(other.OddsModifier(), 11.0f);
}

TEST_F(CBoutTest, TotalRatingIsA16BitSumAndOverflowFails) {
  CBout bout;
  bout.SetRating(2, 30000);
  bout.SetDrawPower(2, 2767);
  const Variant total = bout.TotalRating(2);
  EXPECT_EQ(total.Type(), VarType::Integer);
  EXPECT_EQ(total.ToInteger(), 32767);
  bout.SetDrawPower(2, 2768);
  EXPECT_EQ(test::Raised([&] { bout.TotalRating(2); }).Number(), errnum::kOverflow);
}

TEST_F(CBoutTest, RepeatKeeps32BitsAndShowsTheLow16) {
  CBout bout;
  bout.SetRepeat(-2);
  EXPECT_EQ(bout.Repeat(), -2);
  bout.SaveToFile(env.File("b.bin"));
  auto bytes = ReadFileBytes(env.File("b.bin"));
  // After the marker, four empty names and two IDs: offset 4+16+8.
  ASSERT_GE(bytes.size(), 32u);
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + 28, bytes.begin() + 32),
            (std::vector<uint8_t>{0xFE, 0xFF, 0xFF, 0xFF}));
  const uint8_t big[] = {0x70, 0x11, 0x01, 0x00};  // 70000
  std::copy(std::begin(big), std::end(big), bytes.begin() + 28);
  WriteFileBytes(env.File("b.bin"), bytes);
  CBout loaded;
  loaded.LoadFromFile(env.File("b.bin"));
  EXPECT_EQ(loaded.Repeat(), 4464);
  loaded.SaveToFile(env.File("again.bin"));
  EXPECT_EQ(ReadFileBytes(env.File("again.bin")), bytes);
}

TEST_F(CBoutTest, NamesAndDescriptionsByStyle) {
  CBout bout;
  bout.SetFighterFirstName(1, "  Joe ");
  bout.SetFighterLastName(1, "Louis");
  bout.SetFighterFirstName(2, "Max");
  bout.SetFighterLastName(2, "Baer");
  SetTotals(bout, 60, 80);
  EXPECT_EQ(bout.Description(), "Joe Louis vs Max Baer");
  EXPECT_EQ(bout.Description(ensInitialAndLastName), "J. Louis vs M. Baer");
  EXPECT_EQ(bout.Description(ensLastName, true), "Baer vs Louis");  // the favourite first
  EXPECT_EQ(bout.Description(ensLastName, false, true), "Louis\r\n vs \r\nBaer");
  EXPECT_EQ(bout.FighterName(1, 7), "Joe Louis");  // an unknown style: the full name

  // Missing parts leave no stray blank or initial.
  const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
      {"", "Ali", "Ali", "Ali", "Ali"},
      {"Émile", "Ali", "Émile Ali", "É. Ali", "Ali"},  // a whole character
      {"Émile", " ", "Émile", "Émile", "Émile"},
      {"", "", "", "", ""}};
  for (const auto& [first, last, full, initial, last_only] : cases) {
    bout.SetFighterFirstName(2, first);
    bout.SetFighterLastName(2, last);
    EXPECT_EQ(bout.FighterName(2), full);
    EXPECT_EQ(bout.FighterName(2, ensInitialAndLastName), initial);
    EXPECT_EQ(bout.FighterName(2, ensLastName), last_only);
  }
}

// Fighter i has career stage i, conditioning 2+i, drawing power 4+i,
// rating 60+10i, style 6+i, training 8+i and staff 100000+i / 200000+i.
void FillBout(CBout& b) {
  b.SetFighterFirstName(1, "Joe");
  b.SetFighterLastName(1, "Louis");
  b.SetFighterFirstName(2, "Max");
  b.SetFighterLastName(2, "Baer");
  for (int16_t i = 1; i <= 2; ++i) {
    b.SetFighterID(i, 10 + i);
    b.SetCareerStage(i, i);
    b.SetConditioning(i, static_cast<int16_t>(2 + i));
    b.SetDrawPower(i, static_cast<int16_t>(4 + i));
    b.SetRating(i, static_cast<int16_t>(60 + 10 * i));
    b.SetStyle(i, static_cast<int16_t>(6 + i));
    b.SetTraining(i, static_cast<int16_t>(8 + i));
    b.SetCutManID(i, 100000 + i);
    b.SetTrainerID(i, 200000 + i);
    b.SetWager(i, 400 + 100 * i);
  }
  b.SetRepeat(3);
  b.SetWinner(2);
}

TEST_F(CBoutTest, RecordMatchesTheLayoutAndLeavesWagersAndWinnerOut) {
  CBout bout;
  FillBout(bout);
  bout.SaveToFile(env.File("bout.bin"));

  Bytes expected;
  expected.Lng(1000001).Str("Joe").Str("Louis").Str("Max").Str("Baer").Lng(11).Lng(12).Lng(3);
  expected.Int(1).Int(2).Int(3).Int(4).Int(5).Int(6).Int(70).Int(80).Int(7).Int(8).Int(9).Int(10);
  expected.Lng(100001).Lng(100002).Lng(200001).Lng(200002);
  test::DefaultOptionsRecord(expected);
  EXPECT_EQ(ReadFileBytes(env.File("bout.bin")), expected.Get());

  CBout loaded;
  loaded.SetWager(1, 1);
  loaded.LoadFromFile(env.File("bout.bin"));
  loaded.SaveToFile(env.File("again.bin"));
  EXPECT_EQ(ReadFileBytes(env.File("again.bin")), expected.Get());
  EXPECT_EQ(loaded.Description(), "Joe Louis vs Max Baer");
  EXPECT_EQ(loaded.Repeat(), 3);
  EXPECT_EQ(loaded.Wager(1), 1);  // untouched by the load
  EXPECT_EQ(loaded.Wager(2), 0);
  EXPECT_EQ(loaded.Winner(), 0);
}

TEST_F(CBoutTest, CloneCopiesEverythingOrOneFightersSettings) {
  CBout source;
  FillBout(source);
  source.Options()->SetRounds(15);
  source.OddsForFight();
  CBout target;
  const auto options = target.Options();
  source.Clone(target);
  EXPECT_EQ(target.Options(), options);  // copied into the target's own options
  EXPECT_EQ(options->Rounds(), 15);
  EXPECT_EQ(target.Description(), "Joe Louis vs Max Baer");
  EXPECT_EQ(target.Wager(1), 500);
  EXPECT_EQ(target.Wager(2), 600);
  EXPECT_EQ(target.Winner(), 2);
  EXPECT_EQ(target.Repeat(), 3);
  EXPECT_EQ(target.TrainerID(2), 200002);
  EXPECT_FLOAT_EQ(target.OddsModifier(), source.OddsModifier());

  CBout one;  // one fighter's settings move to the named corner, nothing else
  one.SetRepeat(9);
  one.SetWinner(1);
  one.Options()->SetRounds(4);
  source.Clone(one, int16_t{2}, int16_t{1});
  EXPECT_EQ(one.FighterName(1), "Max Baer");
  EXPECT_EQ(one.FighterID(1), 12);
  EXPECT_EQ(one.Rating(1), 80);
  EXPECT_EQ(one.Wager(1), 600);
  EXPECT_EQ(one.CutManID(1), 100002);
  EXPECT_EQ(one.FighterID(2), 0);
  EXPECT_EQ(one.Repeat(), 9);
  EXPECT_EQ(one.Winner(), 1);
  EXPECT_EQ(one.Options()->Rounds(), 4);
  // One number alone names both positions; swapping corners within a bout.
  source.Clone(one, int16_t{1});
  EXPECT_EQ(one.FighterName(1), "Joe Louis");
  source.Clone(source, int16_t{1}, int16_t{2});
  EXPECT_EQ(source.FighterName(2), "Joe Louis");
}

TEST_F(CBoutTest, IndexOutsideOneAndTwoIsTheCallersFault) {
  CBout bout;
  bout.SetRating(1, 5);
  bout.SetRating(2, 6);
  EXPECT_DEBUG_DEATH(bout.SetRating(3, 99), "");
  EXPECT_DEBUG_DEATH(bout.SetFighterLastName(0, "x"), "");
  EXPECT_EQ(bout.Rating(1), 5);
  EXPECT_EQ(bout.Rating(2), 6);
  EXPECT_EQ(bout.FighterLastName(1), "");
}

}  // namespace
}  // namespace ringbook
