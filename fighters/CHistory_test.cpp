#include "fighters/CHistory.h"

#include <gtest/gtest.h>

namespace ringbook {
namespace {

TEST(CHistoryTest, CloneCopiesEveryFieldIntoTheGivenObjectOnly) {
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
  EXPECT_EQ(target->Decision() + "|" + target->Division() + "|" + target->Opponent() + "|" +
                target->WonLost() + "|" + target->Notes(),
            "KO|Middleweight|Joe Bell|Won|Title defence");
  EXPECT_DOUBLE_EQ(target->FightDate(), 45000.5);
  EXPECT_EQ(target->LastRound(), 7);
  EXPECT_EQ(target->ScheduledRounds(), 12);

  std::shared_ptr<CHistory> none;  // an empty reference: nothing is created
  EXPECT_NO_THROW(source.Clone(none));
  EXPECT_EQ(none, nullptr);
}

}  // namespace
}  // namespace ringbook
