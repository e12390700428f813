#include "schedule/CSortHelper.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/HostServices.h"
#include "schedule/CKeyedCollection.h"
#include "schedule/ISortedObject.h"
#include "support/MessageSinkDouble.h"
#include "support/Raised.h"
#include "support/SortedItem.h"

namespace ringbook {
namespace {

using test::Raised;
constexpr ECompareResults kLess = ecrComparisonLessThan;
constexpr ECompareResults kEqual = ecrComparisonEqual;
constexpr ECompareResults kGreater = ecrComparisonGreaterThan;

// A sorted object whose key cannot be read: an error of another component.
class BrokenKey : public ISortedObject {
 public:
  Variant SortKey() const override { throw Error(errnum::kCustomBase + 77, "Host.Item", "gone"); }
};

Variant Item(Variant key) {
  return test::Sorted(std::move(key));
}

class CSortHelperTest : public ::testing::Test {
 protected:
  void SetUp() override { SetMessageSink(sink_); }
  void TearDown() override { SetMessageSink(nullptr); }

  std::shared_ptr<test::MessageSinkDouble> sink_ = std::make_shared<test::MessageSinkDouble>();
  CSortHelper helper_;
};

TEST_F(CSortHelperTest, SettersStoreOnlyKnownValues) {
  const int modes[][2] = {{-1, esmUnsorted}, {3, esmLengthCompare}, {7, 0}, {2, 2}, {-2, 0}};
  for (const auto& [set, stored] : modes) {
    helper_.SetSortMode(static_cast<ESortMode>(set));
    EXPECT_EQ(helper_.SortMode(), stored) << set;
  }
  for (const auto& [set, stored] : {std::pair{-1, -1}, {1, 0}, {-1, -1}, {-5, 0}}) {
    helper_.SetSortOrder(static_cast<ESortOrder>(set));
    EXPECT_EQ(helper_.SortOrder(), stored) << set;
  }
}

TEST_F(CSortHelperTest, CompareByModeAndOrder) {
  struct Case {
    ESortMode mode;
    ESortOrder order;
    Variant a, b;
    ECompareResults want;
  };
  const auto up = esoSortAscending;
  const auto down = esoSortDescending;
  const Case cases[] = {
      // Text compare ignores case, also beyond ASCII; binary compare does not.
      {esmTextCompare, up, "apple", "Banana", kLess},
      {esmTextCompare, up, "\xC3\xA9mile", "\xC3\x89MILE", kEqual},
      {esmCaseSensitve, up, "apple", "Banana", kGreater},
      {esmCaseSensitve, up, "A", "a", kLess},
      // Value compare: numbers and dates by value, a number before text.
      {esmValueCompare, up, 9, 10.5, kLess},
      {esmValueCompare, up, int16_t{3}, 3.0, kEqual},
      {esmValueCompare, up, Variant::FromDate(45000.75), Variant::FromDate(45000.25), kGreater},
      {esmValueCompare, up, 99, "1", kLess},
      {esmValueCompare, up, "1", 99, kGreater},
      // Null is neither less nor equal, whichever side it is on.
      {esmValueCompare, up, Variant::Null(), 1, kGreater},
      {esmValueCompare, up, 1, Variant::Null(), kGreater},
      // Length compare: fewer characters (not bytes) first, then by value.
      {esmLengthCompare, up, "9", "10", kLess},
      {esmLengthCompare, up, "aaa", "zz", kGreater},
      {esmLengthCompare, up, "b", "B", kGreater},
      {esmLengthCompare, up, "\xC3\xA9", "ab", kLess},
      // Descending negates; unsorted makes everything equal.
      {esmTextCompare, down, "a", "B", kGreater},
      {esmUnsorted, up, "zzz", "a", kEqual},
  };
  for (const Case& c : cases) {
    CSortHelper helper;
    helper.SetSortMode(c.mode);
    helper.SetSortOrder(c.order);
    EXPECT_EQ(helper.Compare(Item(c.a), Item(c.b)), c.want)
        << c.a.ToText() << " vs " << c.b.ToText() << " mode " << c.mode << " order " << c.order;
    EXPECT_EQ(helper.SortMode(), c.mode);
  }
}

TEST_F(CSortHelperTest, NonStringFirstKeySwitchesToValueCompareForGood) {
  // A number as the second key does not switch: "10" and 9 compare as text.
  EXPECT_EQ(helper_.Compare(Item("10"), Item(9)), kLess);
  EXPECT_EQ(helper_.SortMode(), esmTextCompare);
  EXPECT_EQ(helper_.Compare(Item(10), Item(9)), kGreater);
  EXPECT_EQ(helper_.SortMode(), esmValueCompare);
  // Later string keys are now compared by character code.
  EXPECT_EQ(helper_.Compare(Item("abc"), Item("ABC")), kGreater);
  EXPECT_EQ(helper_.SortMode(), esmValueCompare);
}

TEST_F(CSortHelperTest, ErrorsCarryTheirSourceAndOnlyUnexpectedOnesAreShown) {
  EXPECT_EQ(CSortHelper::SourceName(), "Korvat_Ringbook.SortHelper");
  Error e = Raised([&] { helper_.Compare(Variant("not an object"), Item("a")); });
  EXPECT_EQ(e.Number(), errnum::kTypeMismatch);
  EXPECT_EQ(e.Source(), "Korvat_Ringbook.Runtime");
  EXPECT_EQ(e.Description(), "Type mismatch");
  e = Raised([&] { helper_.Compare(Item("a"), Variant(std::shared_ptr<Object>())); });
  EXPECT_EQ(e.Number(), errnum::kObjectNotSet);
  EXPECT_EQ(e.Source(), "Korvat_Ringbook.Runtime");
  EXPECT_TRUE(sink_->Messages().empty());

  // Another component's error is shown, then passed on unchanged.
  e = Raised([&] { helper_.Compare(Variant(std::make_shared<BrokenKey>()), Item("a")); });
  EXPECT_EQ(e.Number(), errnum::kCustomBase + 77);
  EXPECT_EQ(e.Source(), "Host.Item");
  EXPECT_EQ(e.Description(), "gone");
  ASSERT_EQ(sink_->Messages().size(), 1u);
  EXPECT_EQ(sink_->Messages()[0], "COM Error " + std::to_string(errnum::kCustomBase + 77) +
                                      " in CSortHelper.Compare: gone");
}

// SwapCollection over a keyed collection of a, b, c, d under the keys ka to
// kd, recording errors or raising them.
class SwapCollectionTest : public CSortHelperTest, public ::testing::WithParamInterface<bool> {
 protected:
  void SetUp() override {
    CSortHelperTest::SetUp();
    items_.SetmgRaiseErrors(GetParam());
    for (const char* name : {"a", "b", "c", "d"})
      items_.Add(Variant(name), std::string("k") + name);
  }

