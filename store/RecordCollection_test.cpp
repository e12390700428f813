// The protocol every collection shares: once per collection for what its
// description sets apart, and through NLocations (whose list shows one era)
// for the list-following rules.

#include "store/RecordCollection.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/DefaultSettings.h"
#include "store/NAnnouncers.h"
#include "store/NCornermen.h"
#include "store/NGroups.h"
#include "store/NJudges.h"
#include "store/NLocations.h"
#include "store/NReferees.h"
#include "store/NTitles.h"
#include "support/GameDatabaseFixture.h"
#include "support/ListBoxDouble.h"
#include "support/Raised.h"

namespace ringbook {
namespace {

using test::ListBoxDouble;
using test::Raised;
using Texts = std::vector<std::string>;
using Indexes = std::vector<int32_t>;

template <class... A>
Texts Vals(const A&... values) {
  return {::testing::PrintToString(values)...};
}

// What differs between the collections: rows in SQL with the Get…List text
// and the list (filter `Era`) they give, the missing-row message, and a
// record with every field set apart from its default.
template <class C>
struct Kind;

template <class R>
struct NameOnly {
  static std::shared_ptr<R> Full() {
    auto r = std::make_shared<R>();
    r->SetName("AAA");
    return r;
  }
  static Texts Of(const R& r) { return Vals(r.ID(), r.Name()); }
};

template <>
struct Kind<NAnnouncers> {
  static constexpr const char* kRows =
      "INSERT INTO Announcers (FirstName, LastName, Era) VALUES (NULL, NULL, 2), ('Ann', 'Able', "
      "1)";
  // A person without names is named by one blank.
  static constexpr const char* kListText = " \tera:2\r\nAnn Able\tera:1\r\n";
  static constexpr int16_t kEra = 1;
  static Texts Listed() { return {"Ann Able"}; }
  static constexpr const char* kMissing = "Stop in Announcer.UpdateRecord";
  static std::string ListText(NAnnouncers& c) { return c.GetAnnouncersList(); }
  static std::shared_ptr<CAnnouncer> Full() {
    auto r = std::make_shared<CAnnouncer>();
    r->SetFirstName(" Joe ");
    r->SetLastName("Bell");
    r->SetEra(4);
    return r;
  }
  static Texts Of(const CAnnouncer& r) {
    return Vals(r.ID(), r.FirstName(), r.LastName(), r.Era());
  }
};

template <>
struct Kind<NCornermen> {
  static constexpr const char* kRows =
      "INSERT INTO Cornermen (FirstName, LastName, Era, Specialty, Discipline, Motivate, Strategy,"
      " CloseCuts, ReduceSwelling, TrainingOffense, TrainingDefense, TrainingAverage)"
      " VALUES ('', 'Smith', 1, 2, 1, 2, 3, 4, 5, 6, 7, 8)";
  static constexpr const char* kListText = "Smith\tspecialty:2\t1\t2\t3\t4\t5\t6\t7\t8\tera:1\r\n";
  static constexpr int16_t kEra = 1;
  static Texts Listed() { return {"Smith"}; }
  static constexpr const char* kMissing = "Stop in NCornermen.UpdateRecord";
  static std::string ListText(NCornermen& c) { return c.GetCornermenList(); }
  static std::shared_ptr<CCornerman> Full() {
    using C = CCornerman;
    auto c = std::make_shared<C>();
    c->SetFirstName("Pat");
    c->SetLastName("Duffy");
    c->SetNickName("Doc");
    int16_t value = 0;
    for (auto set : {&C::SetDiscipline, &C::SetEra, &C::SetMotivate, &C::SetCloseCuts,
                     &C::SetReduceSwelling, &C::SetSpecialty, &C::SetStrategy,
                     &C::SetTrainingOffense, &C::SetTrainingDefense, &C::SetTrainingAverage}) {
      (c.get()->*set)(++value);
    }
    return c;
  }
  static Texts Of(const CCornerman& r) {
    return Vals(r.ID(), r.Name(), r.NickName(), r.Discipline(), r.Era(), r.Motivate(),
                r.CloseCuts(), r.ReduceSwelling(), r.Specialty(), r.Strategy(), r.TrainingOffense(),
                r.TrainingDefense(), r.TrainingAverage());
  }
};

template <>
struct Kind<NGroups> : NameOnly<CGroup> {
  static constexpr const char* kRows = "INSERT INTO \"Groups\" (Name) VALUES ('b'), ('A')";
  static constexpr const char* kListText = "A\r\nb\r\n";  // sorted without regard to case
  static constexpr int16_t kEra = 7;                      // no filter to pass on
  static Texts Listed() { return {"A", "b"}; }
  static constexpr const char* kMissing = "Stop in NGroups.UpdateRecord";
  static std::string ListText(NGroups& c) { return c.GetGroupList(); }
};

template <>
struct Kind<NJudges> {
  static constexpr const char* kRows =
      "INSERT INTO Judges (FirstName, LastName, Era, Bias) VALUES"
      " (' Ann ', ' Able ', 1, 3), ('Bob', 'Baker', 0, -1), ('Cy', 'Cole', 1, 0)";
  static constexpr const char* kListText =
      "Ann Able\tbias:3\tera:1\r\nBob Baker\tbias:-1\tera:0\r\nCy Cole\tbias:0\tera:1\r\n";
  static constexpr int16_t kEra = 1;
  static Texts Listed() { return {"Ann Able", "Cy Cole"}; }
  static constexpr const char* kMissing = "Stop in Judge.UpdateRecord";
  static std::string ListText(NJudges& c) { return c.GetJudgesList(); }
  static std::shared_ptr<CJudge> Full() {
    auto r = std::make_shared<CJudge>();
    r->SetFirstName(" Ann ");
    r->SetLastName("Zed");
    r->SetEra(3);
    r->SetBias(-100000);  // beyond 16 bits
    return r;
  }
  static Texts Of(const CJudge& r) {
    return Vals(r.ID(), r.FirstName(), r.LastName(), r.Era(), r.Bias());
  }
};

template <>
struct Kind<NLocations> {
  static constexpr const char* kRows =
      "INSERT INTO Locations (Arena, City, Country, Era, PriceIndex, SiteRating) VALUES"
      " ('Garden', NULL, 'USA', 3, 12, 40), ('Arena', 'Oslo', 'Norway', 1, 5, 30)";
  static constexpr const char* kListText =
      "Arena\tOslo\tNorway\t5\t30\r\nGarden\t\tUSA\t12\t40\r\n";
  static constexpr int16_t kEra = 3;
  static Texts Listed() { return {"Garden"}; }
  static constexpr const char* kMissing = "Stop in NLocations.UpdateRecord";
  static std::string ListText(NLocations& c) { return c.GetLocationList(); }
  static std::shared_ptr<CLocation> Full() {
    auto r = std::make_shared<CLocation>();
    r->SetArena(" Hall ");
    r->SetCity("Rome");
    r->SetCountry("Italy");
    r->SetEra(-2);
    r->SetPriceIndex(70000);
    r->SetSiteRating(-5);
    return r;
  }
  static Texts Of(const CLocation& r) {
    return Vals(r.ID(), r.Arena(), r.City(), r.Country(), r.Era(), r.PriceIndex(), r.SiteRating(),
                r.Name());
  }
};

template <>
struct Kind<NReferees> {
  static constexpr const char* kRows =
      "INSERT INTO Referees (FirstName, LastName, Era, Fouls, Stoppage, Judgement) VALUES"
      " ('Ann', 'Able', 1, 1, 2, 0), ('Bob', 'Baker', 0, 0, 0, 0)";
  static constexpr const char* kListText =
      "Ann Able\trating:1\trating:2\trating:0\tera:1\r\n"
      "Bob Baker\trating:0\trating:0\trating:0\tera:0\r\n";
  static constexpr int16_t kEra = 1;
  static Texts Listed() { return {"Ann Able"}; }
  static constexpr const char* kMissing = "Stop in Referee.UpdateRecord";
  static std::string ListText(NReferees& c) { return c.GetRefereeList(); }
  static std::shared_ptr<CReferee> Full() {
    auto r = std::make_shared<CReferee>();
    r->SetFirstName("Max");
    r->SetLastName("Lane");
    r->SetActiveRetired(1);
    r->SetEra(2);
    r->SetFouls(3);
    r->SetJudgement(4);
    r->SetRating(5);
    r->SetStoppage(6);
    return r;
  }
  static Texts Of(const CReferee& r) {
    return Vals(r.ID(), r.Name(), r.ActiveRetired(), r.Era(), r.Fouls(), r.Judgement(), r.Rating(),
                r.Stoppage());
  }
};

template <>
struct Kind<NTitles> : NameOnly<CTitle> {
  static constexpr const char* kRows =
      "INSERT INTO Titles (TitleId, Name) VALUES (1, 'WBC'), (2, 'IBF'), (3, 'WBA')";
  static constexpr const char* kListText = "IBF\r\nWBA\r\nWBC\r\n";
  static constexpr int16_t kEra = 9;  // no filter: every title
  static Texts Listed() { return {"IBF", "WBA", "WBC"}; }
  static constexpr const char* kMissing = "Stop in NTitles.UpdateRecord";
  static std::string ListText(NTitles& c) { return c.GetTitleList(); }
};

template <class C>
class CollectionTest : public test::GameDatabaseFixture {};
using Collections =
    ::testing::Types<NAnnouncers, NCornermen, NGroups, NJudges, NLocations, NReferees, NTitles>;
TYPED_TEST_SUITE(CollectionTest, Collections);

TYPED_TEST(CollectionTest, ListsRoundTripAndMissingRow) {
  using K = Kind<TypeParam>;
  {
    TypeParam empty;
    EXPECT_EQ(K::ListText(empty), "");
  }
  this->Sql(K::kRows);
  TypeParam collection;
  EXPECT_EQ(K::ListText(collection), K::kListText);
  auto list = std::make_shared<ListBoxDouble>();
  collection.Records().FillList(Variant(list), K::kEra);
  EXPECT_EQ(list->Texts(), K::Listed());

  auto ghost = K::Full();
  ghost->SetID(99);
  EXPECT_EQ(collection.UpdateRecord(ghost), nullptr);
  EXPECT_EQ(this->Sink().Messages(), Texts{K::kMissing});

  // Every field through a new connection, found among other rows.
  auto record = K::Full();
  collection.AddRecord(record, false);
  TypeParam again;
  again.Item(1);
  EXPECT_EQ(K::Of(*again.Item(record->ID())), K::Of(*record));
}

class RecordCollectionTest : public test::GameDatabaseFixture {
 protected:
  // Locations B, D, F of era 1 (keys 1 to 3) and C of era 2 (key 4), with
  // a list of era 1.
  void SetUp() override {
    GameDatabaseFixture::SetUp();
    Sql("INSERT INTO Locations (LocationID, Arena, Era, SiteRating) VALUES"
        " (1, 'B', 1, 10), (2, 'D', 1, 10), (3, 'F', 1, 10), (4, 'C', 2, 10)");
    locations_ = std::make_unique<NLocations>();
    list_ = Fill();
  }

