#include "options/COptions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/DateTime.h"
#include "store/GameDatabase.h"
#include "support/Bytes.h"
#include "support/RecordBytes.h"
#include "support/SqlFile.h"
#include "support/TempSettings.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;
using test::TempSettings;
using test::WriteFileBytes;

// Every option away from its default and every official told apart by its
// key, so that a misplaced field shows in the bytes. The officials' own
// records are their classes' concern.
void FillKnownValues(COptions& o) {
  o.SetUseStrategies(true);
  o.SetThreeKDRule(false);
  o.SetCheckForInjuries(true);
  o.SetSavedByBell(false);
  o.SetMand8Count(true);
  o.SetAdjWeightClass(false);
  o.SetBeltBout(true);
  o.SetBeltBoutID(70001);
  o.SetUseJudgesBias(2);
  o.SetScoringSystem(3);
  o.SetTwoMinuteRounds(true);
  o.SetDefendingChampion(2);
  o.Referee()->SetID(7);
  o.Referee()->SetLastName("Ref");
  o.Announcer()->SetID(8);
  o.Location()->SetID(9);
  o.SetQuietDisplay(true);  // clears AutoScroll and ShowRingCard
  for (int16_t i = 1; i <= 3; ++i) {
    CJudge j;
    j.SetID(20 + i);
    j.SetBias(-i);
    o.SetJudge(i, j);
  }
  o.SetOpponent(3);
  o.SetRounds(12);
  o.SetSchedulerDefaultRepeats(33);
  o.SetTournamentDefaultLevels(3);
  const int16_t rounds[] = {3, 4, 6, 8};
  for (int16_t level = 1; level <= 4; ++level)
    o.SetTournamentDefaultRounds(level, rounds[level - 1]);
  o.SetFightCardBout(5);
  o.SetFightCardEra(6);
  o.SetFightCardProficiency(7);
  o.SetFightCardRefFilter(8);
}

// The record of FillKnownValues up to and including `Style`, spelled out
// from the layout.
Bytes KnownRecord(int32_t style) {
  Bytes b;
  b.Lng(1000004);
  b.Bln(true).Bln(false).Bln(true).Bln(false).Bln(true).Bln(false).Bln(true);
  b.Lng(70001).Lng(2).Int(3).Bln(true).Int(0).Int(2);
  b.Lng(1000001).Lng(7).Str("").Str("Ref").Int(0).Int(0).Int(0).Int(0).Int(0).Int(0);
  b.Lng(1000001).Lng(8).Str("").Str("").Int(0);
  b.Lng(1000001).Str("").Str("").Str("").Int(0).Lng(9).Int(0).Int(0);
  b.Bln(false);
  for (int16_t i = 1; i <= 3; ++i) b.Lng(1000003).Lng(20 + i).Str("").Str("").Int(0).Lng(-i);
  b.Int(3).Bln(true).Int(12).Bln(false).Lng(style);
  return b;
}

// Writes `o`'s record alone to a file and returns its bytes.
std::vector<uint8_t> RecordOf(COptions& o, const std::string& path) {
  o.SaveToFile(path);
  return ReadFileBytes(path);
}

// Lets `o` read one record from `path`; returns the position after it.
int32_t ReadRecord(COptions& o, const std::string& path) {
  CStream in;
  in.SetFilename(path);
  in.OpenStream(false);
  o.Load(&in);
  const int32_t end = in.SeekTo();
  in.CloseStream();
  return end;
}

class COptionsTest : public testing::Test {
 protected:
  TempSettings env;
};

TEST_F(COptionsTest, NewOptionsWriteTheDefaultStyleFileOrLoadAnExistingOne) {
  const double before = NowDate();
  {
    COptions o;
    EXPECT_GE(o.FightDate(), before);
    EXPECT_EQ(o.Referee()->ID(), 0);  // no game database: the officials stay empty
    Bytes expected;
    test::DefaultOptionsRecord(expected);
    EXPECT_EQ(ReadFileBytes(env.OptionsFile(0)), expected.Get());
    EXPECT_FALSE(std::filesystem::exists(env.OptionsFile(1)));
    FillKnownValues(o);
    o.Save();
  }
  const auto file = ReadFileBytes(env.OptionsFile(0));
  COptions o;
  EXPECT_EQ(o.Rounds(), 12);
  EXPECT_EQ(o.Referee()->LastName(), "Ref");
  EXPECT_EQ(o.Judge(2)->Bias(), -2);
  EXPECT_TRUE(o.QuietDisplay());
  // Creation sets the scheduler default after loading, and saves nothing.
  EXPECT_EQ(o.SchedulerDefaultRepeats(), 10);
  EXPECT_EQ(ReadFileBytes(env.OptionsFile(0)), file);
}

