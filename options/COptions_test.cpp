#include "options/COptions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/DateTime.h"
#include "store/GameDatabase.h"
#include "store/NAnnouncers.h"
#include "store/NJudges.h"
#include "store/NLocations.h"
#include "store/NReferees.h"
#include "support/Bytes.h"
#include "support/RecordBytes.h"
#include "support/TempSettings.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;
using test::TempSettings;
using test::WriteFileBytes;

// Options with every value set to something other than its default, so
// that a misplaced field shows in the bytes.
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
  o.Referee()->SetFirstName("Rea");
  o.Referee()->SetLastName("Ref");
  o.Referee()->SetEra(1);
  o.Referee()->SetActiveRetired(2);
  o.Referee()->SetFouls(3);
  o.Referee()->SetJudgement(4);
  o.Referee()->SetRating(5);
  o.Referee()->SetStoppage(6);
  o.Announcer()->SetID(8);
  o.Announcer()->SetFirstName("Ann");
  o.Announcer()->SetLastName("Ouncer");
  o.Announcer()->SetEra(2);
  o.Location()->SetArena("Hall");
  o.Location()->SetCity("Town");
  o.Location()->SetCountry("Land");
  o.Location()->SetEra(3);
  o.Location()->SetID(9);
  o.Location()->SetPriceIndex(10);
  o.Location()->SetSiteRating(11);
  o.SetQuietDisplay(true);  // clears AutoScroll and ShowRingCard
  for (int16_t i = 1; i <= 3; ++i) {
    CJudge j;
    j.SetID(20 + i);
    j.SetFirstName("J" + std::to_string(i));
    j.SetLastName("Judge");
    j.SetEra(i);
    j.SetBias(-i);
    o.SetJudge(i, j);
  }
  o.SetOpponent(3);
  o.SetRounds(12);
  o.SetSchedulerDefaultRepeats(33);
  o.SetTournamentDefaultLevels(3);
  o.SetTournamentDefaultRounds(1, 3);
  o.SetTournamentDefaultRounds(2, 4);
  o.SetTournamentDefaultRounds(3, 6);
  o.SetTournamentDefaultRounds(4, 8);
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
  b.Lng(1000001).Lng(7).Str("Rea").Str("Ref").Int(1).Int(2).Int(3).Int(4).Int(5).Int(6);
  b.Lng(1000001).Lng(8).Str("Ann").Str("Ouncer").Int(2);
  b.Lng(1000001).Str("Hall").Str("Town").Str("Land").Int(3).Lng(9).Int(10).Int(11);
  b.Bln(false);
  b.Lng(1000003).Lng(21).Str("J1").Str("Judge").Int(1).Lng(-1);
  b.Lng(1000003).Lng(22).Str("J2").Str("Judge").Int(2).Lng(-2);
  b.Lng(1000003).Lng(23).Str("J3").Str("Judge").Int(3).Lng(-3);
  b.Int(3).Bln(true).Int(12).Bln(false).Lng(style);
  return b;
}

// Writes `o`'s record alone to a file and returns its bytes.
std::vector<uint8_t> RecordOf(COptions& o, const std::string& path) {
  o.SaveToFile(path);
  return ReadFileBytes(path);
}

// Opens `path` for reading and lets `o` read one record; returns the
// position after it.
int32_t ReadRecord(COptions& o, const std::string& path) {
  CStream in;
  in.SetFilename(path);
  in.OpenStream(false);
  o.Load(&in);
  const int32_t end = in.SeekTo();
  in.CloseStream();
  return end;
}

TEST(COptionsTest, NewOptionsTakeSingleFightDefaultsAndWriteTheStyleFile) {
  TempSettings env;
  const double before = NowDate();
  COptions o;
  // Every saved default shows in the style file's bytes below.
  EXPECT_EQ(o.SchedulerDefaultRepeats(), 10);
  EXPECT_EQ(o.TournamentDefaultLevels(), 0);
  EXPECT_GE(o.FightDate(), before);
  // No game database: the officials stay new and empty.
  EXPECT_EQ(o.Referee()->ID(), 0);
  EXPECT_EQ(o.Judge(3)->ID(), 0);

  Bytes expected;
  test::DefaultOptionsRecord(expected);
  EXPECT_EQ(ReadFileBytes(env.OptionsFile(0)), expected.Get());
  EXPECT_FALSE(std::filesystem::exists(env.OptionsFile(1)));
}