  std::string Order() {
    std::string out;
    for (int32_t i = 1; i <= items_.Count(); ++i) {
      out += items_.Item(Variant(i)).ToString() + "/" + items_.Key(i) + " ";
    }
    return out;
  }

  CKeyedCollection items_;
};

TEST_P(SwapCollectionTest, KeysTravelWithTheItemsUnlessGiven) {
  struct Case {
    int32_t i1, i2;
    std::optional<std::string> key1, key2;
    const char* order;
  };
  const Case cases[] = {
      {1, 3, {}, {}, "c/kc b/kb a/ka d/kd "},
      {4, 2, {}, {}, "c/kc d/kd a/ka b/kb "},
      {3, 3, {}, {}, "c/kc d/kd a/ka b/kb "},
      // Given keys stay with the positions, the higher one first too; new
      // keys are accepted.
      {1, 3, "kc", "ka", "a/kc d/kd c/ka b/kb "},
      {4, 2, "x4", "x2", "a/kc b/x2 c/ka d/x4 "},
  };
  for (const Case& c : cases) {
    helper_.SwapCollection(items_, c.i1, c.i2, c.key1, c.key2);
    EXPECT_EQ(Order(), c.order) << c.i1 << ", " << c.i2;
  }
  EXPECT_EQ(items_.Item(Variant("KA")), Variant("c"));
}

TEST_P(SwapCollectionTest, BadArgumentsChangeNothing) {
  const std::string kOwn = "Korvat_Ringbook.SortHelper";
  const std::string kRuntime = "Korvat_Ringbook.Runtime";
  const std::string kInvalid = "Invalid procedure call or argument";
  const std::string kInUse = "This key is already associated with an element of this collection";
  struct Case {
    int32_t i1, i2;
    std::optional<std::string> key1, key2;
    int32_t number;
    const std::string& source;
    const std::string& description;
  };
  const std::string kMissing = "SwapCollection: Key is missing";
  const Case cases[] = {
      {1, 2, "ka", {}, eeMissingKey, kOwn, kMissing},
      {1, 2, {}, "kb", eeMissingKey, kOwn, kMissing},
      {0, 2, {}, {}, errnum::kInvalidProcedureCall, kRuntime, kInvalid},
      {1, 5, {}, {}, errnum::kInvalidProcedureCall, kRuntime, kInvalid},
      // "kc" belongs to the third item: the collection refuses it while the
      // two are re-added, and they are put back as they were.
      {1, 2, "kc", "kb", 457, kRuntime, kInUse},
      {1, 2, "ka", "KC", 457, kRuntime, kInUse},
  };
  for (const Case& c : cases) {
    const Error e = Raised([&] { helper_.SwapCollection(items_, c.i1, c.i2, c.key1, c.key2); });
    EXPECT_EQ(e.Number(), c.number);
    EXPECT_EQ(e.Source(), c.source);
    EXPECT_EQ(e.Description(), c.description);
    EXPECT_EQ(Order(), "a/ka b/kb c/kc d/kd ");
  }
  EXPECT_TRUE(sink_->Messages().empty());

  CKeyedCollection sorted;  // its order decides the places
  sorted.SetSorted(true);
  sorted.Add(Item("a"));
  sorted.Add(Item("b"));
  EXPECT_EQ(Raised([&] { helper_.SwapCollection(sorted, 1, 2); }).Number(),
            errnum::kInvalidProcedureCall);
  EXPECT_EQ(sorted.Item(Variant(1)).As<ISortedObject>()->SortKey(), Variant("a"));
}

INSTANTIATE_TEST_SUITE_P(RaisingAndRecording, SwapCollectionTest, ::testing::Bool());

}  // namespace
}  // namespace ringbook
