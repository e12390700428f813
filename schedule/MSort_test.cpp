#include "schedule/MSort.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "schedule/CKeyedCollection.h"
#include "schedule/CSortHelper.h"
#include "support/SortedItem.h"

namespace ringbook {
namespace {

// Compares whole-number keys and records the key of the collection's item in
// every comparison, to follow the halving.
class RecordingHelper : public ISortHelper {
 public:
  ECompareResults Compare(const Variant& v1, const Variant& v2) override {
    const int32_t k1 = v1.As<ISortedObject>()->SortKey().ToLong();
    const int32_t k2 = v2.As<ISortedObject>()->SortKey().ToLong();
    seen.push_back(k1);
    return static_cast<ECompareResults>((k1 > k2) - (k1 < k2));
  }
  void Swap(Variant&, Variant&) override {}
  void SwapCollection(ICollection&, int32_t, int32_t, const std::optional<std::string>&,
                      const std::optional<std::string>&) override {}
  std::vector<int32_t> seen;
};

// Whether `key` was found, and the position MSort::Find gives, in a plain
// collection of `keys` in that order.
std::pair<bool, int32_t> Search(const std::vector<Variant>& keys, Variant key,
                                ISortHelper* helper = nullptr) {
  CKeyedCollection items;
  for (const Variant& k : keys) items.Add(test::Sorted(k));
  int32_t position = -99;
  const bool found =
      MSort::Find(items, std::make_shared<test::SortedItem>(std::move(key), ""), position, helper);
  return {found, position};
}

TEST(MSortTest, FoundOrThePlaceThatKeepsTheOrder) {
  using R = std::pair<bool, int32_t>;
  EXPECT_EQ(Search({}, "anything"), R(false, 1));
  const std::vector<Variant> keys = {"b", "d", "f"};
  for (auto [key, want] : {std::pair<const char*, R>{"a", {false, 1}},
                           {"b", {true, 1}},
                           {"c", {false, 2}},
                           {"D", {true, 2}},
                           {"e", {false, 3}},
                           {"F", {true, 3}},
                           {"z", {false, 4}}}) {
    EXPECT_EQ(Search(keys, key), want) << key;
  }
  // A run of equal items is found where the halving lands.
  EXPECT_EQ(Search({"a", "m", "m", "m", "m"}, "M"), R(true, 3));

  CSortHelper descending;
  descending.SetSortOrder(esoSortDescending);
  const std::vector<Variant> down = {"f", "d", "b"};
  EXPECT_EQ(Search(down, "z", &descending), R(false, 1));
  EXPECT_EQ(Search(down, "c", &descending), R(false, 3));
  EXPECT_EQ(Search(down, "a", &descending), R(false, 4));
  EXPECT_EQ(Search(down, "d", &descending), R(true, 2));
}

TEST(MSortTest, HalvesFromTheMiddleComparingTheCollectionItemFirst) {
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
    const auto [found, position] = Search({10, 20, 30, 40, 50, 60, 70}, c.key, &helper);
    EXPECT_EQ(helper.seen, c.seen) << c.key;
    EXPECT_EQ(found, c.found) << c.key;
    EXPECT_EQ(position, c.position) << c.key;
  }
}

}  // namespace
}  // namespace ringbook