TEST_F(COptionsTest, SingleFightDefaultsCopyOfficialsFromTheGameDatabase) {
  CreateGameDatabase(env.DatabasePath());
  test::ExecSql(env.DatabasePath(),
                "INSERT INTO Referees (FirstName, LastName) VALUES ('', 'First'), ('', 'Second');"
                "INSERT INTO Locations (Arena, City, Country) VALUES ('Arena One', '', '');"
                "INSERT INTO Judges (FirstName, LastName) VALUES ('', 'J1'), ('', 'J2'), "
                "('', 'J3'), ('', 'Judge4'), ('', 'Judge5'), ('', 'Judge6');");
  {
    COptions o;
    EXPECT_EQ(o.Referee()->ID(), 2);
    EXPECT_EQ(o.Referee()->LastName(), "Second");
    EXPECT_EQ(o.Location()->Arena(), "Arena One");
    EXPECT_EQ(o.Judge(1)->LastName(), "Judge4");
    EXPECT_EQ(o.Judge(3)->ID(), 6);
    EXPECT_EQ(o.Announcer()->ID(), 0);  // no announcers: left empty
  }
  test::ExecSql(env.DatabasePath(),
                "INSERT INTO Announcers (FirstName, LastName) VALUES ('', 'Voice')");
  std::filesystem::remove(env.OptionsFile(0));
  COptions o;
  EXPECT_EQ(o.Announcer()->LastName(), "Voice");
}

TEST_F(COptionsTest, StyleIsTakenOnceAfterCreationLoadingOrWritingItsFile) {
  {
    COptions o;
    o.SetStyle(eosTournament);
    EXPECT_EQ(o.TournamentDefaultLevels(), 4);
    o.SetStyle(eosScheduler);  // ignored
    EXPECT_EQ(o.Style(), eosTournament);
    EXPECT_FALSE(std::filesystem::exists(env.OptionsFile(1)));
    o.SetRounds(4);
    o.Save();
  }
  // The tournament file ends with the style-2 tail: the levels, then the
  // rounds of each level.
  Bytes tail;
  tail.Int(4).Int(15).Int(12).Int(10).Int(10);
  const auto file = ReadFileBytes(env.OptionsFile(2));
  ASSERT_GT(file.size(), tail.Get().size());
  EXPECT_TRUE(std::equal(tail.Get().begin(), tail.Get().end(), file.end() - 10));
  COptions again;
  again.SetRounds(8);
  again.SetStyle(eosTournament);
  EXPECT_EQ(again.Rounds(), 4);

  // Style 3 has no options file: saving and loading without a stream do
  // nothing.
  COptions card;
  card.SetStyle(eosFightCard);
  EXPECT_EQ(card.FightCardBout(), 4);
  EXPECT_EQ(card.FightCardEra(), 4);
  EXPECT_EQ(card.FightCardRefFilter(), 30);
  card.SetFightCardEra(9);
  card.Save();
  card.Load();
  EXPECT_EQ(card.FightCardEra(), 9);
  EXPECT_FALSE(std::filesystem::exists(env.OptionsFile(3)));
  // A record being read still sets the style.
  card.SaveToFile(env.File("card-options.bin"));
  ReadRecord(again, env.File("card-options.bin"));
  EXPECT_EQ(again.Style(), eosFightCard);
}

TEST_F(COptionsTest, SaveWithoutStreamOverwritesTheStyleFileInPlace) {
  COptions o;
  auto longer = ReadFileBytes(env.OptionsFile(0));
  longer.insert(longer.end(), {0xAA, 0xBB});
  WriteFileBytes(env.OptionsFile(0), longer);
  o.SetRounds(6);
  o.Save();
  const auto after = ReadFileBytes(env.OptionsFile(0));
  ASSERT_EQ(after.size(), longer.size());  // not truncated
  EXPECT_EQ(after[after.size() - 2], 0xAA);
  EXPECT_EQ(after[after.size() - 1], 0xBB);
  EXPECT_FALSE(std::filesystem::exists(env.OptionsFile(0) + ".tmp"));
}