TEST(COptionsTest, NewOptionsLoadAnExistingStyleFileInsteadOfDefaults) {
  TempSettings env;
  {
    COptions writer;  // creates the file
    FillKnownValues(writer);
    writer.Save();
  }
  const auto file = ReadFileBytes(env.OptionsFile(0));
  COptions o;
  EXPECT_EQ(o.Rounds(), 12);
  EXPECT_EQ(o.Referee()->Name(), "Rea Ref");
  EXPECT_EQ(o.Judge(2)->Bias(), -2);
  EXPECT_TRUE(o.QuietDisplay());
  // Creation sets the scheduler default after loading, and saves nothing.
  EXPECT_EQ(o.SchedulerDefaultRepeats(), 10);
  EXPECT_EQ(ReadFileBytes(env.OptionsFile(0)), file);
}

TEST(COptionsTest, SingleFightDefaultsCopyOfficialsFromTheGameDatabase) {
  TempSettings env;
  CreateGameDatabase(env.DatabasePath());
  {
    NReferees referees;
    for (const char* name : {"First", "Second"}) {
      auto r = std::make_shared<CReferee>();
      r->SetLastName(name);
      r->SetFouls(3);
      referees.AddRecord(r);
    }
    NLocations locations;
    auto l = std::make_shared<CLocation>();
    l->SetArena("Arena One");
    locations.AddRecord(l);
  }
  COptions o;
  EXPECT_EQ(o.Referee()->ID(), 2);
  EXPECT_EQ(o.Referee()->LastName(), "Second");
  EXPECT_EQ(o.Referee()->Fouls(), 3);
  EXPECT_EQ(o.Location()->ID(), 1);
  EXPECT_EQ(o.Location()->Arena(), "Arena One");
  // No announcers and no judges in the database: those stay empty.
  EXPECT_EQ(o.Announcer()->ID(), 0);
  EXPECT_EQ(o.Judge(1)->ID(), 0);

  {
    NAnnouncers announcers;
    auto a = std::make_shared<CAnnouncer>();
    a->SetLastName("Voice");
    announcers.AddRecord(a);
    NJudges judges;
    for (int i = 1; i <= 6; ++i) {
      auto j = std::make_shared<CJudge>();
      j->SetLastName("Judge" + std::to_string(i));
      judges.AddRecord(j);
    }
  }
  std::filesystem::remove(env.OptionsFile(0));
  COptions again;
  EXPECT_EQ(again.Announcer()->LastName(), "Voice");
  for (int16_t i = 1; i <= 3; ++i) {
    EXPECT_EQ(again.Judge(i)->ID(), i + 3);
    EXPECT_EQ(again.Judge(i)->LastName(), "Judge" + std::to_string(i + 3));
  }
}

TEST(COptionsTest, StyleIsTakenOnceAfterCreationAndThenIgnored) {
  TempSettings env;
  COptions o;
  o.SetStyle(eosTournament);
  EXPECT_EQ(o.Style(), eosTournament);
  EXPECT_EQ(o.TournamentDefaultLevels(), 4);
  // The new tournament file holds the record with the style-2 tail: the
  // levels, then the rounds of each level.
  Bytes tail;
  tail.Int(4).Int(15).Int(12).Int(10).Int(10);
  const auto file = ReadFileBytes(env.OptionsFile(2));
  ASSERT_GT(file.size(), tail.Get().size());
  EXPECT_TRUE(std::equal(tail.Get().begin(), tail.Get().end(), file.end() - 10));

  o.SetStyle(eosScheduler);
  EXPECT_EQ(o.Style(), eosTournament);
  EXPECT_FALSE(std::filesystem::exists(env.OptionsFile(1)));

  // A record being read still sets it.
  COptions card;
  card.SetStyle(eosFightCard);
  card.SaveToFile(env.File("card-options.bin"));
  ReadRecord(o, env.File("card-options.bin"));
  EXPECT_EQ(o.Style(), eosFightCard);
}

