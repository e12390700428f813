#include "store/NCornermen.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/GameDatabaseFixture.h"
#include "support/ListBoxDouble.h"

namespace ringbook {
namespace {

class NCornermenTest : public test::GameDatabaseFixture {};

TEST_F(NCornermenTest, UnknownIdGivesAnEmptyCornermanAndListsShowOneEra) {
  Sql("INSERT INTO Cornermen (CornermanID, LastName, Era) VALUES (1, 'Smith', 1)");
  NCornermen cornermen;
  EXPECT_EQ(cornermen.Item(1)->Name(), "Smith");  // no stray blank
  auto none = cornermen.Item(2);                  // row 1 is current, yet not read
  EXPECT_EQ(none->ID(), 0);
  EXPECT_EQ(none->Name(), "");
  EXPECT_EQ(none->Era(), 0);
  EXPECT_EQ(cornermen.Records().Item(2).As<CCornerman>()->ID(), 0);

  auto list = std::make_shared<test::ListBoxDouble>();
  cornermen.FillList(list);  // era 0: none
  EXPECT_EQ(list->ListCount(), 0);
}

}  // namespace
}  // namespace ringbook
