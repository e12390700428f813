#include "schedule/CSortHelper.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/HostServices.h"
#include "schedule/CKeyedCollection.h"
#include "schedule/ISortedObject.h"
#include "support/MessageSinkDouble.h"
#include "support/SortedItem.h"

namespace ringbook {
namespace {

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

TEST_F(CSortHelperTest, ModeAndOrderSettersStoreOnlyKnownValues) {
  EXPECT_EQ(helper_.SortMode(), esmTextCompare);
  EXPECT_EQ(helper_.SortOrder(), esoSortAscending);
  for (ESortMode mode :
       {esmUnsorted, esmValueCompare, esmTextCompare, esmBinaryCompare, esmLengthCompare}) {
    helper_.SetSortMode(mode);
    EXPECT_EQ(helper_.SortMode(), mode);
  }
  helper_.SetSortMode(static_cast<ESortMode>(7));
  EXPECT_EQ(helper_.SortMode(), esmValueCompare);
  helper_.SetSortMode(esmBinaryCompare);
  helper_.SetSortMode(static_cast<ESortMode>(-2));
  EXPECT_EQ(helper_.SortMode(), esmValueCompare);

  helper_.SetSortOrder(esoSortDescending);
  EXPECT_EQ(helper_.SortOrder(), esoSortDescending);
  helper_.SetSortOrder(static_cast<ESortOrder>(1));
  EXPECT_EQ(helper_.SortOrder(), esoSortAscending);
  helper_.SetSortOrder(esoSortDescending);
  helper_.SetSortOrder(static_cast<ESortOrder>(-5));
  EXPECT_EQ(helper_.SortOrder(), esoSortAscending);
}

TEST_F(CSortHelperTest, TextCompareIgnoresCaseAndBinaryCompareDoesNot) {
  EXPECT_EQ(helper_.Compare(Item("Smith"), Item("sMITH")), ecrComparisonEqual);
  EXPECT_EQ(helper_.Compare(Item("apple"), Item("Banana")), ecrComparisonLessThan);
  EXPECT_EQ(helper_.Compare(Item("\xC3\xA9mile"), Item("\xC3\x89MILE")), ecrComparisonEqual);

  helper_.SetSortMode(esmCaseSensitve);
  EXPECT_EQ(helper_.Compare(Item("apple"), Item("Banana")), ecrComparisonGreaterThan);
  EXPECT_EQ(helper_.Compare(Item("A"), Item("a")), ecrComparisonLessThan);
  EXPECT_EQ(helper_.Compare(Item("a"), Item("a")), ecrComparisonEqual);
}

TEST_F(CSortHelperTest, NonStringFirstKeySwitchesToValueCompareForGood) {
  // A number as the second key does not switch: "10" and 9 compare as text.
  EXPECT_EQ(helper_.Compare(Item("10"), Item(9)), ecrComparisonLessThan);
  EXPECT_EQ(helper_.SortMode(), esmTextCompare);

  EXPECT_EQ(helper_.Compare(Item(10), Item(9)), ecrComparisonGreaterThan);
  EXPECT_EQ(helper_.SortMode(), esmValueCompare);
  // Later string keys are now compared by character code.
  EXPECT_EQ(helper_.Compare(Item("abc"), Item("ABC")), ecrComparisonGreaterThan);
  EXPECT_EQ(helper_.SortMode(), esmValueCompare);
}

TEST_F(CSortHelperTest, ValueCompareFollowsTheRuntimeOrder) {
  helper_.SetSortMode(esmValueCompare);
  EXPECT_EQ(helper_.Compare(Item(9), Item(10.5)), ecrComparisonLessThan);
  EXPECT_EQ(helper_.Compare(Item(int16_t{3}), Item(3.0)), ecrComparisonEqual);
  EXPECT_EQ(helper_.Compare(Item(Variant::FromDate(45000.75)), Item(Variant::FromDate(45000.25))),
            ecrComparisonGreaterThan);
  EXPECT_EQ(helper_.Compare(Item(99), Item("1")), ecrComparisonLessThan);  // number before text
  EXPECT_EQ(helper_.Compare(Item("1"), Item(99)), ecrComparisonGreaterThan);
  // Null is neither less nor equal, whichever side it is on.
  EXPECT_EQ(helper_.Compare(Item(Variant::Null()), Item(1)), ecrComparisonGreaterThan);
  EXPECT_EQ(helper_.Compare(Item(1), Item(Variant::Null())), ecrComparisonGreaterThan);
}

TEST_F(CSortHelperTest, LengthCompareOrdersShorterKeysFirst) {
  helper_.SetSortMode(esmLengthCompare);
  EXPECT_EQ(helper_.Compare(Item("9"), Item("10")), ecrComparisonLessThan);
  EXPECT_EQ(helper_.Compare(Item("10"), Item("9")), ecrComparisonGreaterThan);
  EXPECT_EQ(helper_.Compare(Item("aaa"), Item("zz")), ecrComparisonGreaterThan);
  // Equal lengths: by value, so letter case counts.
  EXPECT_EQ(helper_.Compare(Item("ab"), Item("ac")), ecrComparisonLessThan);
  EXPECT_EQ(helper_.Compare(Item("ab"), Item("ab")), ecrComparisonEqual);
  EXPECT_EQ(helper_.Compare(Item("b"), Item("B")), ecrComparisonGreaterThan);
  // Lengths count characters, not bytes.
  EXPECT_EQ(helper_.Compare(Item("\xC3\xA9"), Item("ab")), ecrComparisonLessThan);
  EXPECT_EQ(helper_.SortMode(), esmLengthCompare);
}

TEST_F(CSortHelperTest, UnsortedIsAllEqualAndDescendingNegates) {
  helper_.SetSortOrder(esoSortDescending);
  EXPECT_EQ(helper_.Compare(Item("a"), Item("B")), ecrComparisonGreaterThan);
  EXPECT_EQ(helper_.Compare(Item("b"), Item("A")), ecrComparisonLessThan);
  EXPECT_EQ(helper_.Compare(Item("a"), Item("A")), ecrComparisonEqual);

  helper_.SetSortMode(esmUnsorted);
  EXPECT_EQ(helper_.Compare(Item("a"), Item("zzz")), ecrComparisonEqual);
  helper_.SetSortOrder(esoSortAscending);
  EXPECT_EQ(helper_.Compare(Item("zzz"), Item("a")), ecrComparisonEqual);
}

TEST_F(CSortHelperTest, RuntimeErrorsCarryTheRuntimeSourceWithoutAMessage) {
  EXPECT_EQ(CSortHelper::SourceName(), "Korvat_Ringbook.SortHelper");
  EXPECT_EQ(CSortHelper::RuntimeSourceName(), "Korvat_Ringbook.Runtime");
  try {
    helper_.Compare(Variant("not an object"), Item("a"));
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kTypeMismatch);
    EXPECT_EQ(e.Source(), "Korvat_Ringbook.Runtime");
    EXPECT_EQ(e.Description(), "Type mismatch");
  }
  try {
    helper_.Compare(Item("a"), Variant(std::shared_ptr<Object>()));
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kObjectNotSet);
    EXPECT_EQ(e.Source(), "Korvat_Ringbook.Runtime");
  }
  EXPECT_TRUE(sink_->Messages().empty());
}

