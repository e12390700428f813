#include "fighters/CHistory.h"

#include <gtest/gtest.h>

namespace ringbook {
namespace {

TEST(CHistoryTest, CloneCopiesEveryFieldIntoTheGivenObject) {
  CHistory source;
  source.SetDecision("KO");
  source.SetDivision("Middleweight");
  source.SetFightDate(45000.5);
  source.SetLastRound(7);
  source.SetOpponent("Joe Bell");
  source.SetScheduledRounds(12);
  source.SetWonLost("Won");
  source.SetNotes("Title defence");

  auto target = std::make_shared<CHistory>();
  target->SetNotes("old");
  source.Clone(target);
  EXPECT_EQ(target->Decision(), "KO");
  EXPECT_EQ(target->Division(), "Middleweight");
  EXPECT_DOUBLE_EQ(target->FightDate(), 45000.5);
  EXPECT_EQ(target->LastRound(), 7);
  EXPECT_EQ(target->Opponent(), "Joe Bell");
  EXPECT_EQ(target->ScheduledRounds(), 12);
  EXPECT_EQ(target->WonLost(), "Won");
  EXPECT_EQ(target->Notes(), "Title defence");
}

TEST(CHistoryTest, CloneIntoAnEmptyReferenceCreatesNothing) {
  CHistory source;
  source.SetOpponent("Joe Bell");
  std::shared_ptr<CHistory> target;
  EXPECT_NO_THROW(source.Clone(target));
  EXPECT_EQ(target, nullptr);
}

}  // namespace
}  // namespace ringbook
