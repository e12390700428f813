#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fighters/NFighters.h"
#include "support/FighterFixture.h"
#include "support/ListBoxDouble.h"
#include "support/Raised.h"

namespace ringbook {
namespace {

using test::ListBoxDouble;
using test::Raised;
using Texts = std::vector<std::string>;

// Group 5, division 2: Able (3.5 points), Best (2.25 points, titles 3 and
// 17), Cole (no points, no titles) and Dunn (no points, title 3).
class NFightersRankingTest : public test::FighterFixture {
 protected:
  void SetUp() override {
    FighterFixture::SetUp();
    Sql("INSERT INTO Titles (TitleId, Name) VALUES (3, 'World'), (17, 'Continental')");
    NFighters fighters;
    able_ = Add(fighters, "Ann", "Able", 7, 30, 1, 0, 3.5, "");
    best_ = Add(fighters, "Ben", "Best", 12, 10, 0, 1, 2.25, "|3|17|");
    cole_ = Add(fighters, "Cal", "Cole", 9, 45, 2, 0, Variant(), "");
    dunn_ = Add(fighters, "Dan", "Dunn", -1, 80, 3, 1, Variant(), "|3|");
    Add(fighters, "Eve", "Else", 5, 30, 0, 0, 9.0, "");  // another division
  }

  int32_t Add(NFighters& fighters, const std::string& first, const std::string& last,
              int16_t rating, int16_t proficiency, int16_t style, int16_t retired,
              const Variant& performance, const std::string& titles) {
    auto f = Fighter(first, last, 5, last == "Else" ? 3 : 2, rating, proficiency);
    f->SetStyle(style);
    f->SetActiveRetired(retired);
    f->SetPerformance(performance);
    f->SetTitleIDs(titles);
    fighters.AddRecord(f);
    return f->ID();
  }

  int32_t able_ = 0, best_ = 0, cole_ = 0, dunn_ = 0;
};

TEST_F(NFightersRankingTest, RankingListsByPointsOrTitlesLeaveFightersWithoutPointsUnranked) {
  NFighters fighters;
  EXPECT_EQ(fighters.GetRankingList(5, 2, SortByPerfPoints),
            "\t1\t3.50\tAnn Able\t7\tSlugger\t\r\n"
            "\t2\t2.25\tBen Best\t12\tBoxer\tWorld, Continental\r\n"
            "\tUR\t\tCal Cole\t9\tBoxer-puncher\t\r\n"
            "\tUR\t\tDan Dunn\t-1\tSwarmer\tWorld\r\n");
  // By titles, title holders come first and are ranked without points.
  EXPECT_EQ(fighters.GetRankingList(5, 2),
            "\t1\t2.25\tBen Best\t12\tBoxer\tWorld, Continental\r\n"
            "\t2\t\tDan Dunn\t-1\tSwarmer\tWorld\r\n"
            "\t3\t3.50\tAnn Able\t7\tSlugger\t\r\n"
            "\tUR\t\tCal Cole\t9\tBoxer-puncher\t\r\n");
  EXPECT_EQ(fighters.GetRankingList(5, 9), "");
}

TEST_F(NFightersRankingTest, RankingsRecordsetByQueryAndNoneForAnUnknownSort) {
  NFighters fighters;
  auto rows = fighters.RankingsRS(5, 2, SortByTitlePerfPoints);
  ASSERT_NE(rows, nullptr);
  std::vector<int32_t> order;
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    order.push_back(rows->Field("FighterID").ToLong());
  }
  EXPECT_EQ(order, (std::vector<int32_t>{best_, dunn_, able_, cole_}));
  EXPECT_EQ(rows->FieldNames(), (Texts{"Performance", "Name", "Rating", "Style", "ActiveRetired",
                                       "FighterID", "NumTitles", "TitleIDs"}));

  EXPECT_EQ(fighters.RankingsRS(5, 2, static_cast<ESortRankings>(2)), nullptr);
  EXPECT_EQ(Raised([&] { fighters.GetRankingList(5, 2, static_cast<ESortRankings>(2)); }).Number(),
            errnum::kObjectNotSet);
}

TEST_F(NFightersRankingTest, ARankedFighterAfterAnUnrankedOneIsATypeMismatch) {
  Sql("UPDATE StoredQueries SET SQL = replace(SQL, 'ORDER BY Performance IS NULL', "
      "'ORDER BY Performance IS NOT NULL') WHERE Name = 'qryRankedFighters'");
  NFighters fighters;
  EXPECT_EQ(Raised([&] { fighters.GetRankingList(5, 2, SortByPerfPoints); }).Number(),
            errnum::kTypeMismatch);  // the rank cannot count on from "UR"
}

TEST_F(NFightersRankingTest, ListLinesForRatingsRankingsAndNames) {
  NFighters fighters;
  EXPECT_NO_THROW(fighters.FillList());  // nothing bound: nothing done
  EXPECT_NO_THROW(fighters.FillList(Variant(std::shared_ptr<Object>()), 5, 2, true));
  EXPECT_EQ(UtilityDouble().prepared, 0);

  auto list = std::make_shared<ListBoxDouble>();
  fighters.FillList(list, 5, 2, true);
  EXPECT_EQ(list->Texts(),
            (Texts{"Ann Able\t  7", "Ben Best\t12", "Cal Cole\t  9", "Dan Dunn\t-1"}));
  EXPECT_EQ(list->Data(), (std::vector<int32_t>{able_, best_, cole_, dunn_}));
  EXPECT_EQ(list->RefreshCount(), 1);
  fighters.FillList(Variant(), 5, 2);
  EXPECT_EQ(list->Texts(), (Texts{"Ann Able", "Ben Best", "Cal Cole", "Dan Dunn"}));
  // The rankings view wins over the ratings.
  fighters.FillList(Variant(), 5, 2, true, 0, true);
  EXPECT_EQ(
      list->Texts(),
      (Texts{"\t3.50\tAnn Able\t7\tSlugger\tActive", "\t2.25\tBen Best\t12\tBoxer\tRetired",
             "\t\tCal Cole\t9\tBoxer-puncher\tActive", "\t\tDan Dunn\t-1\tSwarmer\tRetired"}));
  EXPECT_EQ(list->ClearCount(), 3);
  // The proficiency filter chooses a band of the lookup.
  fighters.FillList(list, 5, 2, false, 2);  // proficiency 25 to 49
  EXPECT_EQ(list->Texts(), (Texts{"Ann Able", "Cal Cole"}));
  fighters.FillList(list, 5, 2, false, 4);  // 75 and above
  EXPECT_EQ(list->Texts(), (Texts{"Dan Dunn"}));

  // Other controls get their keys in ItemTag.
  auto grid = std::make_shared<ListBoxDouble>(false);
  fighters.FillList(grid, 5, 2, false, 0, true);
  ASSERT_EQ(grid->ListCount(), 4);
  EXPECT_EQ(grid->ItemTag(0).ToLong(), able_);
  EXPECT_EQ(grid->ItemTag(3).ToLong(), dunn_);
  EXPECT_EQ(grid->Data(), (std::vector<int32_t>{0, 0, 0, 0}));
}

}  // namespace
}  // namespace ringbook
