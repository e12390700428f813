#include "store/VariantArray2D.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "support/Raised.h"

namespace ringbook {
namespace {

int NumberOf(const std::function<void()>& f) {
  return test::Raised(f).Number();
}

TEST(VariantArray2DTest, BoundsAndSubscriptsAreChecked) {
  VariantArray2D a;
  EXPECT_EQ(NumberOf([&] { a.LBound(); }), errnum::kSubscriptOutOfRange);
  EXPECT_EQ(NumberOf([&] { a(0, 0); }), errnum::kSubscriptOutOfRange);

  a.ReDim(-1, 1, 5, 6);
  a(-1, 5) = Variant(1);
  a(1, 6) = Variant("last");
  EXPECT_EQ(a(-1, 5), Variant(1));
  EXPECT_EQ(a(1, 6), Variant("last"));
  EXPECT_TRUE(a(0, 5).IsEmpty());
  for (auto [row, column] : {std::pair{-2, 5}, {2, 5}, {0, 4}, {0, 7}}) {
    EXPECT_EQ(NumberOf([&] { a(row, column); }), errnum::kSubscriptOutOfRange);
  }
  EXPECT_EQ(NumberOf([&] { a.UBound(3); }), errnum::kSubscriptOutOfRange);

  // A new dimensioning discards the contents.
  a.ReDim(1, 2, 0, 1);
  EXPECT_TRUE(a(1, 0).IsEmpty());
  EXPECT_EQ(NumberOf([&] { a.ReDim(1, 0, 0, 1); }), errnum::kSubscriptOutOfRange);
  EXPECT_EQ(a.UBound(1), 2);
}

}  // namespace
}  // namespace ringbook
