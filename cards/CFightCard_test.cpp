#include "cards/CFightCard.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/DateTime.h"
#include "support/Bytes.h"
#include "support/DamagedFile.h"
#include "support/Raised.h"
#include "support/RecordBytes.h"
#include "support/TempSettings.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;
using test::TempSettings;
using test::WriteFileBytes;

// Bout `i` of a card: fighters "F<i>a L<i>a" and "F<i>b L<i>b" with
// ratings 10*i and 10*i+1, drawing power i and 2*i.
void FillCard(CFightCard& card) {
  card.SetEra(3);
  card.SetFightDate(45000.75);
  card.SetName("Fight Night");
  for (int16_t i = 1; i <= 4; ++i) {
    const auto bout = card.Bout(i);
    const std::string n = std::to_string(i);
    bout->SetFighterFirstName(1, "F" + n + "a");
    bout->SetFighterLastName(1, "L" + n + "a");
    bout->SetFighterFirstName(2, "F" + n + "b");
    bout->SetFighterLastName(2, "L" + n + "b");
    bout->SetRating(1, static_cast<int16_t>(10 * i));
    bout->SetRating(2, static_cast<int16_t>(10 * i + 1));
    bout->SetDrawPower(1, i);
    bout->SetDrawPower(2, static_cast<int16_t>(2 * i));
  }
  card.Location()->SetArena("Garden");
  card.Location()->SetCity("New York");
  card.Location()->SetID(4);
}

// The bout record of FillCard's bout `i`, spelled out from the layout.
void AppendFilledBout(Bytes& b, int16_t i) {
  const std::string n = std::to_string(i);
  b.Lng(1000001).Str("F" + n + "a").Str("L" + n + "a").Str("F" + n + "b").Str("L" + n + "b");
  b.Lng(0).Lng(0).Lng(0);
  b.Int(0).Int(0).Int(0).Int(0);
  b.Int(i).Int(static_cast<int16_t>(2 * i));
  b.Int(static_cast<int16_t>(10 * i)).Int(static_cast<int16_t>(10 * i + 1));
  b.Int(0).Int(0).Int(0).Int(0);
  b.Lng(0).Lng(0).Lng(0).Lng(0);
  test::DefaultOptionsRecord(b);
}

void AppendBlankBout(Bytes& b) {
  b.Lng(1000001).Str("").Str("").Str("").Str("");
  for (int i = 0; i < 3; ++i) b.Lng(0);
  for (int i = 0; i < 12; ++i) b.Int(0);
  for (int i = 0; i < 4; ++i) b.Lng(0);
  test::DefaultOptionsRecord(b);
}

Bytes CardHeader() {
  Bytes b;
  b.Lng(1000001).Int(3);
  test::AppendDate(b, 45000.75);
  b.Str("Fight Night");
  return b;
}

void AppendFilledLocation(Bytes& b) {
  b.Lng(1000001).Str("Garden").Str("New York").Str("").Int(0).Lng(4).Int(0).Int(0);
}

class CFightCardTest : public testing::Test {
 protected:
  TempSettings env;
};

TEST_F(CFightCardTest, RatingsSumRatingAndDrawPowerAndAnEmptyPlaceRatesZero) {
  CFightCard card;
  EXPECT_EQ(card.Bout(0), nullptr);  // places 1 to 4 only
  EXPECT_EQ(card.Bout(5), nullptr);
  EXPECT_EQ(card.Item(4), card.Bout(4));
  EXPECT_NE(card.Bout(3), card.Bout(4));
  FillCard(card);
  EXPECT_EQ(card.BoutRating(2), 25);  // the second fighter's total alone
  EXPECT_EQ(card.FighterRating(2, 1), 22);
  EXPECT_EQ(card.FighterRating(2, 3), 0);
  EXPECT_EQ(card.Rating(), 234);
  card.Remove(Variant(int16_t{2}));
  EXPECT_EQ(card.Bout(2), nullptr);
  EXPECT_EQ(card.BoutRating(2), 0);
  EXPECT_EQ(card.FighterRating(2, 1), 0);
  EXPECT_EQ(card.Rating(), 234 - 47);
  card.Bout(4)->SetRating(2, 32700);  // its own total fits, the sum does not
  EXPECT_EQ(test::Raised([&] { card.Rating(); }).Number(), errnum::kOverflow);

  card.Remove(Variant("3"));  // a text holding a number will do
  EXPECT_EQ(card.Bout(3), nullptr);
  card.Remove(Variant(int32_t{9}));
  EXPECT_THROW(card.Remove(Variant("x")), Error);
  EXPECT_NE(card.Bout(1), nullptr);
  CBout bout;
  bout.SetFighterLastName(1, "Added");
  card.Add(bout, ebtBout2);
  const auto own = card.Bout(2);
  ASSERT_NE(own, nullptr);
  EXPECT_EQ(own->FighterLastName(1), "Added");
  bout.SetFighterLastName(1, "Again");
  card.Add(bout, ebtBout2);
  EXPECT_EQ(card.Bout(2), own);  // the card keeps its own object
  EXPECT_EQ(own->FighterLastName(1), "Again");
}

