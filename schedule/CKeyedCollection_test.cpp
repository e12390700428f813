#include "schedule/CKeyedCollection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/HostServices.h"
#include "schedule/CSortHelper.h"
#include "schedule/ISortedObject.h"
#include "support/ListBoxDouble.h"
#include "support/MessageSinkDouble.h"
#include "support/Raised.h"
#include "support/SortedItem.h"

namespace ringbook {
namespace {

class FailingKey : public ISortedObject {
 public:
  Variant SortKey() const override { throw Error(errnum::kStreamOpen, "Host", "cannot read"); }
};

// The items in order: a sorted item by its tag, any other value by its text.
std::string Listing(CKeyedCollection& items) {
  std::string out;
  for (int32_t i = 1; i <= items.Count(); ++i) {
    const Variant v = items.Item(Variant(i));
    out += v.IsObject() ? v.As<test::SortedItem>()->Tag() : v.ToText() + " ";
  }
  return out;
}

TEST(CKeyedCollectionTest, PositionsAndKeysWithoutRegardToCase) {
  CKeyedCollection items;
  EXPECT_EQ(items.Add(Variant("alpha"), "a"), Variant("alpha"));
  items.Add(Variant(int32_t{2}));
  items.Add(Variant("gamma"), "\xC3\x89mile");
  EXPECT_EQ(items.LastAdded(), Variant("gamma"));
  EXPECT_EQ(items.Item(Variant(2.0)), Variant(int32_t{2}));
  EXPECT_EQ(items.Item(Variant("A")), Variant("alpha"));
  EXPECT_EQ(items.Item(Variant("\xC3\xA9MILE")), Variant("gamma"));
  EXPECT_EQ(items.Index("\xC3\xA9mile"), 3);
  EXPECT_EQ(items.Key(2), "");
  items.SetItem(Variant("a"), Variant("ALPHA"));
  EXPECT_EQ(items.Item(Variant(1)), Variant("ALPHA"));
  EXPECT_EQ(items.Key(1), "a");
}

TEST(CKeyedCollectionTest, BeforeAndAfterByPositionOrKey) {
  CKeyedCollection items;
  items.Add(Variant("c"), "kc");
  items.Add(Variant("a"), std::nullopt, Variant(1));
  items.Add(Variant("d"), std::nullopt, Variant(), Variant("KC"));
  items.Add(Variant("b"), "kb", Variant("kc"));
  items.Add(Variant("e"), std::nullopt, Variant(), Variant(int32_t{4}));
  EXPECT_EQ(Listing(items), "a b c d e ");
  EXPECT_EQ(items.Index("kb"), 2);

  items.Remove(Variant("kb"));
  items.Remove(Variant(1));
  EXPECT_EQ(Listing(items), "c d e ");
  EXPECT_EQ(items.Index("kc"), 1);
  items.Add(Variant("b2"), "KB");  // a removed key is free again
  EXPECT_EQ(items.Index("kb"), 4);
}

TEST(CKeyedCollectionTest, ErrorsAreRecordedAndChangeNothing) {
  CKeyedCollection items;
  items.Add(Variant("a"), "Key");
  items.Add(Variant("b"));
  const std::vector<std::pair<std::function<void()>, int16_t>> attempts = {
      {[&] { EXPECT_TRUE(items.Add(Variant("x"), "KEY").IsEmpty()); }, 457},
      {[&] { items.Add(Variant("x"), std::nullopt, Variant(1), Variant(2)); }, 5},
      {[&] { items.Add(Variant("x"), std::nullopt, Variant("nokey")); }, 5},
      {[&] { EXPECT_TRUE(items.Item(Variant(int32_t{0})).IsEmpty()); }, 5},
      {[&] { items.Item(Variant()); }, 5},
      {[&] { EXPECT_EQ(items.Index("missing"), 0); }, 5},
      {[&] { EXPECT_EQ(items.Key(3), ""); }, 5},
      {[&] { items.SetItem(Variant("missing"), Variant("x")); }, 5},
  };
  for (std::size_t i = 0; i < attempts.size(); ++i) {
    attempts[i].first();
    EXPECT_EQ(items.mgErr(), attempts[i].second) << "attempt " << i;
    EXPECT_EQ(items.mgErrDescription(),
              attempts[i].second == 457
                  ? "This key is already associated with an element of this collection"
                  : "Invalid procedure call or argument")
        << "attempt " << i;
    EXPECT_EQ(Listing(items), "a b ") << "attempt " << i;
    EXPECT_EQ(items.LastAdded(), Variant("b"));
    // The next call that succeeds clears the record.
    EXPECT_EQ(items.Index("key"), 1);
    EXPECT_EQ(items.mgErr(), 0);
    EXPECT_EQ(items.mgErrDescription(), "");
  }

  items.SetmgRaiseErrors(true);
  const Error e = test::Raised([&] { items.Add(Variant("x"), "key"); });
  EXPECT_EQ(e.Number(), 457);
  EXPECT_EQ(e.Source(), "Korvat_Ringbook");
  EXPECT_EQ(items.mgErr(), 457);
  EXPECT_THROW(items.Item(Variant(int32_t{9})), Error);
  EXPECT_EQ(items.mgErr(), 5);
}

TEST(CKeyedCollectionTest, SortedCanChangeOnlyWhileEmpty) {
  CKeyedCollection items;
  items.Add(test::Sorted("a"));
  for (bool raise : {false, true}) {  // thrown whatever mgRaiseErrors says
    items.SetmgRaiseErrors(raise);
    const Error e = test::Raised([&] { items.SetSorted(true); });
    EXPECT_EQ(e.Number(), 511);
    EXPECT_EQ(e.Description(), "Sorted property is read-only if the collection is not empty");
    EXPECT_FALSE(items.Sorted());
    EXPECT_EQ(items.mgErr(), 511);
  }
  items.Clear();
  EXPECT_TRUE(items.LastAdded().IsEmpty());
  items.SetSorted(true);
  EXPECT_EQ(items.mgErr(), 0);
  items.Add(test::Sorted("b"));
  EXPECT_THROW(items.SetSorted(true), Error);
  EXPECT_TRUE(items.Sorted());
}

TEST(CKeyedCollectionTest, SortedCollectionStaysSortedUnderEveryMode) {
  const std::vector<Variant> texts = {"delta", "Alpha", "charlie", "9",    "10", "Bravo",
                                      "alpha", "zz",    "aaa",     "ECHO", "b",  "100"};
  const std::vector<Variant> numbers = {int32_t{42}, 7.5, int32_t{-3}, int16_t{7}, 1000.0, 0.25};
  struct Setup {
    ESortMode mode;
    ESortOrder order;
    const std::vector<Variant>* keys;
  };
  std::mt19937 shuffle_rng(20240611);
  for (const Setup& s : {Setup{esmTextCompare, esoSortAscending, &texts},
                         Setup{esmLengthCompare, esoSortDescending, &texts},
                         Setup{esmValueCompare, esoSortAscending, &numbers}}) {
    SCOPED_TRACE(testing::Message() << "mode " << s.mode << " order " << s.order);
    auto helper = std::make_shared<CSortHelper>();
    helper->SetSortMode(s.mode);
    helper->SetSortOrder(s.order);
    CKeyedCollection items(helper);
    items.SetSorted(true);
    std::vector<Variant> keys = *s.keys;
    std::shuffle(keys.begin(), keys.end(), shuffle_rng);
    for (std::size_t i = 0; i < keys.size(); ++i) {
      items.Add(test::Sorted(keys[i]), "k" + std::to_string(i));
    }
    ASSERT_EQ(items.Count(), static_cast<int32_t>(keys.size()));
    const auto in_order = [&] {
      for (int32_t i = 1; i < items.Count(); ++i) {
        if (helper->Compare(items.Item(Variant(i)), items.Item(Variant(i + 1))) ==
            ecrComparisonGreaterThan) {
          return false;
        }
      }
      return true;
    };
    EXPECT_TRUE(in_order());
    EXPECT_EQ(helper->SortMode(), s.mode);

    // Replacing an item moves it to its place; removing keeps the rest in order.
    items.SetItem(Variant("k0"), test::Sorted((*s.keys)[3]));
    items.Remove(Variant(int32_t{2}));
    EXPECT_TRUE(in_order());
    EXPECT_EQ(items.Count() + 1, static_cast<int32_t>(keys.size()));
    // Every key still names an item at the position the collection reports.
    for (std::size_t i = 0; i < keys.size(); ++i) {
      const std::string key = "k" + std::to_string(i);
      const int32_t at = items.Index(key);
      if (items.mgErr() == 0) {
        EXPECT_EQ(items.Key(at), key);  // else the removed one
      }
    }
  }
}

TEST(CKeyedCollectionTest, EqualItemsKeepTheOrderOfAdding) {
  CKeyedCollection items;
  items.SetSorted(true);
  // Key and tag; the last "A" lands inside the run of a's.
  for (const char* item : {"a1", "b2", "A3", "a4", "05", "B6", "A7"}) {
    items.Add(test::Sorted(std::string(1, item[0]), item + 1));
  }
  EXPECT_EQ(Listing(items), "5134726");
}

TEST(CKeyedCollectionTest, SortedAddRefusesWhatItCannotPlace) {
  auto sink = std::make_shared<test::MessageSinkDouble>();
  SetMessageSink(sink);
  CKeyedCollection items;
  items.SetSorted(true);
  items.Add(test::Sorted("m", "m"), "km");
  items.Add(test::Sorted("x", "x"), "kx");
  items.Add(Variant("plain"));
  EXPECT_EQ(items.mgErr(), errnum::kTypeMismatch);
  items.Add(Variant(std::shared_ptr<Object>()));
  EXPECT_EQ(items.mgErr(), errnum::kObjectNotSet);
  items.Add(test::Sorted("a"), std::nullopt, Variant(1));
  EXPECT_EQ(items.mgErr(), errnum::kInvalidProcedureCall);
  items.SetItem(Variant(1), Variant("plain"));
  EXPECT_EQ(items.mgErr(), errnum::kTypeMismatch);
  // The sort helper's errors are recorded by their low 16 bits.
  items.Add(Variant(std::make_shared<FailingKey>()));
  EXPECT_EQ(items.mgErr(), 0x0201);
  EXPECT_EQ(items.mgErrDescription(), "cannot read");
  // A replacement whose place cannot be found leaves the item where it was.
  items.SetItem(Variant("km"), Variant(std::make_shared<FailingKey>()));
  EXPECT_EQ(items.mgErr(), 0x0201);
  SetMessageSink(nullptr);
  EXPECT_EQ(sink->Messages().size(), 2u);  // the sort helper showed both
  EXPECT_EQ(Listing(items), "mx");
  EXPECT_EQ(items.Index("km"), 1);
  EXPECT_EQ(items.Index("kx"), 2);
}

TEST(CKeyedCollectionTest, FillListShowsEachItemsText) {
  CKeyedCollection items;
  items.Add(test::Sorted("Ali"));
  items.Add(Variant(int32_t{12}));
  items.Add(Variant::Null());
  auto list = std::make_shared<test::ListBoxDouble>();
  list->AddItem("stale");
  items.FillList(list);
  EXPECT_EQ(list->Texts(), (std::vector<std::string>{"Ali", "12", ""}));

  items.Add(Variant(std::static_pointer_cast<Object>(std::make_shared<test::ListBoxDouble>())));
  items.FillList(list);
  EXPECT_EQ(items.mgErr(), errnum::kObjectDoesNotSupport);
}

}  // namespace
}  // namespace ringbook
