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

using test::ListBoxDouble;
using Texts = std::vector<std::string>;

class NLocationsTest : public test::GameDatabaseFixture {};

TEST_F(NLocationsTest, FillListShowsOneEraUpToASiteRating) {
  Sql("INSERT INTO Locations (Arena, Era, SiteRating) VALUES"
      " ('Low', 2, 10), ('Edge', 2, 25), ('High', 2, 26), ('Unrated', 2, NULL),"
      " ('Other era', 1, 5), ('Home', 0, 1000), ('Too good', 0, 1001)");
  NLocations locations;
  auto list = std::make_shared<ListBoxDouble>();

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

TEST_F(NLocationsTest, LocationListHasOneTabSeparatedLinePerRow) {
  NLocations empty;
  EXPECT_EQ(empty.GetLocationList(), "");

  Sql("INSERT INTO Locations (Arena, City, Country, Era, PriceIndex, SiteRating) VALUES"
      " ('Garden', NULL, 'USA', 3, 12, 40), ('Arena', 'Oslo', 'Norway', 1, 5, 30)");
  NLocations locations;
  EXPECT_EQ(locations.GetLocationList(), "Arena\tOslo\tNorway\t5\t30\r\nGarden\t\tUSA\t12\t40\r\n");
}

TEST_F(NLocationsTest, EveryFieldSurvivesAddAndItem) {
  NLocations locations;
  auto location = std::make_shared<CLocation>();
  location->SetArena(" Hall ");
  location->SetCity("Rome");
  location->SetCountry("Italy");
  location->SetEra(-2);
  location->SetPriceIndex(70000);
  location->SetSiteRating(-5);
  locations.AddRecord(location);

  NLocations again;
  auto read = again.Item(location->ID());
  EXPECT_EQ(read->Arena(), " Hall ");
  EXPECT_EQ(read->City(), "Rome");
  EXPECT_EQ(read->Country(), "Italy");
  EXPECT_EQ(read->Era(), -2);
  EXPECT_EQ(read->ID(), location->ID());
  EXPECT_EQ(read->PriceIndex(), 70000);
  EXPECT_EQ(read->SiteRating(), -5);
  EXPECT_EQ(read->Name(), "Hall, Rome Italy");
}

}  // namespace
}  // namespace ringbook
