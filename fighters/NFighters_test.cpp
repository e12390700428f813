#include "fighters/NFighters.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/HostServices.h"
#include "support/FighterFixture.h"
#include "support/ListBoxDouble.h"

namespace ringbook {
namespace {

using test::ListBoxDouble;
using Texts = std::vector<std::string>;

// The fields of each type, as getter and setter pairs.
template <class T>
using Field = std::pair<T (CFighter::*)() const, void (CFighter::*)(T)>;
#define RB_FIELD(name) \
  { &CFighter::name, &CFighter::Set##name }

const std::vector<Field<int16_t>> kInt16Fields = {
    RB_FIELD(Division),  RB_FIELD(Rating),    RB_FIELD(Style),      RB_FIELD(ActiveRetired),
    RB_FIELD(Sex),       RB_FIELD(SouthPaw),  RB_FIELD(SkinColor),  RB_FIELD(Cfb),
    RB_FIELD(Cfs),       RB_FIELD(Hp),        RB_FIELD(Kdr1),       RB_FIELD(Kdr2),
    RB_FIELD(Kor),       RB_FIELD(Agg),       RB_FIELD(Ki),         RB_FIELD(Tko),
    RB_FIELD(E10),       RB_FIELD(Defn),      RB_FIELD(Cuts),       RB_FIELD(Fouls),
    RB_FIELD(Icor),      RB_FIELD(FastSlow),  RB_FIELD(Fi),         RB_FIELD(Fo),
    RB_FIELD(Cu),        RB_FIELD(Ko),        RB_FIELD(Pl),         RB_FIELD(Cp),
    RB_FIELD(Pm),        RB_FIELD(Cl),        RB_FIELD(Rm),         RB_FIELD(Conditioning),
    RB_FIELD(Intellect), RB_FIELD(DrawPower), RB_FIELD(Proficiency)};
const std::vector<Field<float>> kSingleFields = {
    RB_FIELD(J3),  RB_FIELD(J2),  RB_FIELD(H3),  RB_FIELD(H2), RB_FIELD(Cr3),
    RB_FIELD(Cr2), RB_FIELD(Cb3), RB_FIELD(Cb2), RB_FIELD(U3), RB_FIELD(U2)};
const std::vector<Field<int32_t>> kProfileInt32Fields = {RB_FIELD(CutManID), RB_FIELD(TrainerID)};
const std::vector<Field<int32_t>> kCareerInt32Fields = {
    RB_FIELD(Rank),      RB_FIELD(Won),       RB_FIELD(Lost),        RB_FIELD(Draw),
    RB_FIELD(Kos),       RB_FIELD(Tkos),      RB_FIELD(KdsFor),      RB_FIELD(TotalPl),
    RB_FIELD(TotalPm),   RB_FIELD(TotalCuts), RB_FIELD(TotalRounds), RB_FIELD(OpKdsFor),
    RB_FIELD(OpTotalPl), RB_FIELD(OpTotalPm), RB_FIELD(OpTotalCuts)};
#undef RB_FIELD

// The columns of each section, in writing order.
const Texts kProfileColumns = {"GroupID",     "FirstName",    "LastName",  "NickName",
                               "Division",    "Rating",       "Style",     "ActiveRetired",
                               "Sex",         "SouthPaw",     "SkinColor", "Cfb",
                               "Cfs",         "Hp",           "Kdr1",      "Kdr2",
                               "Kor",         "Agg",          "Ki",        "Tko",
                               "E10",         "Defn",         "Cuts",      "Fouls",
                               "Icor",        "FastSlow",     "Fi",        "Fo",
                               "Cu",          "Ko",           "Pl",        "Cp",
                               "Pm",          "Cl",           "Rm",        "J3",
                               "J2",          "H3",           "H2",        "Cr3",
                               "Cr2",         "Cb3",          "Cb2",       "U3",
                               "U2",          "Conditioning", "Intellect", "DrawPower",
                               "Proficiency", "CutManID",     "TrainerID", "PicturePath"};
const Texts kCareerColumns = {"Rank",        "Won",         "Lost",           "Draw",
                              "Kos",         "Tkos",        "HasPerformance", "Performance",
                              "DisplayPerf", "KdsFor",      "TotalPl",        "TotalPm",
                              "TotalCuts",   "TotalRounds", "OpKdsFor",       "OpTotalPl",
                              "OpTotalPm",   "OpTotalCuts", "TitleIDs",       "NumTitles"};

class NFightersTest : public test::FighterFixture {
 protected:
  // A fighter whose every field differs from those of another `base`.
  std::shared_ptr<CFighter> Filled(int base) {
    auto f = std::make_shared<CFighter>();
    const std::string b = std::to_string(base);
    f->SetGroupID(b);
    f->SetFirstName("First" + b);
    f->SetLastName("Last" + b);
    f->SetNickName("Nick" + b);
    int i = 0;
    for (const auto& [get, set] : kInt16Fields) ((*f).*set)(static_cast<int16_t>(base + ++i));
    for (const auto& [get, set] : kSingleFields)
      ((*f).*set)(static_cast<float>(base + ++i) + 0.25f);
    for (const auto& [get, set] : kProfileInt32Fields) ((*f).*set)(base * 1000 + ++i);
    for (const auto& [get, set] : kCareerInt32Fields) ((*f).*set)(base * 1000 + ++i);
    f->SetPicturePath(picture_);
    f->SetHasPerformance(base % 2 == 1);
    f->SetPerformance(base + 0.5);
    f->SetDisplayPerf(static_cast<float>(base) + 0.75f);
    f->SetTitleIDs(base % 2 == 1 ? "|3|17|" : "|5|");
    return f;
  }

  void ExpectSameFields(const CFighter& read, const CFighter& written) {
    EXPECT_EQ(read.GroupID(), written.GroupID());
    EXPECT_EQ(read.FirstName(), written.FirstName());
    EXPECT_EQ(read.LastName(), written.LastName());
    EXPECT_EQ(read.NickName(), written.NickName());
    EXPECT_EQ(read.Name(), written.Name());
    for (const auto& [get, set] : kInt16Fields) EXPECT_EQ((read.*get)(), (written.*get)());
    for (const auto& [get, set] : kSingleFields) EXPECT_EQ((read.*get)(), (written.*get)());
    for (const auto& [get, set] : kProfileInt32Fields) EXPECT_EQ((read.*get)(), (written.*get)());
    for (const auto& [get, set] : kCareerInt32Fields) EXPECT_EQ((read.*get)(), (written.*get)());
    EXPECT_EQ(read.PicturePath(), written.PicturePath());
    EXPECT_EQ(read.HasPerformance(), written.HasPerformance());
    EXPECT_EQ(read.Performance().ToDouble(), written.Performance().ToDouble());
    EXPECT_EQ(read.DisplayPerf(), written.DisplayPerf());
    EXPECT_EQ(read.TitleIDs(), written.TitleIDs());
  }

  // The stored texts of `columns` in fighter `id`'s row.
  Texts RowTexts(int32_t id, const Texts& columns) {
    Texts texts;
    for (const std::string& c : columns) texts.push_back(FighterColumn(id, c));
    return texts;
  }

  void SetUp() override {
    FighterFixture::SetUp();
    picture_ = (std::filesystem::path(Path()).parent_path() / "face.png").string();
    std::ofstream(picture_) << "png";
  }

  std::string picture_;
};

TEST_F(NFightersTest, EveryFieldSurvivesAddAndItem) {
  NFighters fighters;
  auto written = Filled(11);
  EXPECT_EQ(fighters.AddRecord(written), written);  // the very object, now with its key
  ASSERT_GT(written->ID(), 0);

  NFighters again;
  auto read = again.Item(written->ID());
  EXPECT_EQ(read->ID(), written->ID());
  ExpectSameFields(*read, *written);
  EXPECT_EQ(read->History(), nullptr);
  // The title count is stored beside the titles, and is never read back.
  EXPECT_EQ(FighterColumn(written->ID(), "NumTitles"), "2");
}

TEST_F(NFightersTest, TitleCountAndPerformanceAreStoredByTheirOwnRules) {
  NFighters fighters;
  const std::vector<std::pair<std::string, std::string>> titles = {
      {"", "0"}, {"|5|", "1"}, {"|3|17|", "2"}, {"|3||17|", "3"}, {"7", "-1"}};
  for (const auto& [title_ids, count] : titles) {
    auto f = Fighter("T", title_ids);
    f->SetTitleIDs(title_ids);
    fighters.AddRecord(f);
    EXPECT_EQ(FighterColumn(f->ID(), "NumTitles"), count) << title_ids;
  }

  // Only numbers reach "Performance"; anything else is stored as Null and
  // reads back as no value.
  const std::vector<std::pair<Variant, std::string>> performances = {{Variant(2.5), "2.5"},
                                                                     {Variant("1.25"), "1.25"},
                                                                     {Variant(), ""},
                                                                     {Variant("none"), ""},
                                                                     {Variant::Null(), ""}};
  for (const auto& [performance, stored] : performances) {
    auto f = Fighter("P", "P");
    f->SetPerformance(performance);
    fighters.AddRecord(f);
    EXPECT_EQ(FighterColumn(f->ID(), "Performance"), stored);
    EXPECT_EQ(SqlNumber("SELECT Performance IS NULL FROM Fighters WHERE FighterID = " +
                        std::to_string(f->ID())),
              stored.empty() ? 1 : 0);
    const Variant read = fighters.Item(f->ID())->Performance();
    if (stored.empty()) {
      EXPECT_TRUE(read.IsEmpty());
    } else {
      EXPECT_EQ(read.ToDouble(), std::stod(stored));
    }
  }
}

TEST_F(NFightersTest, ItemOfAnUnknownIDIsAnEmptyFighter) {
  NFighters fighters;
  fighters.AddRecord(Fighter("Known", "Fighter"));
  auto none = fighters.Item(4242);
  ASSERT_NE(none, nullptr);
  EXPECT_EQ(none->ID(), 0);
  EXPECT_EQ(none->Name(), "");
  EXPECT_EQ(none->GroupID(), "0");
  EXPECT_EQ(none->Rating(), 0);
  EXPECT_FALSE(none->Dirty());
  EXPECT_TRUE(Sink().Messages().empty());
}

TEST_F(NFightersTest, NullNumbersFailWithInvalidUseOfNullAndChangeNothing) {
  NFighters fighters;
  auto f = Fighter("Null", "Rating");
  fighters.AddRecord(f);
  const std::string id = std::to_string(f->ID());
  Sql("UPDATE Fighters SET Rating = NULL WHERE FighterID = " + id);

  try {
    fighters.Item(f->ID());
    ADD_FAILURE() << "a Null rating was read";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kInvalidUseOfNull);
  }
  // The row is read before it is deleted, so the delete never happens.
  EXPECT_THROW(fighters.RemoveRecord(f->ID()), Error);
  EXPECT_EQ(SqlNumber("SELECT COUNT(*) FROM Fighters WHERE FighterID = " + id), 1);

  // A Null group fails the same way; Null texts, picture and performance
  // read as empty.
  Sql("UPDATE Fighters SET Rating = 5, GroupID = NULL WHERE FighterID = " + id);
  try {
    fighters.Item(f->ID());
    ADD_FAILURE() << "a Null group was read";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kInvalidUseOfNull);
  }
  Sql("UPDATE Fighters SET GroupID = 4, FirstName = NULL, NickName = NULL, PicturePath = NULL, "
      "Performance = NULL, TitleIDs = NULL WHERE FighterID = " +
      id);
  auto read = fighters.Item(f->ID());
  EXPECT_EQ(read->GroupID(), "4");
  EXPECT_EQ(read->Name(), "Rating");
  EXPECT_EQ(read->PicturePath(), "");
  EXPECT_TRUE(read->Performance().IsEmpty());
  EXPECT_EQ(read->TitleIDs(), "");
}

TEST_F(NFightersTest, AGroupThatIsNotANumberIsATypeMismatch) {
  NFighters fighters;
  auto f = Fighter("Text", "Group");
  fighters.AddRecord(f);
  Sql("UPDATE Fighters SET GroupID = 'north' WHERE FighterID = " + std::to_string(f->ID()));
  try {
    fighters.Item(f->ID());
    ADD_FAILURE() << "a group named by text was read";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kTypeMismatch);
  }
  // A number stored as text is read as that number.
  Sql("UPDATE Fighters SET GroupID = ' 12' WHERE FighterID = " + std::to_string(f->ID()));
  EXPECT_EQ(fighters.Item(f->ID())->GroupID(), "12");
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
  auto target = Filled(11);
  fighters.AddRecord(target);
  const int32_t id = target->ID();
  // A second row holding the other values, as they are stored.
  auto other = Filled(22);
  fighters.AddRecord(other);
  const Texts new_profile = RowTexts(other->ID(), kProfileColumns);
  const Texts new_career = RowTexts(other->ID(), kCareerColumns);
  const Texts old_profile = RowTexts(id, kProfileColumns);
  const Texts old_career = RowTexts(id, kCareerColumns);
  ASSERT_NE(new_profile, old_profile);
  ASSERT_NE(new_career, old_career);

