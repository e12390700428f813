// The protocol every collection shares, exercised through NLocations (the
// collection whose list shows one era) over real database files.

#include "store/RecordCollection.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/DefaultSettings.h"
#include "people/CJudge.h"
#include "people/CLocation.h"
#include "store/NLocations.h"
#include "store/NTitles.h"
#include "support/GameDatabaseFixture.h"
#include "support/ListBoxDouble.h"
#include "support/Raised.h"

namespace ringbook {
namespace {

using test::ListBoxDouble;
using Texts = std::vector<std::string>;
using Indexes = std::vector<int32_t>;

using test::Raised;

class RecordCollectionTest : public test::GameDatabaseFixture {
 protected:
  // Locations B, D, F of era 1 (keys 1 to 3) and C of era 2 (key 4).
  void SeedLocations() {
    Sql("INSERT INTO Locations (LocationID, Arena, Era, SiteRating) VALUES"
        " (1, 'B', 1, 10), (2, 'D', 1, 10), (3, 'F', 1, 10), (4, 'C', 2, 10)");
  }

  static std::shared_ptr<CLocation> NewLocation(const std::string& arena, int16_t era) {
    auto location = std::make_shared<CLocation>();
    location->SetArena(arena);
    location->SetCity("Town");
    location->SetEra(era);
    return location;
  }