TEST_F(CFightCardTest, FileMatchesTheLayoutAndLoadsBackWithoutWagersOrDisplayFlags) {
  CFightCard card;
  FillCard(card);
  card.Bout(3)->SetWager(1, 100);
  card.Bout(3)->SetWinner(1);
  card.SetWagersPlaced(true);
  card.SetDisplayFight(2, false);
  card.SaveToFile(env.File("card.rbc"));
  Bytes expected = CardHeader();
  for (int16_t i = 1; i <= 4; ++i) AppendFilledBout(expected, i);
  AppendFilledLocation(expected);
  EXPECT_EQ(ReadFileBytes(env.File("card.rbc")), expected.Get());

  CFightCard loaded;
  loaded.LoadFromFile(env.File("card.rbc"));
  loaded.SaveToFile(env.File("again.rbc"));
  EXPECT_EQ(ReadFileBytes(env.File("again.rbc")), expected.Get());
  EXPECT_EQ(loaded.FightDate(), 45000.75);
  EXPECT_TRUE(loaded.DisplayFight(2));
  EXPECT_EQ(loaded.Bout(3)->Wager(1), 0);
  EXPECT_EQ(loaded.Bout(3)->Winner(), 0);
  EXPECT_FALSE(loaded.WagersPlaced());

  // Empty places are saved as a default bout and location, and load as such.
  card.Remove(Variant(int16_t{3}));
  card.SetLocation(nullptr);
  card.SaveToFile(env.File("card.rbc"));
  expected = CardHeader();
  AppendFilledBout(expected, 1);
  AppendFilledBout(expected, 2);
  AppendBlankBout(expected);
  AppendFilledBout(expected, 4);
  test::BlankLocation(expected);
  EXPECT_EQ(ReadFileBytes(env.File("card.rbc")), expected.Get());
  card.LoadFromFile(env.File("card.rbc"));
  ASSERT_NE(card.Bout(3), nullptr);
  ASSERT_NE(card.Location(), nullptr);
  EXPECT_EQ(card.Bout(3)->Description(), " vs ");
  EXPECT_EQ(card.Bout(4)->FighterName(2), "F4b L4b");
}

TEST_F(CFightCardTest, OlderOptionsAndJudgeMarkersInsideACardAreRead) {
  Bytes b = CardHeader();
  // Bout 1 carries an options record of the first version, whose judges
  // use the judge record with a 16-bit bias.
  b.Lng(1000001).Str("A").Str("B").Str("C").Str("D").Lng(1).Lng(2).Lng(0);
  for (int i = 0; i < 12; ++i) b.Int(static_cast<int16_t>(i));
  for (int i = 0; i < 4; ++i) b.Lng(0);
  b.Lng(1000001).Bln(true).Bln(true).Bln(true).Bln(true).Bln(true).Bln(true).Bln(true);
  b.Int(5).Bln(true);  // ScoringSystem, TwoMinuteRounds: no ID, bias or corners
  test::BlankReferee(b);
  test::BlankAnnouncer(b);
  test::BlankLocation(b);
  b.Bln(false);
  for (int16_t j = 1; j <= 3; ++j) {
    b.Lng(1000002).Lng(40 + j).Str("Judge").Str(std::to_string(j)).Int(2).Int(-j);
  }
  b.Int(1).Bln(false).Int(8).Bln(true).Lng(0);
  for (int16_t i = 2; i <= 4; ++i) AppendFilledBout(b, i);
  AppendFilledLocation(b);
  WriteFileBytes(env.File("old.rbc"), b.Get());

  CFightCard card;
  card.LoadFromFile(env.File("old.rbc"));
  const auto bout = card.Bout(1);
  EXPECT_EQ(bout->Description(), "A B vs C D");
  EXPECT_EQ(bout->Training(2), 11);
  EXPECT_EQ(bout->Options()->ScoringSystem(), 5);
  EXPECT_EQ(bout->Options()->Rounds(), 8);
  EXPECT_EQ(bout->Options()->Judge(3)->Bias(), -3);
  // Everything after the old records is in its place.
  EXPECT_EQ(card.Bout(4)->FighterName(2), "F4b L4b");
  EXPECT_EQ(card.Location()->Arena(), "Garden");
}