TEST_F(COptionsTest, RecordOfEachStyleMatchesTheLayout) {
  for (int32_t style = 0; style <= 3; ++style) {
    SCOPED_TRACE(style);
    COptions o;
    o.SetStyle(style);
    FillKnownValues(o);
    Bytes expected = KnownRecord(style);
    if (style == 1) expected.Lng(33);
    if (style == 2) expected.Int(3).Int(3).Int(4).Int(6).Int(8);
    if (style == 3) expected.Lng(5).Int(6).Int(7).Int(8);
    const std::string path = env.File("o" + std::to_string(style) + ".bin");
    EXPECT_EQ(RecordOf(o, path), expected.Get());

    COptions loaded;
    EXPECT_EQ(ReadRecord(loaded, path), static_cast<int32_t>(expected.Get().size()) + 1);
    EXPECT_EQ(RecordOf(loaded, path + ".again"), expected.Get());
    EXPECT_EQ(loaded.SchedulerDefaultRepeats(), style == 1 ? 33 : 10);
    EXPECT_EQ(loaded.TournamentDefaultRounds(4), style == 2 ? 8 : 0);
    EXPECT_EQ(loaded.FightCardRefFilter(), style == 3 ? 8 : 0);
  }
}

TEST_F(COptionsTest, OlderMarkersLackTheFieldsAddedSinceAndKeepCurrentValues) {
  struct Case {
    int32_t marker;
    bool judges_bias, corners;
  };
  for (const Case c :
       {Case{1000001, false, false}, Case{1000002, true, false}, Case{1000003, true, true}}) {
    SCOPED_TRACE(c.marker);
    Bytes b;
    b.Lng(c.marker).Bln(true).Bln(true).Bln(true).Bln(true).Bln(true).Bln(true).Bln(true);
    if (c.judges_bias) b.Lng(6);
    b.Int(2).Bln(true);
    if (c.corners) b.Int(1).Int(0);
    test::BlankReferee(b);
    test::BlankAnnouncer(b);
    test::BlankLocation(b);
    b.Bln(true);
    // Judge records keep their own older markers too: a 16-bit bias.
    for (int i = 0; i < 3; ++i) b.Lng(1000002).Lng(i).Str("Old").Str("Judge").Int(0).Int(-4);
    b.Int(2).Bln(false).Int(6).Bln(false).Lng(1).Lng(44);
    const auto size = static_cast<int32_t>(b.Get().size());
    WriteFileBytes(env.File("old.bin"), b.Lng(0x12345678).Get());  // and whatever follows

    COptions o;
    o.SetBeltBoutID(99);
    o.SetUseJudgesBias(98);
    o.SetDefendingChampion(2);
    EXPECT_EQ(ReadRecord(o, env.File("old.bin")), size + 1);  // the record, and no more

    EXPECT_EQ(o.BeltBoutID(), 99);
    EXPECT_EQ(o.UseJudgesBias(), c.judges_bias ? 6 : 98);
    EXPECT_EQ(o.HometownFavorite(), c.corners ? 1 : 0);
    EXPECT_EQ(o.DefendingChampion(), c.corners ? 0 : 2);
    EXPECT_EQ(o.ScoringSystem(), 2);
    EXPECT_EQ(o.SchedulerDefaultRepeats(), 44);
  }
}

TEST_F(COptionsTest, RoundsAcceptOnlyTheScheduledLengthsWhenSetOrRead) {
  COptions o;
  for (int16_t ok : {3, 4, 6, 8, 10, 12, 15}) {
    o.SetRounds(ok);
    EXPECT_EQ(o.Rounds(), ok);
    o.SetTournamentDefaultRounds(2, ok);
    EXPECT_EQ(o.TournamentDefaultRounds(2), ok);
  }
  for (int16_t bad : {-3, 0, 5, 11, 16}) {
    o.SetRounds(bad);
    EXPECT_EQ(o.Rounds(), 10);
    o.SetTournamentDefaultRounds(3, bad);
    EXPECT_EQ(o.TournamentDefaultRounds(3), 10);
  }
  o.SetTournamentDefaultRounds(5, 4);
  o.SetTournamentDefaultRounds(0, 4);
  EXPECT_EQ(o.TournamentDefaultRounds(5), 0);
  EXPECT_EQ(o.TournamentDefaultRounds(0), 0);

  // Reading goes through the same setters.
  Bytes b;
  test::DefaultOptionsRecord(b, eosTournament).Int(4).Int(5).Int(15).Int(0).Int(-3);
  auto bytes = b.Get();
  bytes[bytes.size() - 18] = 7;  // Rounds, before ShowRingCard, Style and the tail
  WriteFileBytes(env.File("rules.bin"), bytes);
  o.LoadFromFile(env.File("rules.bin"));
  EXPECT_EQ(o.Rounds(), 10);
  EXPECT_EQ(o.TournamentDefaultLevels(), 4);
  std::vector<int16_t> rounds;
  for (int16_t l = 1; l <= 4; ++l) rounds.push_back(o.TournamentDefaultRounds(l));
  EXPECT_EQ(rounds, (std::vector<int16_t>{10, 15, 10, 10}));
}

