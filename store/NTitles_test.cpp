#include "store/NTitles.h"

#include <gtest/gtest.h>

#include "support/GameDatabaseFixture.h"

namespace ringbook {
namespace {

class NTitlesTest : public test::GameDatabaseFixture {};

TEST_F(NTitlesTest, FillArrayHoldsNamesAndKeysInTheQueryOrder) {
  NTitles empty;
  VariantArray2D used;  // an empty table leaves the array alone
  used.ReDim(0, 4, 0, 0);
  used(4, 0) = Variant("kept");
  empty.FillArray(used);
  EXPECT_EQ(used.UBound(1), 4);
  EXPECT_EQ(used(4, 0), Variant("kept"));

  Sql("INSERT INTO Titles (TitleId, Name) VALUES (1, 'WBC'), (2, 'IBF'), (3, 'WBA')");
  NTitles titles;
  // Found through "TitleID = " although the column is "TitleId".
  EXPECT_EQ(titles.Item(3)->Name(), "WBA");
  VariantArray2D array;
  array.ReDim(0, 0, 0, 0);
  titles.FillArray(array);
  EXPECT_EQ(array.LBound(1), 1);
  EXPECT_EQ(array.UBound(1), 3);
  EXPECT_EQ(array.LBound(2), 0);
  EXPECT_EQ(array.UBound(2), 1);
  EXPECT_EQ(array(1, 0), Variant("IBF"));
  EXPECT_EQ(array(1, 1), Variant(int32_t{2}));  // the column's value, a Long
  EXPECT_EQ(array(2, 0), Variant("WBA"));
  EXPECT_EQ(array(3, 0), Variant("WBC"));
  EXPECT_EQ(array(3, 1), Variant(int32_t{1}));
}

}  // namespace
}  // namespace ringbook