TEST_F(CFightCardTest, TruncatedAndDamagedFilesLoadWithoutHarm) {
  CFightCard card;
  FillCard(card);
  card.SaveToFile(env.File("card.rbc"));
  const auto good = ReadFileBytes(env.File("card.rbc"));

  CFightCard loaded;
  test::LoadDamagedCopies(env.File("bad.rbc"), good,
                          {.cut_step = 3, .rounds = 200, .flips = 4, .seed = 12345},
                          [&] { loaded.LoadFromFile(env.File("bad.rbc")); });
  // Cut right after the header: the bouts and location read as empty.
  WriteFileBytes(env.File("cut.rbc"), CardHeader().Get());
  loaded.LoadFromFile(env.File("cut.rbc"));
  EXPECT_EQ(loaded.Name(), "Fight Night");
  EXPECT_EQ(loaded.Bout(1)->FighterName(1), "");
  EXPECT_EQ(loaded.Rating(), 0);
  EXPECT_EQ(LastError().Number, errnum::kStreamEof);
  // A missing file loads as nothing.
  loaded.LoadFromFile(env.File("none.rbc"));
  EXPECT_EQ(loaded.Name(), "");
}

TEST_F(CFightCardTest, FailedSaveReportsNothingAndLeavesTheOldFile) {
  CFightCard card;
  FillCard(card);
  const std::string missing = env.File("no/such/folder/card.rbc");
  EXPECT_NO_THROW(card.SaveToFile(missing));
  EXPECT_FALSE(std::filesystem::exists(missing));

  // The temporary file cannot be made: the target keeps its bytes.
  const std::vector<uint8_t> old = {1, 2, 3};
  WriteFileBytes(env.File("card.rbc"), old);
  std::filesystem::create_directory(env.File("card.rbc.tmp"));
  EXPECT_NO_THROW(card.SaveToFile(env.File("card.rbc")));
  EXPECT_EQ(ReadFileBytes(env.File("card.rbc")), old);
}

TEST_F(CFightCardTest, CloneGivesTheTargetItsOwnBoutsAndLocation) {
  CFightCard source;
  FillCard(source);
  source.SetWagersPlaced(true);
  source.SetDisplayFight(4, false);
  source.Remove(Variant(int16_t{2}));
  CFightCard target;
  const auto bout1 = target.Bout(1);
  source.Clone(target);
  EXPECT_EQ(target.Bout(1), bout1);
  EXPECT_EQ(bout1->Description(), "F1a L1a vs F1b L1b");
  EXPECT_EQ(target.Bout(2), nullptr);
  EXPECT_NE(target.Bout(4), source.Bout(4));
  EXPECT_EQ(target.Bout(4)->Description(), source.Bout(4)->Description());
  EXPECT_NE(target.Bout(4)->Options(), source.Bout(4)->Options());
  EXPECT_NE(target.Location(), source.Location());
  EXPECT_EQ(target.Location()->Name(), "Garden, New York");
  EXPECT_EQ(target.Name(), "Fight Night");
  EXPECT_EQ(target.Era(), 3);
  EXPECT_EQ(target.FightDate(), 45000.75);
  EXPECT_TRUE(target.WagersPlaced());
  EXPECT_FALSE(target.DisplayFight(4));

  // A bout shared by both cards is not copied onto itself.
  target.SetItem(3, source.Bout(3));
  source.Clone(target);
  EXPECT_NE(target.Bout(3), source.Bout(3));
  EXPECT_EQ(target.Bout(3)->Description(), source.Bout(3)->Description());
}

}  // namespace
}  // namespace ringbook