TEST_F(COptionsTest, CornersAndDisplaySwitchesExcludeEachOtherAndJudgesAreCopied) {
  COptions o;
  o.SetDefendingChampion(1);
  o.SetHometownFavorite(2);
  EXPECT_EQ(o.DefendingChampion(), 0);
  EXPECT_EQ(o.Bias(), 2);
  o.SetDefendingChampion(0);  // zero clears nothing
  EXPECT_EQ(o.HometownFavorite(), 2);
  o.SetDefendingChampion(1);
  EXPECT_EQ(o.HometownFavorite(), 0);
  o.SetmiHometownFavorite(2);  // the plain fields apply no rule
  EXPECT_EQ(o.DefendingChampion(), 1);
  EXPECT_EQ(o.Bias(), 3);

  o.SetAutoScroll(true);
  o.SetShowRingCard(true);
  o.SetQuietDisplay(true);
  EXPECT_FALSE(o.AutoScroll() || o.ShowRingCard());
  o.SetAutoScroll(true);
  EXPECT_FALSE(o.QuietDisplay());
  o.SetQuietDisplay(true);
  o.SetShowRingCard(true);
  EXPECT_FALSE(o.QuietDisplay() || o.AutoScroll());
  // Clearing a switch touches no other.
  o.SetShowRingCard(false);
  o.SetQuietDisplay(false);
  o.SetAutoScroll(false);
  EXPECT_FALSE(o.QuietDisplay() || o.AutoScroll() || o.ShowRingCard());

  // A judge is copied into the options' own judge 1 to 3; other indexes are ignored.
  const auto own = o.Judge(2);
  CJudge j;
  j.SetID(4);
  o.SetJudge(2, j);
  j.SetID(5);
  EXPECT_EQ(o.Judge(2), own);
  EXPECT_EQ(own->ID(), 4);
  o.SetJudge(0, j);
  o.SetJudge(4, j);
  EXPECT_EQ(o.Judge(0), nullptr);
  EXPECT_EQ(o.Judge(4), nullptr);
  for (int16_t i = 1; i <= 3; ++i) EXPECT_NE(o.Judge(i)->ID(), 5);
}

TEST_F(COptionsTest, CloneCopiesEveryOptionIntoTheTargetsOwnObjects) {
  COptions source;
  source.SetStyle(eosTournament);
  FillKnownValues(source);
  source.SetFightDate(1234.5);
  source.Referee()->SetRating(9);  // CReferee::Clone leaves the rating out

  COptions target;
  const auto referee = target.Referee();
  const auto judge = target.Judge(1);
  source.Clone(target);
  EXPECT_EQ(target.FightDate(), 1234.5);
  EXPECT_EQ(target.SchedulerDefaultRepeats(), 33);
  EXPECT_EQ(target.FightCardBout(), 5);
  EXPECT_EQ(target.FightCardProficiency(), 7);
  EXPECT_EQ(target.Referee(), referee);
  EXPECT_EQ(target.Judge(1), judge);
  EXPECT_NE(target.Location(), source.Location());
  EXPECT_EQ(target.Referee()->Rating(), 0);
  // Apart from the referee's rating the saved records are alike.
  target.Referee()->SetRating(9);
  EXPECT_EQ(RecordOf(target, env.File("target.bin")), RecordOf(source, env.File("source.bin")));
  // The target's one style assignment is still there to be taken.
  EXPECT_FALSE(std::filesystem::exists(env.OptionsFile(1)));
  target.SetStyle(eosScheduler);
  EXPECT_EQ(target.Style(), eosScheduler);
}

TEST_F(COptionsTest, MissingOfficialsAreSavedBlankAndCreatedOnRead) {
  COptions o;
  o.SetReferee(nullptr);
  o.SetLocation(nullptr);
  Bytes expected;
  test::DefaultOptionsRecord(expected);
  EXPECT_EQ(RecordOf(o, env.File("o.bin")), expected.Get());
  o.LoadFromFile(env.File("o.bin"));
  ASSERT_NE(o.Referee(), nullptr);
  ASSERT_NE(o.Location(), nullptr);
}

TEST_F(COptionsTest, DamagedStyleFileLoadsAsFarAsItGoes) {
  Bytes b;
  b.Lng(1000004).Bln(true).Bln(false).Lng(0x7FFFFFFF);  // cut inside the switches
  WriteFileBytes(env.OptionsFile(0), b.Get());
  COptions o;
  EXPECT_TRUE(o.UseStrategies());
  EXPECT_FALSE(o.ThreeKDRule());
  EXPECT_EQ(o.Rounds(), 10);  // an unread 0 goes through the setter
  EXPECT_EQ(o.Style(), 0);
}

}  // namespace
}  // namespace ringbook