  auto list = std::make_shared<ListBoxDouble>();
  fighters.BindTo(list);
  auto update = Filled(22);
  update->SetID(id);

  // An unknown section writes nothing.
  EXPECT_EQ(fighters.UpdatePartialRecord(update, static_cast<ERecordSection>(7)), nullptr);
  EXPECT_EQ(RowTexts(id, kProfileColumns), old_profile);
  EXPECT_EQ(RowTexts(id, kCareerColumns), old_career);

  EXPECT_EQ(fighters.UpdatePartialRecord(update, ersProfile), nullptr);
  EXPECT_EQ(RowTexts(id, kProfileColumns), new_profile);
  EXPECT_EQ(RowTexts(id, kCareerColumns), old_career);

  // Back to the old profile, then the career alone.
  fighters.UpdatePartialRecord(Filled(11), ersAll);  // ID 0: no such row
  EXPECT_EQ(Sink().Messages(), (Texts{"Stop in NFighters.UpdatePartialRecord"}));
  auto old_values = Filled(11);
  old_values->SetID(id);
  fighters.UpdatePartialRecord(old_values, ersProfile);
  EXPECT_EQ(fighters.UpdatePartialRecord(update, ersCareer), nullptr);
  EXPECT_EQ(RowTexts(id, kProfileColumns), old_profile);
  EXPECT_EQ(RowTexts(id, kCareerColumns), new_career);