  std::shared_ptr<ListBoxDouble> Fill() {
    auto list = std::make_shared<ListBoxDouble>();
    locations_->FillList(list, 1);
    return list;
  }

  static std::shared_ptr<CLocation> NewLocation(const std::string& arena, int16_t era,
                                                int32_t id = 0) {
    auto location = std::make_shared<CLocation>();
    location->SetArena(arena);
    location->SetCity("Town");
    location->SetEra(era);
    location->SetID(id);
    return location;
  }

  std::unique_ptr<NLocations> locations_;
  std::shared_ptr<ListBoxDouble> list_;
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

TEST_F(RecordCollectionTest, AddAndUpdatePutTheItemAtItsPlaceAmongTheRowsOfItsEra) {
  list_->SetSelected(2, true);
  auto added = NewLocation("Ca", 1);  // between B and D; C of era 2 is not counted
  EXPECT_EQ(locations_->AddRecord(added), added);
  EXPECT_EQ(added->ID(), 5);
  EXPECT_EQ(
      SqlText("SELECT Arena || '/' || City || '/' || Era FROM Locations WHERE LocationID = 5"),
      "Ca/Town/1");
  // The item shows the composed name, not the arena alone.
  EXPECT_EQ(list_->Texts(), (Texts{"B", "Ca, Town", "D", "F"}));
  EXPECT_EQ(list_->Data(), (Indexes{1, 5, 2, 3}));
  EXPECT_EQ(list_->ListIndex(), 1);
  EXPECT_EQ(list_->SelectedIndexes(), (Indexes{1}));

  // Unselected: the new item is current and nothing stays selected.
  locations_->AddRecord(NewLocation("G", 1), false);
  EXPECT_EQ(list_->Texts().back(), "G, Town");
  EXPECT_EQ(list_->ListIndex(), 4);
  EXPECT_EQ(list_->SelectedIndexes(), Indexes{});

  auto b = locations_->Item(1);
  b->SetArena("E");
  EXPECT_EQ(locations_->UpdateRecord(b), b);
  EXPECT_EQ(SqlText("SELECT Arena FROM Locations WHERE LocationID = 1"), "E");
  EXPECT_EQ(list_->Texts(), (Texts{"Ca, Town", "D", "E", "F", "G, Town"}));
  EXPECT_EQ(list_->ListIndex(), 2);
  EXPECT_EQ(list_->SelectedIndexes(), (Indexes{2}));

  // A missing row: nothing written or listed.
  const int refreshes = list_->RefreshCount();
  EXPECT_EQ(locations_->UpdateRecord(NewLocation("Ghost", 1, 99)), nullptr);
  EXPECT_EQ(SqlText("SELECT count(*) FROM Locations WHERE Arena = 'Ghost' OR LocationID = 99"),
            "0");
  EXPECT_EQ(list_->ListCount(), 5);
  EXPECT_EQ(list_->RefreshCount(), refreshes);
}

TEST_F(RecordCollectionTest, RemoveRecordSelectsTheItemThatTakesItsPlace) {
  EXPECT_FALSE(locations_->RemoveRecord(2));  // the middle item
  EXPECT_EQ(list_->Texts(), (Texts{"B", "F"}));
  EXPECT_EQ(list_->SelectedIndexes(), (Indexes{1}));
  EXPECT_EQ(SqlText("SELECT count(*) FROM Locations WHERE LocationID = 2"), "0");

  list_ = Fill();
  EXPECT_FALSE(locations_->RemoveRecord(3));  // the last item: the new last is selected
  EXPECT_EQ(list_->Texts(), (Texts{"B"}));
  EXPECT_EQ(list_->SelectedIndexes(), (Indexes{0}));

  list_ = Fill();
  EXPECT_FALSE(locations_->RemoveRecord(1, false));
  EXPECT_EQ(list_->Texts(), Texts{});
  EXPECT_EQ(list_->SelectedIndexes(), Indexes{});
  EXPECT_EQ(list_->RefreshCount(), 2);  // the fill and the removal
}

TEST_F(RecordCollectionTest, UnknownIdsActOnTheCurrentRowAndSetItemIgnoresItsId) {
  locations_->Item(2);  // row 2 is now current
  EXPECT_FALSE(locations_->RemoveRecord(999));
  EXPECT_EQ(
      SqlText("SELECT group_concat(LocationID) FROM (SELECT LocationID FROM Locations ORDER BY 1)"),
      "1,3,4");
  EXPECT_EQ(list_->Texts(), (Texts{"B", "F"}));
  locations_->Item(3);
  EXPECT_EQ(locations_->Item(999)->ID(), 3);

  auto f = locations_->Item(3);
  f->SetArena("A");
  locations_->SetItem(1, f);
  EXPECT_EQ(SqlText("SELECT group_concat(Arena) FROM (SELECT Arena FROM Locations ORDER BY "
                    "LocationID)"),
            "B,A,C");
  EXPECT_EQ(list_->Texts(), (Texts{"A", "B"}));
  EXPECT_EQ(list_->SelectedIndexes(), (Indexes{0}));

  // After a walk to the end there is no current row to act on.
  locations_->FillList(Variant(), 1);
  EXPECT_EQ(Raised([&] { locations_->RemoveRecord(999); }).Number(), dberr::kNoCurrentRecord);
}

TEST_F(RecordCollectionTest, ReadingConvertsEveryColumnThroughText) {
  Sql("INSERT INTO Locations (LocationID, Arena, City, Country, Era, PriceIndex, SiteRating)"
      " VALUES (5, 'A', NULL, 'X', 3, '12', 7.5), (6, 'B', 'C', 'D', NULL, 1, 1),"
      " (7, 'B', 'C', 'D', 1, NULL, 1)");
  NLocations locations;
  auto a = locations.Item(5);
  EXPECT_EQ(a->City(), "");  // a Null text reads as the empty text
  EXPECT_EQ(a->PriceIndex(), 12);
  EXPECT_EQ(a->SiteRating(), 8);  // rounded half to even
  EXPECT_EQ(a->Name(), "A X");
  // A Null number fails the read, as an Integer and as a Long.
  EXPECT_EQ(Raised([&] { locations.Item(6); }).Number(), errnum::kTypeMismatch);
  EXPECT_EQ(Raised([&] { locations.Item(7); }).Number(), errnum::kTypeMismatch);
}

TEST_F(RecordCollectionTest, FillListAndBindingFollowTheControlArgument) {
  Sql("DELETE FROM Locations");
  NLocations locations;
  EXPECT_NO_THROW(locations.FillList());  // no control given and none bound

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

  auto combo = std::make_shared<ListBoxDouble>(false);
  EXPECT_EQ(Raised([&] { locations.BindTo(combo); }).Number(), errnum::kTypeMismatch);
  EXPECT_EQ(Raised([&] { locations.BindTo(Variant(5)); }).Number(), errnum::kTypeMismatch);
  EXPECT_EQ(Raised([&] { locations.FillList(combo); }).Number(), errnum::kTypeMismatch);

  // Binding does not fill; Nothing unbinds, after which only the table changes.
  list = std::make_shared<ListBoxDouble>();
  locations.BindTo(list);
  EXPECT_EQ(list->ListCount(), 0);
  locations.AddRecord(NewLocation("A", 1));
  EXPECT_EQ(list->Texts(), (Texts{"A, Town"}));
  locations.BindTo(Variant(std::shared_ptr<ListBoxDouble>()));
  locations.AddRecord(NewLocation("Z", 1));
  EXPECT_EQ(list->Texts(), (Texts{"A, Town"}));
  EXPECT_EQ(SqlText("SELECT count(*) FROM Locations"), "2");
}

TEST_F(RecordCollectionTest, RecordsInterfaceCastsAndForwards) {
  Sql("INSERT INTO Locations (Arena, Era, SiteRating) VALUES ('Top', 2, 1000), ('Over', 2, 1001)");
  IRecords& records = locations_->Records();
  EXPECT_EQ(Raised([&] { records.AddRecord(Variant(std::make_shared<CJudge>())); }).Number(),
            errnum::kTypeMismatch);
  EXPECT_EQ(Raised([&] { records.UpdateRecord(Variant("B")); }).Number(), errnum::kTypeMismatch);
  EXPECT_EQ(Raised([&] { records.SetItem(1, Variant(7)); }).Number(), errnum::kTypeMismatch);
  EXPECT_EQ(SqlText("SELECT count(*) FROM Locations"), "6");

  auto added = NewLocation("E", 2);
  EXPECT_EQ(records.AddRecord(Variant(added)).As<CLocation>(), added);
  EXPECT_EQ(records.Item(added->ID()).As<CLocation>()->Arena(), "E");
  const Variant result = records.UpdateRecord(Variant(NewLocation("Ghost", 2, 99)));
  EXPECT_TRUE(result.IsObject());
  EXPECT_EQ(result.ToObject(), nullptr);
  EXPECT_FALSE(records.RemoveRecord(added->ID()));

  // The common FillList of locations lists sites rated up to 1000.
  records.FillList(Variant(list_), 2);
  EXPECT_EQ(list_->Texts(), (Texts{"C", "Top"}));
}

// What single collections do differently.
TEST_F(RecordCollectionTest, CornermenGiveAnEmptyCornermanForAnUnknownId) {
  Sql("INSERT INTO Cornermen (CornermanID, LastName, Era) VALUES (1, 'Smith', 1)");
  NCornermen cornermen;
  EXPECT_EQ(cornermen.Item(1)->Name(), "Smith");  // no stray blank
  auto none = cornermen.Item(2);                  // row 1 is current, yet not read
  EXPECT_EQ(none->ID(), 0);
  EXPECT_EQ(none->Name(), "");
  EXPECT_EQ(none->Era(), 0);
  EXPECT_EQ(cornermen.Records().Item(2).As<CCornerman>()->ID(), 0);
  cornermen.FillList(list_);  // era 0: none
  EXPECT_EQ(list_->ListCount(), 0);
}

TEST_F(RecordCollectionTest, GroupsBindAnyControl) {
  Sql("INSERT INTO \"Groups\" (Name) VALUES ('Amateurs'), ('Pros')");
  NGroups groups;
  auto combo = std::make_shared<ListBoxDouble>(false);
  groups.FillList(combo);
  EXPECT_EQ(combo->Texts(), (Texts{"Amateurs", "Pros"}));
  EXPECT_EQ(combo->Data(), (Indexes{1, 2}));
  auto added = std::make_shared<CGroup>();
  added->SetName("Juniors");
  groups.AddRecord(added);
  EXPECT_EQ(combo->Texts(), (Texts{"Amateurs", "Juniors", "Pros"}));
  EXPECT_EQ(combo->ListIndex(), 1);
  added->SetName("Veterans");
  groups.UpdateRecord(added);
  EXPECT_EQ(combo->Texts(), (Texts{"Amateurs", "Pros", "Veterans"}));
}

TEST_F(RecordCollectionTest, LocationsListOneEraUpToASiteRating) {
  Sql("DELETE FROM Locations; INSERT INTO Locations (Arena, Era, SiteRating) VALUES"
      " ('Low', 2, 10), ('Edge', 2, 25), ('High', 2, 26), ('Unrated', 2, NULL),"
      " ('Other era', 1, 5), ('Home', 0, 1000), ('Too good', 0, 1001)");
  NLocations locations;
  locations.FillList(list_, 2, 25);
  EXPECT_EQ(list_->Texts(), (Texts{"Edge", "Low"}));
  locations.FillList();  // the defaults: era 0, site rating up to 1000
  EXPECT_EQ(list_->Texts(), (Texts{"Home"}));
  // The site filter is any value, compared as a number.
  locations.FillList(Variant(), 2, "26");
  EXPECT_EQ(list_->Texts(), (Texts{"Edge", "High", "Low"}));
  EXPECT_EQ(Raised([&] { locations.FillList(Variant(), 2, "high"); }).Number(),
            errnum::kTypeMismatch);
}

TEST_F(RecordCollectionTest, TitlesFillAnArrayWithNamesAndKeysInTheQueryOrder) {
  VariantArray2D array;  // an empty table leaves the array alone
  array.ReDim(0, 4, 0, 0);
  array(4, 0) = Variant("kept");
  NTitles().FillArray(array);
  EXPECT_EQ(array.UBound(1), 4);
  EXPECT_EQ(array(4, 0), Variant("kept"));

  Sql(Kind<NTitles>::kRows);
  NTitles titles;
  EXPECT_EQ(titles.Item(3)->Name(), "WBA");  // found although the key column is "TitleId"
  titles.FillArray(array);
  EXPECT_EQ(std::vector<int>({array.LBound(1), array.UBound(1), array.LBound(2), array.UBound(2)}),
            std::vector<int>({1, 3, 0, 1}));
  EXPECT_EQ(array(1, 0), Variant("IBF"));
  EXPECT_EQ(array(1, 1), Variant(int32_t{2}));  // the column's value, a Long
  EXPECT_EQ(array(2, 0), Variant("WBA"));
  EXPECT_EQ(array(3, 0), Variant("WBC"));
  EXPECT_EQ(array(3, 1), Variant(int32_t{1}));
}

}  // namespace
}  // namespace ringbook
