#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/Export.h"
#include "core/Object.h"
#include "core/Variant.h"
#include "schedule/SortEnums.h"

namespace ringbook {

class ICollection;

/// Compares sorted objects and exchanges values or collection items.
class RINGBOOK_EXPORT ISortHelper : public Object {
 public:
  /// Compares two `ISortedObject` items held in `v1` and `v2`: less than,
  /// equal to or greater than. A comparison may change the helper's own state
  /// (see `CSortHelper::Compare`), hence not const.
  virtual ECompareResults Compare(const Variant& v1, const Variant& v2) = 0;

  /// Exchanges two values of any type.
  virtual void Swap(Variant& v1, Variant& v2) = 0;

  /// Exchanges the items at the 1-based positions `i1` and `i2` of `n`. With
  /// `key1` and `key2` both given, the item that lands at `i1` is stored
  /// under `key1` and the one at `i2` under `key2`; giving only one of them
  /// is an error and changes nothing.
  virtual void SwapCollection(ICollection& n, int32_t i1, int32_t i2,
                              const std::optional<std::string>& key1 = std::nullopt,
                              const std::optional<std::string>& key2 = std::nullopt) = 0;
};

}  // namespace ringbook
