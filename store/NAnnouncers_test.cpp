#include "store/NAnnouncers.h"

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

class NAnnouncersTest : public test::GameDatabaseFixture {};

TEST_F(NAnnouncersTest, AddedAnnouncerReadsBackAndIsListed) {
  NAnnouncers announcers;
  auto list = std::make_shared<ListBoxDouble>();
  announcers.FillList(list, 4);
  auto announcer = std::make_shared<CAnnouncer>();
  announcer->SetFirstName("Michael");
  announcer->SetLastName("Buffer");
  announcer->SetEra(4);
  announcers.AddRecord(announcer);
  EXPECT_EQ(list->Texts(), (Texts{"Michael Buffer"}));

  auto read = announcers.Item(announcer->ID());
  EXPECT_EQ(read->FirstName(), "Michael");
  EXPECT_EQ(read->LastName(), "Buffer");
  EXPECT_EQ(read->Era(), 4);
  EXPECT_EQ(read->ID(), announcer->ID());
}

TEST_F(NAnnouncersTest, ListLinesAndMissingRow) {
  Sql("INSERT INTO Announcers (FirstName, LastName, Era) VALUES (NULL, NULL, 2)");
  NAnnouncers announcers;
  // A person without names is named by one blank.
  EXPECT_EQ(announcers.GetAnnouncersList(), " \tera:2\r\n");

  auto ghost = std::make_shared<CAnnouncer>();
  ghost->SetID(5);
  EXPECT_EQ(announcers.UpdateRecord(ghost), nullptr);
  EXPECT_EQ(Sink().Messages(), (Texts{"Stop in Announcer.UpdateRecord"}));
}

}  // namespace
}  // namespace ringbook
