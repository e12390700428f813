#include "store/NTitles.h"

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

class NTitlesTest : public test::GameDatabaseFixture {
 protected:
  void SeedTitles() {
    Sql("INSERT INTO Titles (TitleId, Name) VALUES (1, 'WBC'), (2, 'IBF'), (3, 'WBA')");
  }
};

TEST_F(NTitlesTest, FillArrayLeavesTheArrayAloneOnAnEmptyTable) {
  NTitles titles;
  VariantArray2D fresh;
  titles.FillArray(fresh);
  EXPECT_FALSE(fresh.IsDimensioned());

  VariantArray2D used;
  used.ReDim(0, 4, 0, 0);
  used(4, 0) = Variant("kept");
  titles.FillArray(used);
  EXPECT_EQ(used.UBound(1), 4);
  EXPECT_EQ(used(4, 0), Variant("kept"));
}

TEST_F(NTitlesTest, FillArrayHoldsNamesAndKeysInTheQueryOrder) {
  SeedTitles();
  NTitles titles;
  VariantArray2D titles_array;
  titles_array.ReDim(0, 0, 0, 0);
  titles.FillArray(titles_array);
  EXPECT_EQ(titles_array.LBound(1), 1);
  EXPECT_EQ(titles_array.UBound(1), 3);
  EXPECT_EQ(titles_array.LBound(2), 0);
  EXPECT_EQ(titles_array.UBound(2), 1);
  EXPECT_EQ(titles_array(1, 0), Variant("IBF"));
  EXPECT_EQ(titles_array(1, 1), Variant(int32_t{2}));  // the column's value, a Long
  EXPECT_EQ(titles_array(2, 0), Variant("WBA"));
  EXPECT_EQ(titles_array(3, 0), Variant("WBC"));
  EXPECT_EQ(titles_array(3, 1), Variant(int32_t{1}));
}

TEST_F(NTitlesTest, ListsFindingAndMissingRow) {
  SeedTitles();
  NTitles titles;
  EXPECT_EQ(titles.GetTitleList(), "IBF\r\nWBA\r\nWBC\r\n");
  // Found through "TitleID = " although the column is "TitleId".
  EXPECT_EQ(titles.Item(3)->Name(), "WBA");

  auto list = std::make_shared<ListBoxDouble>();
  titles.Records().FillList(Variant(list), 9);  // no filter: every title
  EXPECT_EQ(list->Texts(), (Texts{"IBF", "WBA", "WBC"}));

  auto ghost = std::make_shared<CTitle>();
  ghost->SetID(8);
  EXPECT_EQ(titles.UpdateRecord(ghost), nullptr);
  EXPECT_EQ(Sink().Messages(), (Texts{"Stop in NTitles.UpdateRecord"}));
}

}  // namespace
}  // namespace ringbook