TEST(COptionsTest, StyleFileIsLoadedWhenItExistsAndStyle3HasNone) {
  TempSettings env;
  {
    COptions o;
    o.SetStyle(eosScheduler);
    EXPECT_EQ(o.SchedulerDefaultRepeats(), 10);
    o.SetSchedulerDefaultRepeats(25);
    o.SetRounds(4);
    o.Save();
  }
  COptions again;
  again.SetRounds(8);
  again.SetStyle(eosScheduler);
  EXPECT_EQ(again.SchedulerDefaultRepeats(), 25);
  EXPECT_EQ(again.Rounds(), 4);

  COptions card;
  card.SetStyle(eosFightCard);
  EXPECT_EQ(card.FightCardBout(), 4);
  EXPECT_EQ(card.FightCardEra(), 4);
  EXPECT_EQ(card.FightCardRefFilter(), 30);
  EXPECT_EQ(card.FightCardProficiency(), 0);
  // Style 3 has no options file: saving and loading without a stream do
  // nothing.
  card.SetFightCardEra(9);
  card.Save();
  card.Load();
  EXPECT_EQ(card.FightCardEra(), 9);
  EXPECT_FALSE(std::filesystem::exists(env.OptionsFile(3)));
}

TEST(COptionsTest, SaveWithoutStreamWritesTheStyleFileInPlace) {
  TempSettings env;
  COptions o;
  // A longer file is overwritten from the start, not truncated.
  auto longer = ReadFileBytes(env.OptionsFile(0));
  longer.insert(longer.end(), {0xAA, 0xBB});
  WriteFileBytes(env.OptionsFile(0), longer);
  o.SetRounds(6);
  o.Save();
  const auto after = ReadFileBytes(env.OptionsFile(0));
  ASSERT_EQ(after.size(), longer.size());
  EXPECT_EQ(after[after.size() - 2], 0xAA);
  EXPECT_EQ(after[after.size() - 1], 0xBB);
  EXPECT_FALSE(std::filesystem::exists(env.OptionsFile(0) + ".tmp"));
}

