#include "schedule/MSort.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "schedule/CKeyedCollection.h"
#include "schedule/CSortHelper.h"
#include "support/SortedItem.h"

namespace ringbook {
namespace {

std::shared_ptr<ISortedObject> Item(Variant key) {
  return std::make_shared<test::SortedItem>(std::move(key), "");
}

// Compares whole-number keys and records the key of the collection's item in
// every comparison, to follow the halving.
class RecordingHelper : public ISortHelper {
 public:
  ECompareResults Compare(const Variant& v1, const Variant& v2) override {
    const int32_t k1 = v1.As<ISortedObject>()->SortKey().ToLong();
    const int32_t k2 = v2.As<ISortedObject>()->SortKey().ToLong();
    seen.push_back(k1);
    return k1 < k2 ? ecrComparisonLessThan
                   : (k1 == k2 ? ecrComparisonEqual : ecrComparisonGreaterThan);
  }
  void Swap(Variant&, Variant&) override {}
  void SwapCollection(ICollection&, int32_t, int32_t, const std::optional<std::string>&,
                      const std::optional<std::string>&) override {}
  std::vector<int32_t> seen;
};

// A plain (unsorted) collection filled in the given order.
void Fill(CKeyedCollection& items, const std::vector<Variant>& keys) {
  for (const Variant& key : keys) items.Add(Variant(Item(key)));
}

struct Found {
  bool found;
  int32_t position;
};

Found Search(CKeyedCollection& items, Variant key, ISortHelper* helper = nullptr) {
  int32_t position = -99;
  const bool found = MSort::Find(items, Item(std::move(key)), position, helper);
  return {found, position};
}

TEST(MSortTest, EmptyCollectionGivesPositionOne) {
  CKeyedCollection items;
  const Found r = Search(items, "anything");
  EXPECT_FALSE(r.found);
  EXPECT_EQ(r.position, 1);
}

TEST(MSortTest, ThreeItemsWithTheDefaultHelper) {
  CKeyedCollection items;
  Fill(items, {"b", "d", "f"});
  struct Case {
    const char* key;
    bool found;
    int32_t position;
  };
  for (const Case& c :
       {Case{"a", false, 1}, Case{"b", true, 1}, Case{"c", false, 2}, Case{"D", true, 2},
        Case{"e", false, 3}, Case{"F", true, 3}, Case{"z", false, 4}}) {
    const Found r = Search(items, c.key);
    EXPECT_EQ(r.found, c.found) << c.key;
    EXPECT_EQ(r.position, c.position) << c.key;
  }
}

TEST(MSortTest, UsesTheGivenHelper) {
  CSortHelper descending;
  descending.SetSortOrder(esoSortDescending);
  CKeyedCollection items;
  Fill(items, {"f", "d", "b"});
  EXPECT_EQ(Search(items, "z", &descending).position, 1);
  EXPECT_EQ(Search(items, "a", &descending).position, 4);
  EXPECT_EQ(Search(items, "c", &descending).position, 3);
  EXPECT_TRUE(Search(items, "d", &descending).found);
}

TEST(MSortTest, HalvesFromTheMiddleComparingTheCollectionItemFirst) {
  CKeyedCollection items;
  Fill(items, {10, 20, 30, 40, 50, 60, 70});
  struct Case {
    int32_t key;
    std::vector<int32_t> seen;
    bool found;
    int32_t position;
  };
  const Case cases[] = {
      {99, {40, 60, 70}, false, 8},
      {15, {40, 20, 10}, false, 2},  // after 10, whose result was "less"
      {25, {40, 20, 30}, false, 3},  // at 30, whose result was "greater"
      {60, {40, 60}, true, 6},
  };
  for (const Case& c : cases) {
    RecordingHelper helper;
    const Found r = Search(items, c.key, &helper);
    EXPECT_EQ(helper.seen, c.seen) << c.key;
    EXPECT_EQ(r.found, c.found) << c.key;
    EXPECT_EQ(r.position, c.position) << c.key;
  }
}

TEST(MSortTest, ARunOfEqualItemsIsFoundWhereTheHalvingLands) {
  CKeyedCollection items;
  Fill(items, {"a", "m", "m", "m", "m"});
  const Found r = Search(items, "M");
  EXPECT_TRUE(r.found);
  EXPECT_EQ(r.position, 3);
}

}  // namespace
}  // namespace ringbook
