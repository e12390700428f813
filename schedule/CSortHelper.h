#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/Export.h"
#include "schedule/ISortHelper.h"

namespace ringbook {

/// The component's comparison object: compares sorted objects by their sort
/// keys in one of the `ESortMode` modes, ascending or descending.
///
/// Errors leave every member as `ringbook::Error`:
/// - the helper's own errors (`eeBaseSortHelper` to `eeMissingKey`) with the
///   source `SourceName()`, "Korvat_Ringbook.SortHelper";
/// - runtime errors passing through (numbers 1 to 1000, such as type
///   mismatch 13 for an item that is not a sorted object) with the source
///   `RuntimeSourceName()`, "Korvat_Ringbook.Runtime";
/// - any other error is unexpected: it is first shown through `ShowMessage`
///   as "COM Error <number> in CSortHelper.<member>: <description>" (for a
///   failure that is not an `Error`: "COM Error in CSortHelper.<member>:
///   <what>") and then passes on unchanged.
class RINGBOOK_EXPORT CSortHelper : public ISortHelper {
 public:
  /// Error source of the helper's own errors.
  static std::string SourceName();
  /// Error source of the runtime errors the helper passes on.
  static std::string RuntimeSourceName();

  /// Compares the sort keys of the `ISortedObject` items `v1` and `v2`.
  ///
  /// When `v1`'s key is not a string the helper switches itself to
  /// `esmValueCompare` and stays so for every later comparison. Then, by mode:
  /// value compare orders numbers numerically, dates by time, strings by
  /// character code, a number before a string, Empty as 0 or ""; a Null key
  /// makes the result "greater". Text compare ignores letter case; binary
  /// compare goes by character code; length compare puts the key with fewer
  /// characters first and orders keys of equal length by value. Unsorted (or
  /// any other mode) makes all items equal. Descending order negates the
  /// result.
  ///
  /// Type mismatch (13) when an argument is not a sorted object, object not
  /// set (91) when it is a Nothing reference.
  ECompareResults Compare(const Variant& v1, const Variant& v2) override;

  /// Exchanges the two values.
  void Swap(Variant& v1, Variant& v2) override;

  /// Exchanges the items at `i1` and `i2` of `n`; every other item keeps its
  /// place. With both keys given, the item landing at `i1` is stored under
  /// `key1` and the one landing at `i2` under `key2` (the keys stay with the
  /// positions). Without keys each item keeps its own key. `i1` equal to
  /// `i2` changes nothing.
  ///
  /// Exactly one key given: error `eeMissingKey`, "SwapCollection: Key is
  /// missing", nothing changed. A position outside 1 to Count, or a sorted
  /// collection (whose order decides the places): invalid procedure call (5),
  /// nothing changed. An error of the collection while re-adding (such as a
  /// key already used by a third item) restores the two items as they were
  /// and passes the error on.
  void SwapCollection(ICollection& n, int32_t i1, int32_t i2,
                      const std::optional<std::string>& key1 = std::nullopt,
                      const std::optional<std::string>& key2 = std::nullopt) override;

  /// The sort mode; initially `esmTextCompare`.
  ESortMode SortMode() const noexcept { return sort_mode_; }
  /// Stores -1 to 3 as given and any other value as `esmValueCompare`.
  void SetSortMode(ESortMode value) noexcept;

  /// The sort order; initially `esoSortAscending`.
  ESortOrder SortOrder() const noexcept { return sort_order_; }
  /// Stores -1 and 0 as given and any other value as `esoSortAscending`.
  void SetSortOrder(ESortOrder value) noexcept;

 private:
  ECompareResults pvtCompare(const Variant& v1, const Variant& v2);
  void pvtSwapCollection(ICollection& n, int32_t i1, int32_t i2,
                         const std::optional<std::string>& key1,
                         const std::optional<std::string>& key2);
  /// Rethrows the exception in flight as the helper reports errors.
  [[noreturn]] static void pvtRaise(const char* member);

  ESortMode sort_mode_ = esmTextCompare;
  ESortOrder sort_order_ = esoSortAscending;
};

}  // namespace ringbook