TEST(COptionsTest, RecordOfEachStyleMatchesTheLayout) {
  TempSettings env;
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

TEST(COptionsTest, OlderMarkersLackTheFieldsAddedSinceAndKeepCurrentValues) {
  TempSettings env;
  struct Case {
    int32_t marker;
    bool belt_id, judges_bias, corners;
  };
  for (const Case c : {Case{1000001, false, false, false}, Case{1000002, false, true, false},
                       Case{1000003, false, true, true}}) {
    SCOPED_TRACE(c.marker);
    Bytes b;
    b.Lng(c.marker).Bln(true).Bln(true).Bln(true).Bln(true).Bln(true).Bln(true).Bln(true);
    if (c.belt_id) b.Lng(555);
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
    b.Lng(0x12345678);  // whatever follows the record
    WriteFileBytes(env.File("old.bin"), b.Get());

    COptions o;
    o.SetBeltBoutID(99);
    o.SetUseJudgesBias(98);
    o.SetDefendingChampion(2);
    CStream in;
    in.SetFilename(env.File("old.bin"));
    in.OpenStream(false);
    o.Load(&in);
    EXPECT_EQ(in.ReadLng(), 0x12345678);
    in.CloseStream();

    EXPECT_EQ(o.BeltBoutID(), 99);
    EXPECT_EQ(o.UseJudgesBias(), c.judges_bias ? 6 : 98);
    EXPECT_EQ(o.HometownFavorite(), c.corners ? 1 : 0);
    EXPECT_EQ(o.DefendingChampion(), c.corners ? 0 : 2);
    EXPECT_TRUE(o.UseStrategies());
    EXPECT_EQ(o.ScoringSystem(), 2);
    EXPECT_TRUE(o.AutoScroll());
    EXPECT_EQ(o.Judge(3)->Bias(), -4);
    EXPECT_EQ(o.Judge(3)->Name(), "Old Judge");
    EXPECT_EQ(o.Opponent(), 2);
    EXPECT_EQ(o.Rounds(), 6);
    EXPECT_EQ(o.Style(), eosScheduler);
    EXPECT_EQ(o.SchedulerDefaultRepeats(), 44);
  }
}

TEST(COptionsTest, ReadingAppliesTheSetterRules) {
  TempSettings env;
  Bytes b;
  b.Lng(1000004).Bln(false).Bln(false).Bln(false).Bln(false).Bln(false).Bln(false).Bln(false);
  b.Lng(0).Lng(0).Int(0).Bln(false).Int(0).Int(0);
  test::BlankReferee(b);
  test::BlankAnnouncer(b);
  test::BlankLocation(b);
  b.Bln(false);
  for (int i = 0; i < 3; ++i) test::BlankJudge(b);
  b.Int(0).Bln(false).Int(7).Bln(false).Lng(2).Int(4).Int(5).Int(15).Int(0).Int(-3);
  WriteFileBytes(env.File("rules.bin"), b.Get());
  COptions o;
  o.LoadFromFile(env.File("rules.bin"));
  EXPECT_EQ(o.Rounds(), 10);
  EXPECT_EQ(o.TournamentDefaultLevels(), 4);
  std::vector<int16_t> rounds;
  for (int16_t l = 1; l <= 4; ++l) rounds.push_back(o.TournamentDefaultRounds(l));
  EXPECT_EQ(rounds, (std::vector<int16_t>{10, 15, 10, 10}));
}

TEST(COptionsTest, RoundsAcceptOnlyTheScheduledLengths) {
  TempSettings env;
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
}

TEST(COptionsTest, HometownAndChampionExcludeEachOther) {
  TempSettings env;
  COptions o;
  o.SetDefendingChampion(1);
  o.SetHometownFavorite(2);
  EXPECT_EQ(o.DefendingChampion(), 0);
  EXPECT_EQ(o.Bias(), 2);
  o.SetDefendingChampion(0);  // zero clears nothing
  EXPECT_EQ(o.HometownFavorite(), 2);
  o.SetDefendingChampion(1);
  EXPECT_EQ(o.HometownFavorite(), 0);
  EXPECT_EQ(o.Bias(), 1);
  // The plain fields apply no rule.
  o.SetmiHometownFavorite(2);
  EXPECT_EQ(o.DefendingChampion(), 1);
  EXPECT_EQ(o.Bias(), 3);
}

TEST(COptionsTest, DisplaySwitchesExcludeEachOther) {
  TempSettings env;
  COptions o;
  o.SetAutoScroll(true);
  o.SetShowRingCard(true);
  o.SetQuietDisplay(true);
  EXPECT_FALSE(o.AutoScroll());
  EXPECT_FALSE(o.ShowRingCard());
  o.SetAutoScroll(true);
  EXPECT_FALSE(o.QuietDisplay());
  o.SetQuietDisplay(true);
  o.SetShowRingCard(true);
  EXPECT_FALSE(o.QuietDisplay());
  EXPECT_FALSE(o.AutoScroll());
  // Clearing a switch touches no other.
  o.SetShowRingCard(false);
  o.SetQuietDisplay(false);
  o.SetAutoScroll(false);
  EXPECT_FALSE(o.QuietDisplay() || o.AutoScroll() || o.ShowRingCard());
}

TEST(COptionsTest, JudgeSetterCopiesIntoTheOwnJudgeForIndexes1To3Only) {
  TempSettings env;
  COptions o;
  const auto own = o.Judge(2);
  CJudge j;
  j.SetID(4);
  j.SetFirstName("Ann");
  o.SetJudge(2, j);
  EXPECT_EQ(o.Judge(2), own);
  EXPECT_EQ(own->ID(), 4);
  j.SetID(5);
  EXPECT_EQ(own->ID(), 4);
  o.SetJudge(0, j);
  o.SetJudge(4, j);
  EXPECT_EQ(o.Judge(0), nullptr);
  EXPECT_EQ(o.Judge(4), nullptr);
  for (int16_t i = 1; i <= 3; ++i) EXPECT_NE(o.Judge(i)->ID(), 5);
}

TEST(COptionsTest, CloneCopiesEveryOptionIntoTheTargetsOwnObjects) {
  TempSettings env;
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

TEST(COptionsTest, MissingOfficialsAreSavedBlankAndCreatedOnRead) {
  TempSettings env;
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

TEST(COptionsTest, DamagedStyleFileLoadsAsFarAsItGoes) {
  TempSettings env;
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