  std::shared_ptr<ListBoxDouble> FilledList(NLocations& locations, int16_t era) {
    auto list = std::make_shared<ListBoxDouble>();
    locations.FillList(list, era);
    return list;
  }
};

TEST_F(RecordCollectionTest, CreationFailsWithTheDatabaseErrorNamingWhatIsMissing) {
  const std::string missing = Path() + ".missing";
  SetSettings(std::make_shared<DefaultSettings>(missing, ""));
  Error e = Raised([] { NLocations locations; });
  EXPECT_EQ(e.Number(), dberr::kFileNotFound);
  EXPECT_NE(e.Description().find(missing), std::string::npos);

  SetSettings(std::make_shared<DefaultSettings>(Path(), ""));
  Sql("DELETE FROM StoredQueries WHERE Name = 'qryLocations'");
  e = Raised([] { NLocations locations; });
  EXPECT_EQ(e.Number(), dberr::kItemNotFound);
  EXPECT_NE(e.Description().find("qryLocations"), std::string::npos);
}

TEST_F(RecordCollectionTest, AddRecordInsertsAtItsPlaceAmongTheRowsOfItsEra) {
  SeedLocations();
  NLocations locations;
  auto list = FilledList(locations, 1);
  ASSERT_EQ(list->Texts(), (Texts{"B", "D", "F"}));
  list->SetSelected(2, true);

  auto added = NewLocation("Ca", 1);  // between B and D; C of era 2 is not counted
  EXPECT_EQ(locations.AddRecord(added), added);
  EXPECT_EQ(added->ID(), 5);
  EXPECT_EQ(
      SqlText("SELECT Arena || '/' || City || '/' || Era FROM Locations WHERE LocationID = 5"),
      "Ca/Town/1");
  // The item shows the composed name, not the arena alone.
  EXPECT_EQ(list->Texts(), (Texts{"B", "Ca, Town", "D", "F"}));
  EXPECT_EQ(list->Data(), (Indexes{1, 5, 2, 3}));
  EXPECT_EQ(list->ListIndex(), 1);
  EXPECT_EQ(list->SelectedIndexes(), (Indexes{1}));

  // Unselected: the new item is current and nothing stays selected.
  locations.AddRecord(NewLocation("G", 1), false);
  EXPECT_EQ(list->Texts().back(), "G, Town");
  EXPECT_EQ(list->ListIndex(), 4);
  EXPECT_EQ(list->SelectedIndexes(), Indexes{});
}

TEST_F(RecordCollectionTest, UpdateRecordMovesTheItemToItsNewPlace) {
  SeedLocations();
  NLocations locations;
  auto list = FilledList(locations, 1);

  auto b = locations.Item(1);
  ASSERT_EQ(b->Arena(), "B");
  b->SetArena("E");
  EXPECT_EQ(locations.UpdateRecord(b), b);
  EXPECT_EQ(SqlText("SELECT Arena FROM Locations WHERE LocationID = 1"), "E");
  EXPECT_EQ(list->Texts(), (Texts{"D", "E", "F"}));
  EXPECT_EQ(list->ListIndex(), 1);
  EXPECT_EQ(list->SelectedIndexes(), (Indexes{1}));

  // A missing row: the message, and nothing written or listed.
  const int refreshes = list->RefreshCount();
  auto ghost = NewLocation("Ghost", 1);
  ghost->SetID(99);
  EXPECT_EQ(locations.UpdateRecord(ghost), nullptr);
  EXPECT_EQ(Sink().Messages(), (Texts{"Stop in NLocations.UpdateRecord"}));
  EXPECT_EQ(SqlText("SELECT count(*) FROM Locations WHERE Arena = 'Ghost' OR LocationID = 99"),
            "0");
  EXPECT_EQ(list->Texts(), (Texts{"D", "E", "F"}));
  EXPECT_EQ(list->RefreshCount(), refreshes);
}

TEST_F(RecordCollectionTest, RemoveRecordSelectsTheItemThatTakesItsPlace) {
  SeedLocations();
  NLocations locations;

  auto list = FilledList(locations, 1);
  EXPECT_FALSE(locations.RemoveRecord(2));  // the middle item
  EXPECT_EQ(list->Texts(), (Texts{"B", "F"}));
  EXPECT_EQ(list->SelectedIndexes(), (Indexes{1}));
  EXPECT_EQ(SqlText("SELECT count(*) FROM Locations WHERE LocationID = 2"), "0");

  list = FilledList(locations, 1);
  EXPECT_FALSE(locations.RemoveRecord(3));  // the last item: the new last is selected
  EXPECT_EQ(list->Texts(), (Texts{"B"}));
  EXPECT_EQ(list->SelectedIndexes(), (Indexes{0}));

  list = FilledList(locations, 1);
  EXPECT_FALSE(locations.RemoveRecord(1, false));
  EXPECT_EQ(list->Texts(), Texts{});
  EXPECT_EQ(list->SelectedIndexes(), Indexes{});
  EXPECT_EQ(list->RefreshCount(), 2);  // the fill and the removal
}

TEST_F(RecordCollectionTest, RemoveRecordOfAnUnknownIdActsOnTheCurrentRow) {
  SeedLocations();
  NLocations locations;
  auto list = FilledList(locations, 1);

  locations.Item(2);  // row 2 is now current
  EXPECT_FALSE(locations.RemoveRecord(999));
  EXPECT_EQ(
      SqlText("SELECT group_concat(LocationID) FROM (SELECT LocationID FROM Locations ORDER BY 1)"),
      "1,3,4");
  EXPECT_EQ(list->Texts(), (Texts{"B", "F"}));

  // After a walk to the end there is no current row to act on.
  locations.FillList(Variant(), 1);
  EXPECT_EQ(Raised([&] { locations.RemoveRecord(999); }).Number(), dberr::kNoCurrentRecord);
}

TEST_F(RecordCollectionTest, ItemSetIgnoresItsIdAndUnknownItemReadsTheCurrentRow) {
  SeedLocations();
  NLocations locations;
  auto list = FilledList(locations, 1);

  auto d = locations.Item(2);
  d->SetArena("A");
  locations.SetItem(3, d);
  EXPECT_EQ(SqlText("SELECT Arena FROM Locations WHERE LocationID = 2"), "A");
  EXPECT_EQ(SqlText("SELECT Arena FROM Locations WHERE LocationID = 3"), "F");
  EXPECT_EQ(list->Texts(), (Texts{"A", "B", "F"}));
  EXPECT_EQ(list->SelectedIndexes(), (Indexes{0}));

  // Not found: the record comes from whatever row is current.
  locations.Item(3);
  EXPECT_EQ(locations.Item(999)->ID(), 3);
}

TEST_F(RecordCollectionTest, ReadingConvertsEveryColumnThroughText) {
  Sql("INSERT INTO Locations (LocationID, Arena, City, Country, Era, PriceIndex, SiteRating)"
      " VALUES (1, 'A', NULL, 'X', 3, '12', 7.5), (2, 'B', 'C', 'D', NULL, 1, 1)");
  NLocations locations;
  auto a = locations.Item(1);
  EXPECT_EQ(a->City(), "");  // a Null text reads as the empty text
  EXPECT_EQ(a->PriceIndex(), 12);
  EXPECT_EQ(a->SiteRating(), 8);  // rounded half to even
  EXPECT_EQ(a->Name(), "A X");

  // A Null number fails the read with type mismatch.
  Error e = Raised([&] { locations.Item(2); });
  EXPECT_EQ(e.Number(), errnum::kTypeMismatch);
}

TEST_F(RecordCollectionTest, FillListFollowsItsControlArgument) {
  NLocations locations;
  // No control given and none bound: nothing to do.
  EXPECT_NO_THROW(locations.FillList());

  // An empty table: the list is cleared, nothing added, and refreshed.
  auto list = std::make_shared<ListBoxDouble>();
  list->AddItem("stale");
  locations.FillList(list);
  EXPECT_EQ(list->ListCount(), 0);
  EXPECT_EQ(list->ClearCount(), 1);
  EXPECT_EQ(list->RefreshCount(), 1);

  // A Nothing control keeps the binding.
  list->AddItem("stale");
  locations.FillList(Variant(std::shared_ptr<ListBoxDouble>()));
  EXPECT_EQ(list->ListCount(), 0);
  EXPECT_EQ(list->ClearCount(), 2);
}

TEST_F(RecordCollectionTest, TypedCollectionsBindListBoxesOnly) {
  SeedLocations();
  NLocations locations;
  auto combo = std::make_shared<ListBoxDouble>(false);
  EXPECT_EQ(Raised([&] { locations.BindTo(combo); }).Number(), errnum::kTypeMismatch);
  EXPECT_EQ(Raised([&] { locations.BindTo(Variant(5)); }).Number(), errnum::kTypeMismatch);
  EXPECT_EQ(Raised([&] { locations.FillList(combo); }).Number(), errnum::kTypeMismatch);

  // Binding does not fill; Nothing unbinds, after which only the table changes.
  auto list = std::make_shared<ListBoxDouble>();
  locations.BindTo(list);
  EXPECT_EQ(list->ListCount(), 0);
  locations.AddRecord(NewLocation("A", 1));
  EXPECT_EQ(list->Texts(), (Texts{"A, Town"}));
  locations.BindTo(Variant(std::shared_ptr<ListBoxDouble>()));
  locations.AddRecord(NewLocation("Z", 1));
  EXPECT_EQ(list->Texts(), (Texts{"A, Town"}));
  EXPECT_EQ(SqlText("SELECT count(*) FROM Locations"), "6");
}

TEST_F(RecordCollectionTest, RecordsInterfaceCastsAndForwards) {
  SeedLocations();
  NLocations locations;
  IRecords& records = locations.Records();

  EXPECT_EQ(Raised([&] { records.AddRecord(Variant(std::make_shared<CJudge>())); }).Number(),
            errnum::kTypeMismatch);
  EXPECT_EQ(Raised([&] { records.UpdateRecord(Variant("B")); }).Number(), errnum::kTypeMismatch);
  EXPECT_EQ(Raised([&] { records.SetItem(1, Variant(7)); }).Number(), errnum::kTypeMismatch);
  EXPECT_EQ(SqlText("SELECT count(*) FROM Locations"), "4");

  auto added = NewLocation("E", 2);
  Variant result = records.AddRecord(Variant(added));
  EXPECT_EQ(result.As<CLocation>(), added);
  EXPECT_EQ(records.Item(added->ID()).As<CLocation>()->Arena(), "E");

  auto ghost = NewLocation("Ghost", 2);
  ghost->SetID(99);
  result = records.UpdateRecord(Variant(ghost));
  EXPECT_TRUE(result.IsObject());
  EXPECT_EQ(result.ToObject(), nullptr);
  EXPECT_FALSE(records.RemoveRecord(added->ID()));

  // The common FillList of locations lists sites rated up to 1000.
  Sql("INSERT INTO Locations (Arena, Era, SiteRating) VALUES ('Top', 2, 1000), ('Over', 2, 1001)");
  auto list = std::make_shared<ListBoxDouble>();
  records.FillList(Variant(list), 2);
  EXPECT_EQ(list->Texts(), (Texts{"C", "Top"}));
}

// The list routine itself, for the kinds no public member passes.
class ListFollowingTitles : public NTitles {
 public:
  using NTitles::pvtUpdateList;
};

TEST_F(RecordCollectionTest, ListRoutineClearsOnlyForClearAndIgnoresOtherKinds) {
  Sql("INSERT INTO Titles (Name) VALUES ('WBA'), ('WBC')");
  ListFollowingTitles titles;
  auto list = std::make_shared<ListBoxDouble>();
  titles.FillList(list);
  CTitle unlisted;
  unlisted.SetID(99);

  titles.pvtUpdateList(updListAddDefaults, unlisted, true);
  titles.pvtUpdateList(static_cast<EUpdateListbox>(5), unlisted, true);
  titles.pvtUpdateList(updListRemove, unlisted, true);  // no item of that ID
  EXPECT_EQ(list->Texts(), (Texts{"WBA", "WBC"}));
  EXPECT_EQ(list->SelectedIndexes(), Indexes{});

  titles.pvtUpdateList(updListClear, unlisted, true);
  EXPECT_EQ(list->ListCount(), 0);
}

}  // namespace
}  // namespace ringbook
