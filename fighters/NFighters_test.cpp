#include "fighters/NFighters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "core/HostServices.h"
#include "support/FighterFixture.h"
#include "support/ListBoxDouble.h"
#include "support/Raised.h"

namespace ringbook {
namespace {

using test::ListBoxDouble;
using test::Raised;
using Texts = std::vector<std::string>;

// The columns of each section, in writing order.
Texts Words(const std::string& text) {
  std::istringstream in(text);
  return Texts(std::istream_iterator<std::string>(in), std::istream_iterator<std::string>());
}
const Texts kProfileColumns = Words(
    "GroupID FirstName LastName NickName Division Rating Style ActiveRetired Sex SouthPaw "
    "SkinColor Cfb Cfs Hp Kdr1 Kdr2 Kor Agg Ki Tko E10 Defn Cuts Fouls Icor FastSlow Fi Fo Cu Ko "
    "Pl Cp Pm Cl Rm J3 J2 H3 H2 Cr3 Cr2 Cb3 Cb2 U3 U2 Conditioning Intellect DrawPower "
    "Proficiency CutManID TrainerID PicturePath");
const Texts kCareerColumns = Words(
    "Rank Won Lost Draw Kos Tkos HasPerformance Performance DisplayPerf KdsFor TotalPl TotalPm "
    "TotalCuts TotalRounds OpKdsFor OpTotalPl OpTotalPm OpTotalCuts TitleIDs NumTitles");
// The columns that Filled sets through the fighter rather than in the row.
const Texts kSetByFighter = Words(
    "GroupID FirstName LastName NickName PicturePath HasPerformance Performance TitleIDs "
    "NumTitles");

class NFightersTest : public test::FighterFixture {
 protected:
  // A stored fighter, read back, whose every column holds a value of its own
  // that differs from the one given by any other `base`.
  std::shared_ptr<CFighter> Filled(NFighters& fighters, int base) {
    const std::string b = std::to_string(base);
    auto f = Fighter("First" + b, "Last" + b, base);
    f->SetNickName("Nick" + b);
    f->SetPicturePath(picture_);
    f->SetHasPerformance(base % 2 == 1);
    f->SetPerformance(base + 0.5);
    f->SetTitleIDs(base % 2 == 1 ? "|3|17|" : "|5|");
    fighters.AddRecord(f);
    std::string sql = "UPDATE Fighters SET FighterID = FighterID";
    int i = 0;
    for (const Texts& section : {kProfileColumns, kCareerColumns}) {
      for (const std::string& c : section) {
        if (std::ranges::find(kSetByFighter, c) != kSetByFighter.end()) continue;
        sql += ", " + c + " = " + std::to_string(base + ++i);
      }
    }
    Sql(sql + " WHERE FighterID = " + std::to_string(f->ID()));
    return fighters.Item(f->ID());
  }

  // The stored texts of fighter `id`'s profile and career columns.
  std::pair<Texts, Texts> Sections(int32_t id) {
    std::pair<Texts, Texts> texts;
    for (const std::string& c : kProfileColumns) texts.first.push_back(FighterColumn(id, c));
    for (const std::string& c : kCareerColumns) texts.second.push_back(FighterColumn(id, c));
    return texts;
  }

  void SetUp() override {
    FighterFixture::SetUp();
    picture_ = (std::filesystem::path(Path()).parent_path() / "face.png").string();
    std::ofstream(picture_) << "png";
  }