  fighters.UpdatePartialRecord(old_values, ersAll);
  EXPECT_EQ(RowTexts(id, kProfileColumns), old_profile);
  EXPECT_EQ(RowTexts(id, kCareerColumns), old_career);

  // None of it touched the bound list.
  EXPECT_EQ(list->ListCount(), 0);
  EXPECT_EQ(list->RefreshCount(), 0);
  EXPECT_EQ(UtilityDouble().prepared, 0);
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

TEST_F(NFightersTest, RemoveRecordIsAlwaysFalseAndLeavesTheHistory) {
  NFighters fighters;
  auto f = Fighter("Gone", "Soon");
  fighters.AddRecord(f);
  Sql("INSERT INTO FightHistories (FighterID, Opponent) VALUES (" + std::to_string(f->ID()) +
      ", 'Someone')");
  EXPECT_FALSE(fighters.RemoveRecord(f->ID()));
  EXPECT_EQ(SqlNumber("SELECT COUNT(*) FROM Fighters"), 0);
  EXPECT_EQ(SqlNumber("SELECT COUNT(*) FROM FightHistories"), 1);
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

TEST_F(NFightersListTest, NoBoundListMeansTheDatabaseAlone) {
  NFighters fighters;
  auto f = Fighter("Lone", "Wolf", 2, 3);
  fighters.AddRecord(f);
  f->SetRating(77);
  EXPECT_EQ(fighters.UpdateRecord(f), f);
  EXPECT_EQ(FighterColumn(f->ID(), "Rating"), "77");
  EXPECT_FALSE(fighters.RemoveRecord(f->ID()));
  EXPECT_EQ(UtilityDouble().prepared, 0);
  EXPECT_EQ(SqlNumber("SELECT COUNT(*) FROM Fighters WHERE LastName = 'Wolf'"), 0);
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
  EXPECT_EQ(records.Item(4242).As<CFighter>()->ID(), 0);
  EXPECT_THROW(records.AddRecord(Variant(std::make_shared<ListBoxDouble>())), Error);
}

}  // namespace
}  // namespace ringbook
