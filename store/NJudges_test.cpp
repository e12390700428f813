#include "store/NJudges.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/GameDatabaseFixture.h"
#include "support/ListBoxDouble.h"
#include "support/Raised.h"

namespace ringbook {
namespace {

using test::ListBoxDouble;
using Texts = std::vector<std::string>;

class NJudgesTest : public test::GameDatabaseFixture {};

TEST_F(NJudgesTest, EveryFieldSurvivesAddAndItem) {
  NJudges judges;
  auto judge = std::make_shared<CJudge>();
  judge->SetFirstName(" Ann ");
  judge->SetLastName("Able");
  judge->SetEra(3);
  judge->SetBias(-100000);
  judges.AddRecord(judge);

  NJudges again;
  auto read = again.Item(judge->ID());
  EXPECT_EQ(read->ID(), judge->ID());
  EXPECT_EQ(read->FirstName(), " Ann ");
  EXPECT_EQ(read->LastName(), "Able");
  EXPECT_EQ(read->Era(), 3);
  EXPECT_EQ(read->Bias(), -100000);
}

TEST_F(NJudgesTest, ListsShowTheQueryNameAndDisplayTexts) {
  Sql("INSERT INTO Judges (FirstName, LastName, Era, Bias) VALUES"
      " (' Ann ', ' Able ', 1, 3), ('Bob', 'Baker', 0, -1), ('Cy', 'Cole', 1, 0)");
  NJudges judges;
  auto list = std::make_shared<ListBoxDouble>();
  judges.FillList(list, 1);
  EXPECT_EQ(list->Texts(), (Texts{"Ann Able", "Cy Cole"}));

  EXPECT_EQ(judges.GetJudgesList(),
            "Ann Able\tbias:3\tera:1\r\n"
            "Bob Baker\tbias:-1\tera:0\r\n"
            "Cy Cole\tbias:0\tera:1\r\n");
}

TEST_F(NJudgesTest, MissingRowAndNullNumber) {
  Sql("INSERT INTO Judges (JudgeID, LastName, Bias) VALUES (1, 'Able', NULL)");
  NJudges judges;
  auto ghost = std::make_shared<CJudge>();
  ghost->SetID(2);
  EXPECT_EQ(judges.UpdateRecord(ghost), nullptr);
  EXPECT_EQ(Sink().Messages(), (Texts{"Stop in Judge.UpdateRecord"}));

  EXPECT_EQ(test::Raised([&] { judges.Item(1); }).Number(), errnum::kTypeMismatch);
}

}  // namespace
}  // namespace ringbook