TEST_F(CSortHelperTest, UnexpectedErrorIsShownThenPassedOnUnchanged) {
  try {
    helper_.Compare(Variant(std::make_shared<BrokenKey>()), Item("a"));
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kCustomBase + 77);
    EXPECT_EQ(e.Source(), "Host.Item");
    EXPECT_EQ(e.Description(), "gone");
  }
  ASSERT_EQ(sink_->Messages().size(), 1u);
  EXPECT_EQ(sink_->Messages()[0], "COM Error " + std::to_string(errnum::kCustomBase + 77) +
                                      " in CSortHelper.Compare: gone");
}

// SwapCollection, over the general keyed collection: a, b, c, d under the
// keys ka to kd.
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

  void ExpectError(int32_t i1, int32_t i2, std::optional<std::string> key1,
                   std::optional<std::string> key2, int32_t number, const std::string& source,
                   const std::string& description) {
    const std::string before = Order();
    try {
      helper_.SwapCollection(items_, i1, i2, key1, key2);
      ADD_FAILURE() << "no error";
    } catch (const Error& e) {
      EXPECT_EQ(e.Number(), number);
      EXPECT_EQ(e.Source(), source);
      EXPECT_EQ(e.Description(), description);
    }
    EXPECT_EQ(Order(), before);
  }

  CKeyedCollection items_;
};

