#include "schedule/CSortHelper.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "core/Error.h"
#include "core/HostServices.h"
#include "core/Text.h"
#include "schedule/ICollection.h"
#include "schedule/ISortedObject.h"

namespace ringbook {
namespace {

constexpr int32_t kLastRuntimeError = 1000;

ECompareResults Sign(int c) {
  if (c < 0) return ecrComparisonLessThan;
  if (c > 0) return ecrComparisonGreaterThan;
  return ecrComparisonEqual;
}

// The sort key of an item handed to the helper; the item must be a sorted
// object.
Variant KeyOf(const Variant& item) {
  const auto sorted = item.As<ISortedObject>();
  if (!sorted) throw Error::ObjectNotSet();
  return sorted->SortKey();
}

// The runtime's comparison of two values: numbers numerically (Booleans and
// dates among them), strings by character code, a number before a string,
// Empty as 0 against a number and as "" against a string. nullopt when either
// side is Null, which makes every comparison false.
std::optional<int> CompareValues(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return std::nullopt;
  if (a.IsObject() || b.IsObject()) throw Error::TypeMismatch();
  if (a.IsString() || b.IsString()) {
    if (a.IsNumeric()) return -1;
    if (b.IsNumeric()) return 1;
    return text::CompareBinary(a.ToString(), b.ToString());
  }
  const double x = a.ToDouble();
  const double y = b.ToDouble();
  return x < y ? -1 : (x == y ? 0 : 1);
}

// "less → -1, equal → 0, otherwise 1": an undecidable comparison (Null) is
// neither less nor equal.
ECompareResults ValueResult(const Variant& a, const Variant& b) {
  const std::optional<int> c = CompareValues(a, b);
  return c ? Sign(*c) : ecrComparisonGreaterThan;
}

ECompareResults LengthResult(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return ecrComparisonGreaterThan;
  const std::size_t la = text::CharCount(a.ToString());
  const std::size_t lb = text::CharCount(b.ToString());
  if (la == lb) return ValueResult(a, b);
  return la < lb ? ecrComparisonLessThan : ecrComparisonGreaterThan;
}

bool IsOwnError(int32_t number) {
  return number >= eeBaseSortHelper && number <= eeMissingKey;
}

bool IsRuntimeError(int32_t number) {
  return number >= 1 && number <= kLastRuntimeError;
}

// Raises the collection's recorded error when it did not throw it itself.
void CheckCollection(const ICollection& n) {
  if (n.mgErr() != 0) throw Error(n.mgErr(), std::string(kComponentName), n.mgErrDescription());
}

// Puts `item` at `position` of `n` (appending when the position is one past
// the end), under `key` when it is not empty.
void AddAt(ICollection& n, const Variant& item, const std::string& key, int32_t position) {
  const std::optional<std::string> item_key =
      key.empty() ? std::nullopt : std::optional<std::string>(key);
  if (position <= n.Count()) {
    n.Add(item, item_key, Variant(position));
  } else {
    n.Add(item, item_key);
  }
  CheckCollection(n);
}

}  // namespace

std::string CSortHelper::SourceName() {
  return std::string(kComponentName) + ".SortHelper";
}

std::string CSortHelper::RuntimeSourceName() {
  return std::string(kComponentName) + ".Runtime";
}

void CSortHelper::SetSortMode(ESortMode value) noexcept {
  sort_mode_ = (value >= esmUnsorted && value <= esmLengthCompare) ? value : esmValueCompare;
}

void CSortHelper::SetSortOrder(ESortOrder value) noexcept {
  sort_order_ = value == esoSortDescending ? esoSortDescending : esoSortAscending;
}

ECompareResults CSortHelper::Compare(const Variant& v1, const Variant& v2) {
  try {
    return pvtCompare(v1, v2);
  } catch (...) {
    pvtRaise("Compare");
  }
}

ECompareResults CSortHelper::pvtCompare(const Variant& v1, const Variant& v2) {
  const Variant k1 = KeyOf(v1);
  // A key that is not a string switches the helper to value compare for good:
  // the items of one collection share one kind of key, and once a numeric key
  // is seen every later comparison must order by value too.
  if (!k1.IsString()) sort_mode_ = esmValueCompare;
  const Variant k2 = KeyOf(v2);

  ECompareResults result;
  switch (sort_mode_) {
    case esmValueCompare:
      result = ValueResult(k1, k2);
      break;
    case esmTextCompare:
      result = Sign(text::CompareNoCase(k1.ToString(), k2.ToString()));
      break;
    case esmBinaryCompare:
      result = Sign(text::CompareBinary(k1.ToString(), k2.ToString()));
      break;
    case esmLengthCompare:
      result = LengthResult(k1, k2);
      break;
    default:
      result = ecrComparisonEqual;
      break;
  }
  if (sort_order_ == esoSortDescending) result = static_cast<ECompareResults>(-result);
  return result;
}

void CSortHelper::Swap(Variant& v1, Variant& v2) {
  std::swap(v1, v2);
}

void CSortHelper::SwapCollection(ICollection& n, int32_t i1, int32_t i2,
                                 const std::optional<std::string>& key1,
                                 const std::optional<std::string>& key2) {
  try {
    pvtSwapCollection(n, i1, i2, key1, key2);
  } catch (...) {
    pvtRaise("SwapCollection");
  }
}

void CSortHelper::pvtSwapCollection(ICollection& n, int32_t i1, int32_t i2,
                                    const std::optional<std::string>& key1,
                                    const std::optional<std::string>& key2) {
  if (key1.has_value() != key2.has_value()) {
    throw Error(eeMissingKey, SourceName(), "SwapCollection: Key is missing");
  }
  const int32_t count = n.Count();
  if (i1 < 1 || i1 > count || i2 < 1 || i2 > count) throw Error::InvalidCall();
  // A sorted collection decides the places itself; exchanging two items would
  // either be undone or break the order.
  if (n.Sorted()) throw Error::InvalidCall();

  if (i1 == i2) return;

  const int32_t lo = std::min(i1, i2);
  const int32_t hi = std::max(i1, i2);
  const Variant lo_item = n.Item(Variant(lo));
  CheckCollection(n);
  const std::string lo_key = n.Key(lo);
  CheckCollection(n);
  const Variant hi_item = n.Item(Variant(hi));
  CheckCollection(n);
  const std::string hi_key = n.Key(hi);
  CheckCollection(n);

  // The keys stay with the positions when given, and travel with the items
  // otherwise.
  std::string new_lo_key = hi_key;
  std::string new_hi_key = lo_key;
  if (key1.has_value()) {
    new_lo_key = lo == i1 ? *key1 : *key2;
    new_hi_key = lo == i1 ? *key2 : *key1;
  }

  // The higher one first, so that the lower position does not move.
  n.Remove(Variant(hi));
  CheckCollection(n);
  n.Remove(Variant(lo));
  CheckCollection(n);
  bool lo_added = false;
  try {
    AddAt(n, hi_item, new_lo_key, lo);
    lo_added = true;
    AddAt(n, lo_item, new_hi_key, hi);
  } catch (...) {
    // Put both items back as they were; their own keys were free before.
    if (lo_added) {
      n.Remove(Variant(lo));
      CheckCollection(n);
    }
    AddAt(n, lo_item, lo_key, lo);
    AddAt(n, hi_item, hi_key, hi);
    throw;
  }
}

void CSortHelper::pvtRaise(const char* member) {
  try {
    throw;
  } catch (const Error& e) {
    if (IsOwnError(e.Number())) throw Error(e.Number(), SourceName(), e.Description());
    if (IsRuntimeError(e.Number())) throw Error(e.Number(), RuntimeSourceName(), e.Description());
    ShowMessage("COM Error " + std::to_string(e.Number()) + " in CSortHelper." + member + ": " +
                e.Description());
    throw;
  } catch (const std::exception& e) {
    ShowMessage(std::string("COM Error in CSortHelper.") + member + ": " + e.what());
    throw;
  } catch (...) {
    ShowMessage(std::string("COM Error in CSortHelper.") + member);
    throw;
  }
}

}  // namespace ringbook
