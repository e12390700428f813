#include "store/NLocations.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/GameDatabaseFixture.h"
#include "support/ListBoxDouble.h"
#include "support/Raised.h"

namespace ringbook {
namespace {

using Texts = std::vector<std::string>;

class NLocationsTest : public test::GameDatabaseFixture {};

TEST_F(NLocationsTest, FillListShowsOneEraUpToASiteRating) {
  Sql("INSERT INTO Locations (Arena, Era, SiteRating) VALUES"
      " ('Low', 2, 10), ('Edge', 2, 25), ('High', 2, 26), ('Unrated', 2, NULL),"
      " ('Other era', 1, 5), ('Home', 0, 1000), ('Too good', 0, 1001)");
  NLocations locations;
  auto list = std::make_shared<test::ListBoxDouble>();
  locations.FillList(list, 2, 25);
  EXPECT_EQ(list->Texts(), (Texts{"Edge", "Low"}));

  // The defaults: era 0, site rating up to 1000.
  locations.FillList();
  EXPECT_EQ(list->Texts(), (Texts{"Home"}));

  // The site filter is any value, compared as a number.
  locations.FillList(Variant(), 2, "26");
  EXPECT_EQ(list->Texts(), (Texts{"Edge", "High", "Low"}));
  EXPECT_EQ(test::Raised([&] { locations.FillList(Variant(), 2, "high"); }).Number(),
            errnum::kTypeMismatch);
}

}  // namespace
}  // namespace ringbook
