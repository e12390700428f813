#include "store/NReferees.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/GameDatabaseFixture.h"
#include "support/ListBoxDouble.h"

namespace ringbook {
namespace {

using test::ListBoxDouble;
using Texts = std::vector<std::string>;

class NRefereesTest : public test::GameDatabaseFixture {};

TEST_F(NRefereesTest, EveryFieldSurvivesAddAndItem) {
  NReferees referees;
  auto referee = std::make_shared<CReferee>();
  referee->SetFirstName("Mills");
  referee->SetLastName("Lane");
  referee->SetActiveRetired(1);
  referee->SetEra(2);
  referee->SetFouls(3);
  referee->SetJudgement(4);
  referee->SetRating(5);
  referee->SetStoppage(6);
  referees.AddRecord(referee);

  NReferees again;
  auto read = again.Item(referee->ID());
  EXPECT_EQ(read->ID(), referee->ID());
  EXPECT_EQ(read->Name(), "Mills Lane");
  EXPECT_EQ(read->ActiveRetired(), 1);
  EXPECT_EQ(read->Era(), 2);
  EXPECT_EQ(read->Fouls(), 3);
  EXPECT_EQ(read->Judgement(), 4);
  EXPECT_EQ(read->Rating(), 5);
  EXPECT_EQ(read->Stoppage(), 6);
}

TEST_F(NRefereesTest, ListsAndMissingRow) {
  Sql("INSERT INTO Referees (FirstName, LastName, Era, Fouls, Stoppage, Judgement) VALUES"
      " ('Ann', 'Able', 1, 1, 2, 0), ('Bob', 'Baker', 0, 0, 0, 0)");
  NReferees referees;
  auto list = std::make_shared<ListBoxDouble>();
  referees.FillList(list, 1);
  EXPECT_EQ(list->Texts(), (Texts{"Ann Able"}));
  EXPECT_EQ(referees.GetRefereeList(),
            "Ann Able\trating:1\trating:2\trating:0\tera:1\r\n"
            "Bob Baker\trating:0\trating:0\trating:0\tera:0\r\n");

  auto ghost = std::make_shared<CReferee>();
  ghost->SetID(9);
  EXPECT_EQ(referees.UpdateRecord(ghost), nullptr);
  EXPECT_EQ(Sink().Messages(), (Texts{"Stop in Referee.UpdateRecord"}));
}

}  // namespace
}  // namespace ringbook
