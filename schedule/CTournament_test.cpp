#include "schedule/CTournament.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/Bytes.h"
#include "support/DamagedFile.h"
#include "support/RecordBytes.h"
#include "support/TempSettings.h"

namespace ringbook {
namespace {

using test::ReadFileBytes;
using test::TempSettings;
using test::WriteFileBytes;

// Gives every bout of every level a distinct name and rating.
void FillTournament(CTournament& t) {
  t.SetName("Open");
  for (int16_t l = 1; l <= t.Levels(); ++l) {
    const auto level = t.Level(l);
    for (int16_t i = 1; i <= level->BoutCount(); ++i) {
      const auto bout = level->Bout(i);
      bout->SetFighterLastName(1, "L" + std::to_string(l) + "-" + std::to_string(i));
      bout->SetRating(2, static_cast<int16_t>(100 * l + i));
      bout->Options()->SetRounds(l == 1 ? 3 : 12);
      level->SetDisplayFight(i, i % 2 == 0);
    }
  }
}

std::vector<uint8_t> FileOf(CTournament& t, const std::string& path) {
  t.SaveToFile(path);
  return ReadFileBytes(path);
}

TEST(CTournamentTest, NewTournamentTakesTheTournamentOptionDefaults) {
  TempSettings env;
  CTournament t;
  EXPECT_EQ(t.Options()->Style(), eosTournament);
  EXPECT_TRUE(std::filesystem::exists(env.OptionsFile(2)));
  ASSERT_EQ(t.Levels(), 4);
  const int16_t rounds[] = {15, 12, 10, 10};
  for (int16_t l = 1; l <= 4; ++l) {
    EXPECT_EQ(t.Level(l)->Brackets(), 1 << l);
    EXPECT_EQ(t.Level(l)->Rounds(), rounds[l - 1]);
  }
  EXPECT_EQ(t.Level(5), nullptr);

  const auto save_defaults = [](int16_t levels) {
    COptions o;
    o.SetStyle(eosTournament);
    o.SetTournamentDefaultLevels(levels);
    o.SetTournamentDefaultRounds(1, 3);
    o.SetTournamentDefaultRounds(2, 4);
    o.Save();
  };
  save_defaults(2);
  CTournament two;
  ASSERT_EQ(two.Levels(), 2);
  EXPECT_EQ(two.Level(1)->Rounds(), 3);
  EXPECT_EQ(two.Level(2)->Rounds(), 4);
  save_defaults(9);  // outside 2 to 4: no levels at all
  EXPECT_EQ(CTournament().Levels(), 0);
}

TEST(CTournamentTest, LevelsAcceptTwoToFourAndKeepExistingLevels) {
  TempSettings env;
  CTournament t;
  const auto first = t.Level(1);
  first->SetBrackets(16);
  t.SetLevels(1);
  t.SetLevels(5);
  EXPECT_EQ(t.Levels(), 4);
  t.SetLevels(2);
  EXPECT_EQ(t.Level(3), nullptr);
  t.SetLevels(4);
  EXPECT_EQ(t.Level(1), first);
  EXPECT_EQ(first->Brackets(), 16);  // an existing level keeps its brackets
  EXPECT_EQ(t.Level(3)->Brackets(), 8);
  EXPECT_EQ(t.Level(4)->Brackets(), 16);
  EXPECT_EQ(t.Level(4)->Rounds(), 10);
}

TEST(CTournamentTest, FileMatchesTheLayout) {
  TempSettings env;
  CTournament t;
  t.SetLevels(2);
  t.Level(2)->SetDisplayFight(2, false);
  // The record of a new bout (empty names, all numbers 0) with its options.
  const auto new_bout = [](test::Bytes& b) {
    b.Lng(1000001).Str("").Str("").Str("").Str("");
    for (int i = 0; i < 3; ++i) b.Lng(0);
    for (int i = 0; i < 12; ++i) b.Int(0);
    for (int i = 0; i < 4; ++i) b.Lng(0);
    test::DefaultOptionsRecord(b);
  };
  test::Bytes b;
  b.Lng(1000001).Str("My Tournament").Int(2);
  b.Lng(1000001).Int(2).Int(15).Int(1);
  new_bout(b);
  b.Bln(true);
  b.Lng(1000001).Int(4).Int(12).Int(2);
  new_bout(b);
  new_bout(b);
  b.Bln(true).Bln(false);
  test::DefaultOptionsRecord(b, eosTournament);
  b.Int(4).Int(15).Int(12).Int(10).Int(10);
  EXPECT_EQ(FileOf(t, env.File("t.rbt")), b.Get());
}

TEST(CTournamentTest, RoundTripKeepsEveryField) {
  TempSettings env;
  CTournament t;
  FillTournament(t);
  t.Level(3)->SetRounds(6);
  t.Options()->SetTournamentDefaultRounds(3, 8);
  t.SaveToFile(env.File("t.rbt"));

  CTournament loaded;
  loaded.SetLevels(2);  // the file's count comes back
  loaded.LoadFromFile(env.File("t.rbt"));
  EXPECT_EQ(FileOf(loaded, env.File("again.rbt")), ReadFileBytes(env.File("t.rbt")));
  EXPECT_EQ(loaded.Level(3)->Rounds(), 6);
  EXPECT_EQ(loaded.Options()->TournamentDefaultRounds(3), 8);
}

TEST(CTournamentTest, DamagedCountsCannotGrowTheTournament) {
  TempSettings env;
  CTournament t;
  t.SetLevels(2);
  auto bytes = FileOf(t, env.File("t.rbt"));
  const std::size_t levels_at = 4 + 4 + 13;
  bytes[levels_at] = 0x30;  // 30000 levels
  bytes[levels_at + 1] = 0x75;
  const std::size_t level1 = levels_at + 2;
  bytes[level1 + 4] = 6;     // brackets 6: not allowed, ignored
  bytes[level1 + 6] = 5;     // rounds 5: becomes 10
  bytes[level1 + 8] = 0xFF;  // bout count 32767: disregarded
  bytes[level1 + 9] = 0x7F;
  WriteFileBytes(env.File("bad.rbt"), bytes);

  CTournament loaded;
  loaded.SetLevels(2);
  loaded.LoadFromFile(env.File("bad.rbt"));
  ASSERT_EQ(loaded.Levels(), 2);
  EXPECT_EQ(loaded.Level(1)->Brackets(), 2);
  EXPECT_EQ(loaded.Level(1)->BoutCount(), 1);
  EXPECT_EQ(loaded.Level(1)->Rounds(), 10);
  // The rest of the file still lines up.
  EXPECT_EQ(loaded.Level(2)->Rounds(), 12);
  EXPECT_EQ(loaded.Options()->TournamentDefaultRounds(1), 15);

  // Cut short or with bytes overwritten: loads without harm, within bounds.
  CTournament full;
  FillTournament(full);
  test::LoadDamagedCopies(env.File("bad.rbt"), FileOf(full, env.File("full.rbt")),
                          {.cut_step = 17, .rounds = 100, .flips = 6, .seed = 99}, [&] {
                            loaded.LoadFromFile(env.File("bad.rbt"));
                            ASSERT_LE(loaded.Levels(), 4);
                            for (int16_t l = 1; l <= loaded.Levels(); ++l) {
                              ASSERT_LE(loaded.Level(l)->BoutCount(), 8);
                            }
                          });
}

TEST(CTournamentTest, FailedSaveReportsNothingAndLeavesTheOldFile) {
  TempSettings env;
  CTournament t;
  EXPECT_NO_THROW(t.SaveToFile(env.File("missing/t.rbt")));
  EXPECT_FALSE(std::filesystem::exists(env.File("missing")));
  const std::vector<uint8_t> old = {9, 8, 7};
  WriteFileBytes(env.File("t.rbt"), old);
  std::filesystem::create_directory(env.File("t.rbt.tmp"));
  EXPECT_NO_THROW(t.SaveToFile(env.File("t.rbt")));
  EXPECT_EQ(ReadFileBytes(env.File("t.rbt")), old);
}

TEST(CTournamentTest, CloneGivesTheTargetItsOwnLevelsBoutsAndOptions) {
  TempSettings env;
  CTournament source;
  FillTournament(source);
  source.Options()->SetRounds(6);
  CTournament target;
  target.SetLevels(2);
  const auto level1 = target.Level(1);
  const auto options = target.Options();
  source.Clone(target);
  EXPECT_EQ(FileOf(target, env.File("target.rbt")), FileOf(source, env.File("source.rbt")));
  EXPECT_EQ(target.Level(1), level1);
  EXPECT_EQ(target.Options(), options);
  for (int16_t l = 1; l <= 4; ++l) {
    EXPECT_NE(target.Level(l), source.Level(l));
    EXPECT_NE(target.Level(l)->Bout(1), source.Level(l)->Bout(1));
    EXPECT_NE(target.Level(l)->Bout(1)->Options(), source.Level(l)->Bout(1)->Options());
  }
}

}  // namespace
}  // namespace ringbook
