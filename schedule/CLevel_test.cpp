#include "schedule/CLevel.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/TempSettings.h"

namespace ringbook {
namespace {

TEST(CLevelTest, BracketsAndRoundsAcceptOnlyTheirValues) {
  test::TempSettings env;
  CLevel level;
  level.SetBrackets(8);
  ASSERT_EQ(level.BoutCount(), 4);
  EXPECT_TRUE(level.DisplayFight(4));
  EXPECT_EQ(level.Bout(0), nullptr);
  EXPECT_EQ(level.Bout(5), nullptr);
  const auto first = level.Bout(1);
  level.SetDisplayFight(1, false);
  for (int16_t bad : {0, 1, 3, 6, 32, -2}) level.SetBrackets(bad);
  EXPECT_EQ(level.Brackets(), 8);
  EXPECT_EQ(level.BoutCount(), 4);

  // Shrinking and growing again keep the bouts and flags that remain.
  level.SetBrackets(2);
  EXPECT_EQ(level.Bout(2), nullptr);
  level.SetBrackets(16);
  EXPECT_EQ(level.BoutCount(), 8);
  EXPECT_EQ(level.Bout(1), first);
  EXPECT_NE(level.Bout(8), nullptr);
  EXPECT_FALSE(level.DisplayFight(1));
  EXPECT_TRUE(level.DisplayFight(8));
  level.SetDisplayFight(9, false);
  EXPECT_FALSE(level.DisplayFight(9));

  for (auto [set, stored] : {std::pair<int16_t, int16_t>{15, 15}, {5, 10}, {3, 3}}) {
    level.SetRounds(set);
    EXPECT_EQ(level.Rounds(), stored) << set;
  }
}

TEST(CLevelTest, RecordBoutCountIsReadButTheBracketsDecide) {
  test::TempSettings env;
  CLevel level;
  level.SetBrackets(4);
  level.Bout(2)->SetFighterLastName(1, "Second");
  level.SetDisplayFight(1, false);
  level.SaveToFile(env.File("level.bin"));
  auto bytes = test::ReadFileBytes(env.File("level.bin"));
  ASSERT_EQ(test::Bytes().Lng(1000001).Int(4).Int(10).Int(2).Get(),
            std::vector<uint8_t>(bytes.begin(), bytes.begin() + 10));
  // A count that disagrees with the brackets: 1 bout claimed for 4 brackets.
  bytes[8] = 1;
  bytes.push_back(0x5A);
  test::WriteFileBytes(env.File("level.bin"), bytes);

  CLevel loaded;
  CStream in;
  in.SetFilename(env.File("level.bin"));
  in.OpenStream(false);
  loaded.ReadFromStream(in);
  EXPECT_EQ(in.ReadByte(), 0x5A);  // two bouts and two flags were read
  in.CloseStream();
  EXPECT_EQ(loaded.BoutCount(), 2);
  EXPECT_EQ(loaded.Bout(2)->FighterLastName(1), "Second");
  EXPECT_FALSE(loaded.DisplayFight(1));
  EXPECT_TRUE(loaded.DisplayFight(2));
}

TEST(CLevelTest, CloneCopiesIntoTheTargetsOwnBouts) {
  test::TempSettings env;
  CLevel source;
  source.SetBrackets(4);
  source.SetRounds(6);
  source.Bout(1)->SetRating(1, 77);
  source.SetDisplayFight(2, false);
  CLevel target;
  target.SetBrackets(16);
  const auto own = target.Bout(1);
  source.Clone(target);
  EXPECT_EQ(target.BoutCount(), 2);
  EXPECT_EQ(target.Rounds(), 6);
  EXPECT_EQ(target.Bout(1), own);
  EXPECT_EQ(own->Rating(1), 77);
  EXPECT_TRUE(target.DisplayFight(1));
  EXPECT_FALSE(target.DisplayFight(2));
}

}  // namespace
}  // namespace ringbook