TEST_P(SwapCollectionTest, WithoutKeysTheItemsTakeTheirKeysAlong) {
  helper_.SwapCollection(items_, 1, 3);
  EXPECT_EQ(Order(), "c/kc b/kb a/ka d/kd ");
  helper_.SwapCollection(items_, 4, 2);
  EXPECT_EQ(Order(), "c/kc d/kd a/ka b/kb ");
  helper_.SwapCollection(items_, 3, 3);
  EXPECT_EQ(Order(), "c/kc d/kd a/ka b/kb ");
}

TEST_P(SwapCollectionTest, WithKeysTheKeysStayWithThePositions) {
  helper_.SwapCollection(items_, 1, 3, "ka", "kc");
  EXPECT_EQ(Order(), "c/ka b/kb a/kc d/kd ");
  EXPECT_EQ(items_.Item(Variant("KA")), Variant("c"));
  // The higher position first; new keys are accepted too.
  helper_.SwapCollection(items_, 4, 2, "x4", "x2");
  EXPECT_EQ(Order(), "c/ka d/x2 a/kc b/x4 ");
}

TEST_P(SwapCollectionTest, BadArgumentsChangeNothing) {
  ExpectError(1, 2, std::string("ka"), std::nullopt, eeMissingKey, "Korvat_Ringbook.SortHelper",
              "SwapCollection: Key is missing");
  ExpectError(1, 2, std::nullopt, std::string("kb"), eeMissingKey, "Korvat_Ringbook.SortHelper",
              "SwapCollection: Key is missing");
  ExpectError(0, 2, std::nullopt, std::nullopt, errnum::kInvalidProcedureCall,
              "Korvat_Ringbook.Runtime", "Invalid procedure call or argument");
  ExpectError(1, 5, std::nullopt, std::nullopt, errnum::kInvalidProcedureCall,
              "Korvat_Ringbook.Runtime", "Invalid procedure call or argument");
  // "kc" belongs to the third item: the collection refuses it while the two
  // are re-added, and they are put back as they were.
  ExpectError(1, 2, std::string("kc"), std::string("kb"), 457, "Korvat_Ringbook.Runtime",
              "This key is already associated with an element of this collection");
  ExpectError(1, 2, std::string("ka"), std::string("KC"), 457, "Korvat_Ringbook.Runtime",
              "This key is already associated with an element of this collection");
  EXPECT_TRUE(sink_->Messages().empty());
}

TEST_P(SwapCollectionTest, ASortedCollectionRefusesTheSwap) {
  CKeyedCollection sorted;
  sorted.SetSorted(true);
  sorted.Add(Item("a"));
  sorted.Add(Item("b"));
  EXPECT_THROW(helper_.SwapCollection(sorted, 1, 2), Error);
  EXPECT_EQ(sorted.Item(Variant(1)).As<ISortedObject>()->SortKey(), Variant("a"));
}

INSTANTIATE_TEST_SUITE_P(RaisingAndRecording, SwapCollectionTest, ::testing::Bool());

}  // namespace
}  // namespace ringbook
