#include "store/NCornermen.h"

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

class NCornermenTest : public test::GameDatabaseFixture {};

TEST_F(NCornermenTest, EveryFieldSurvivesAddAndItem) {
  NCornermen cornermen;
  auto c = std::make_shared<CCornerman>();
  c->SetFirstName("Angelo");
  c->SetLastName("Dundee");
  c->SetNickName("Ange");
  c->SetDiscipline(1);
  c->SetEra(2);
  c->SetMotivate(3);
  c->SetCloseCuts(4);
  c->SetReduceSwelling(5);
  c->SetSpecialty(6);
  c->SetStrategy(7);
  c->SetTrainingOffense(8);
  c->SetTrainingDefense(9);
  c->SetTrainingAverage(10);
  cornermen.AddRecord(c);

  NCornermen again;
  auto r = again.Item(c->ID());
  EXPECT_EQ(r->ID(), c->ID());
  EXPECT_EQ(r->Name(), "Angelo Dundee");
  EXPECT_EQ(r->NickName(), "Ange");
  EXPECT_EQ(std::vector<int>({r->Discipline(), r->Era(), r->Motivate(), r->CloseCuts(),
                              r->ReduceSwelling(), r->Specialty(), r->Strategy(),
                              r->TrainingOffense(), r->TrainingDefense(), r->TrainingAverage()}),
            std::vector<int>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(NCornermenTest, UnknownIdGivesAnEmptyCornerman) {
  Sql("INSERT INTO Cornermen (CornermanID, LastName, Era) VALUES (1, 'Smith', 1)");
  NCornermen cornermen;
  EXPECT_EQ(cornermen.Item(1)->Name(), "Smith");  // no stray blank
  auto none = cornermen.Item(2);                  // row 1 is current, yet not read
  EXPECT_EQ(none->ID(), 0);
  EXPECT_EQ(none->Name(), "");
  EXPECT_EQ(none->Era(), 0);
  EXPECT_EQ(cornermen.Records().Item(2).As<CCornerman>()->ID(), 0);
}

TEST_F(NCornermenTest, ListsAndMissingRow) {
  Sql("INSERT INTO Cornermen (FirstName, LastName, Era, Specialty, Discipline, Motivate,"
      " Strategy, CloseCuts, ReduceSwelling, TrainingOffense, TrainingDefense, TrainingAverage)"
      " VALUES ('', 'Smith', 1, 2, 1, 2, 3, 4, 5, 6, 7, 8)");
  NCornermen cornermen;
  auto list = std::make_shared<ListBoxDouble>();
  cornermen.FillList(list);  // era 0: none
  EXPECT_EQ(list->ListCount(), 0);
  cornermen.FillList(list, 1);
  EXPECT_EQ(list->Texts(), (Texts{"Smith"}));
  EXPECT_EQ(cornermen.GetCornermenList(), "Smith\tspecialty:2\t1\t2\t3\t4\t5\t6\t7\t8\tera:1\r\n");

  auto ghost = std::make_shared<CCornerman>();
  ghost->SetID(3);
  EXPECT_EQ(cornermen.UpdateRecord(ghost), nullptr);
  EXPECT_EQ(Sink().Messages(), (Texts{"Stop in NCornermen.UpdateRecord"}));
}

}  // namespace
}  // namespace ringbook