  std::string picture_;
};

TEST_F(NFightersTest, EveryColumnSurvivesItemAndAdd) {
  NFighters fighters;
  auto read = Filled(fighters, 11);
  const int32_t stored = read->ID();
  EXPECT_EQ(read->Name(), "First11 Nick11 Last11");
  EXPECT_EQ(read->Tko(), 11 + 16);  // one column read by way of its getter
  EXPECT_EQ(read->History(), nullptr);
  EXPECT_EQ(fighters.AddRecord(read), read);  // the very object, now with its key
  ASSERT_NE(read->ID(), stored);
  EXPECT_EQ(Sections(read->ID()), Sections(stored));
  // The title count is stored beside the titles, and is never read back.
  EXPECT_EQ(FighterColumn(stored, "NumTitles"), "2");
}

TEST_F(NFightersTest, TitleCountAndPerformanceAreStoredByTheirOwnRules) {
  NFighters fighters;
  // Only numbers reach "Performance"; anything else is stored as Null and
  // reads back as no value.
  struct Case {
    const char *titles, *count;
    Variant performance;
    const char* stored;
  };
  const Case cases[] = {{"", "0", Variant(2.5), "2.5"},
                        {"|5|", "1", Variant("1.25"), "1.25"},
                        {"|3|17|", "2", Variant(), ""},
                        {"|3||17|", "3", Variant("none"), ""},
                        {"7", "-1", Variant::Null(), ""}};
  for (const Case& c : cases) {
    auto f = Fighter("T", c.titles);
    f->SetTitleIDs(c.titles);
    f->SetPerformance(c.performance);
    fighters.AddRecord(f);
    const std::string id = std::to_string(f->ID());
    EXPECT_EQ(FighterColumn(f->ID(), "NumTitles"), c.count) << c.titles;
    EXPECT_EQ(FighterColumn(f->ID(), "Performance"), c.stored);
    EXPECT_EQ(SqlNumber("SELECT Performance IS NULL FROM Fighters WHERE FighterID = " + id),
              *c.stored ? 0 : 1);
    const Variant read = fighters.Item(f->ID())->Performance();
    EXPECT_EQ(read.IsEmpty(), !*c.stored);
    if (*c.stored) EXPECT_EQ(read.ToDouble(), std::stod(c.stored));
  }
}

TEST_F(NFightersTest, UnreadableRowsFailAndAnUnknownIDIsAnEmptyFighter) {
  NFighters fighters;
  auto f = Fighter("Null", "Rating");
  fighters.AddRecord(f);
  const auto item = [&] { fighters.Item(f->ID()); };
  const std::string id = std::to_string(f->ID());
  Sql("UPDATE Fighters SET Rating = NULL WHERE FighterID = " + id);
  EXPECT_EQ(Raised(item).Number(), errnum::kInvalidUseOfNull);
  // The row is read before it is deleted, so the delete never happens.
  EXPECT_THROW(fighters.RemoveRecord(f->ID()), Error);
  EXPECT_EQ(SqlNumber("SELECT COUNT(*) FROM Fighters WHERE FighterID = " + id), 1);

  Sql("UPDATE Fighters SET Rating = 5, GroupID = NULL WHERE FighterID = " + id);
  EXPECT_EQ(Raised(item).Number(), errnum::kInvalidUseOfNull);
  Sql("UPDATE Fighters SET GroupID = 'north' WHERE FighterID = " + id);
  EXPECT_EQ(Raised(item).Number(), errnum::kTypeMismatch);
  // A number stored as text is read as that number; Null texts, picture and
  // performance read as empty.
  Sql("UPDATE Fighters SET GroupID = ' 12', FirstName = NULL, NickName = NULL, "
      "PicturePath = NULL, Performance = NULL, TitleIDs = NULL WHERE FighterID = " +
      id);
  auto read = fighters.Item(f->ID());
  EXPECT_EQ(read->GroupID(), "12");
  EXPECT_EQ(read->Name(), "Rating");
  EXPECT_EQ(read->PicturePath(), "");
  EXPECT_TRUE(read->Performance().IsEmpty());
  EXPECT_EQ(read->TitleIDs(), "");

  auto none = fighters.Item(4242);
  ASSERT_NE(none, nullptr);
  EXPECT_EQ(none->ID(), 0);
  EXPECT_EQ(none->Name(), "");
  EXPECT_FALSE(none->Dirty());
  EXPECT_TRUE(Sink().Messages().empty());
}

TEST_F(NFightersTest, PicturesAreKeptOnlyWhenTheCheckAcceptsThem) {
  NFighters fighters;
  auto present = Fighter("With", "Picture");
  present->SetPicturePath(picture_);
  auto missing = Fighter("Lost", "Picture");
  missing->SetPicturePath(picture_ + ".gone");
  fighters.AddRecord(present);
  fighters.AddRecord(missing);
  // The path is stored as given, whatever the check would say.
  EXPECT_EQ(FighterColumn(missing->ID(), "PicturePath"), picture_ + ".gone");

  EXPECT_EQ(fighters.Item(present->ID())->PicturePath(), picture_);
  EXPECT_EQ(fighters.Item(missing->ID())->PicturePath(), "");
  // The fighter gets the path as the check leaves it.
  UtilityDouble().rewrite_prefix = "file://";
  EXPECT_EQ(fighters.Item(present->ID())->PicturePath(), "file://" + picture_);
}

TEST_F(NFightersTest, EachSectionWritesOnlyItsOwnColumns) {
  NFighters fighters;
  auto old_values = Filled(fighters, 11);
  const int32_t id = old_values->ID();
  auto update = Filled(fighters, 22);
  const auto [new_profile, new_career] = Sections(update->ID());
  const auto [old_profile, old_career] = Sections(id);
  ASSERT_NE(new_profile, old_profile);
  ASSERT_NE(new_career, old_career);
  update->SetID(id);

  auto list = std::make_shared<ListBoxDouble>();
  fighters.BindTo(list);

  // An unknown section writes nothing.
  EXPECT_EQ(fighters.UpdatePartialRecord(update, static_cast<ERecordSection>(7)), nullptr);
  EXPECT_EQ(Sections(id), std::pair(old_profile, old_career));
  EXPECT_EQ(fighters.UpdatePartialRecord(update, ersProfile), nullptr);
  EXPECT_EQ(Sections(id), std::pair(new_profile, old_career));
  fighters.UpdatePartialRecord(old_values, ersProfile);
  EXPECT_EQ(fighters.UpdatePartialRecord(update, ersCareer), nullptr);
  EXPECT_EQ(Sections(id), std::pair(old_profile, new_career));
  fighters.UpdatePartialRecord(old_values, ersAll);
  EXPECT_EQ(Sections(id), std::pair(old_profile, old_career));

  // None of it touched the bound list.
  EXPECT_EQ(list->ListCount(), 0);
  EXPECT_EQ(list->RefreshCount(), 0);
  EXPECT_EQ(UtilityDouble().prepared, 0);
  EXPECT_TRUE(Sink().Messages().empty());
}

TEST_F(NFightersTest, MissingRowsAreReportedAndNothingIsWritten) {
  NFighters fighters;
  auto kept = Fighter("Kept", "Fighter");
  fighters.AddRecord(kept);
  auto list = std::make_shared<ListBoxDouble>();
  fighters.FillList(list);
  const Texts before = list->Texts();

  auto ghost = Fighter("Ghost", "Fighter");
  ghost->SetID(kept->ID() + 100);
  EXPECT_EQ(fighters.UpdateRecord(ghost), nullptr);
  EXPECT_EQ(fighters.UpdatePartialRecord(ghost, ersAll), nullptr);
  EXPECT_EQ(Sink().Messages(),
            (Texts{"Stop in NFighters.UpdateRecord", "Stop in NFighters.UpdatePartialRecord"}));
  EXPECT_EQ(SqlNumber("SELECT COUNT(*) FROM Fighters"), 1);
  EXPECT_EQ(FighterColumn(kept->ID(), "FirstName"), "Kept");
  EXPECT_EQ(list->Texts(), before);
}

TEST_F(NFightersTest, WithoutABoundListUpdatesAndRemovesReachTheDatabaseAlone) {
  NFighters fighters;
  auto f = Fighter("Gone", "Soon");
  fighters.AddRecord(f);
  f->SetRating(77);
  EXPECT_EQ(fighters.UpdateRecord(f), f);
  EXPECT_EQ(FighterColumn(f->ID(), "Rating"), "77");
  Sql("INSERT INTO FightHistories (FighterID, Opponent) VALUES (" + std::to_string(f->ID()) +
      ", 'Someone')");
  EXPECT_FALSE(fighters.RemoveRecord(f->ID()));  // always false
  EXPECT_EQ(SqlNumber("SELECT COUNT(*) FROM Fighters"), 0);
  EXPECT_EQ(SqlNumber("SELECT COUNT(*) FROM FightHistories"), 1);  // the history stays
  EXPECT_EQ(UtilityDouble().prepared, 0);
}

// ---- The bound list follows adds, updates and removes ----

class NFightersListTest : public test::FighterFixture {
 protected:
  // Group 2, division 3: Adams, Baker and Clark (proficiency 10, 20, 60).
  void SetUp() override {
    FighterFixture::SetUp();
    NFighters seed;
    seed.AddRecord(Fighter("Al", "Adams", 2, 3, 40, 10));
    seed.AddRecord(Fighter("Bo", "Baker", 2, 3, 40, 20));
    seed.AddRecord(Fighter("Cy", "Clark", 2, 3, 40, 60));
    seed.AddRecord(Fighter("Di", "Other", 2, 4, 40, 10));
  }
};

TEST_F(NFightersListTest, AddsAndUpdatesGoToTheirPlaceInTheGroupQuery) {
  NFighters fighters;
  auto list = std::make_shared<ListBoxDouble>();
  fighters.FillList(list, 2, 3);
  EXPECT_EQ(list->Texts(), (Texts{"Al Adams", "Bo Baker", "Cy Clark"}));

  auto bell = Fighter("Ed", "Bell", 2, 3);
  bell->SetNickName("Ding");
  fighters.AddRecord(bell);
  EXPECT_EQ(list->Texts(), (Texts{"Al Adams", "Bo Baker", "Ed Ding Bell", "Cy Clark"}));
  EXPECT_EQ(list->ItemData(2), bell->ID());
  EXPECT_EQ(list->SelectedIndexes(), (std::vector<int32_t>{2}));
  EXPECT_EQ(UtilityDouble().prepared, 1);

  // Renamed to the end of the order; not selected this time.
  bell->SetLastName("Young");
  fighters.UpdateRecord(bell, false);
  EXPECT_EQ(list->Texts(), (Texts{"Al Adams", "Bo Baker", "Cy Clark", "Ed Ding Young"}));
  EXPECT_EQ(list->ItemData(3), bell->ID());
  EXPECT_EQ(UtilityDouble().prepared, 2);

  // Item set updates the fighter's own row and selects him.
  bell->SetLastName("Abel");
  fighters.SetItem(9999, bell);
  EXPECT_EQ(list->Texts(), (Texts{"Ed Ding Abel", "Al Adams", "Bo Baker", "Cy Clark"}));
  EXPECT_TRUE(list->Selected(0));
  EXPECT_EQ(FighterColumn(bell->ID(), "LastName"), "Abel");

  // A remove selects the item that takes the removed one's place.
  list->SetSelected(0, false);
  EXPECT_FALSE(fighters.RemoveRecord(bell->ID(), true));
  EXPECT_EQ(list->Texts(), (Texts{"Al Adams", "Bo Baker", "Cy Clark"}));
  EXPECT_EQ(list->SelectedIndexes(), (std::vector<int32_t>{0}));
}

TEST_F(NFightersListTest, AFighterOutsideTheProficiencyBoundsGoesOnePlaceBeforeTheEnd) {
  NFighters fighters;
  auto list = std::make_shared<ListBoxDouble>();
  // Filter 1 of the default lookup: proficiency 0 to 24.
  fighters.FillList(list, 2, 3, false, 1);
  EXPECT_EQ(list->Texts(), (Texts{"Al Adams", "Bo Baker"}));

  // The group query does not return him: he is counted to its end (2 rows)
  // and inserted at index 1, whatever his name.
  auto abbot = Fighter("Ab", "Abbot", 2, 3, 40, 90);
  fighters.AddRecord(abbot);
  EXPECT_EQ(list->Texts(), (Texts{"Al Adams", "Ab Abbot", "Bo Baker"}));

  // Within the bounds he finds his place by name.
  fighters.FillList(list, 2, 3, false, 1);
  auto aaron = Fighter("Aa", "Aaron", 2, 3, 40, 5);
  fighters.AddRecord(aaron);
  EXPECT_EQ(list->Texts(), (Texts{"Aa Aaron", "Al Adams", "Bo Baker"}));
}

TEST_F(NFightersListTest, TheCommonInterfaceReachesTheFighterRules) {
  NFighters fighters;
  IRecords& records = fighters.Records();
  auto list = std::make_shared<ListBoxDouble>(false);  // any control binds
  records.FillList(list, 2);
  EXPECT_EQ(list->ListCount(), 0);  // group 2, division 0: nobody
  auto f = Fighter("Via", "Interface", 2, 0);
  records.AddRecord(Variant(f));
  EXPECT_GT(f->ID(), 0);
  EXPECT_EQ(list->Texts(), (Texts{"Via Interface"}));
  EXPECT_THROW(records.AddRecord(Variant(std::make_shared<ListBoxDouble>())), Error);
}

}  // namespace
}  // namespace ringbook
