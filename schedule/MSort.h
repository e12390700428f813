#pragma once

#include <cstdint>
#include <memory>

#include "core/Export.h"
#include "schedule/ICollection.h"
#include "schedule/ISortHelper.h"
#include "schedule/ISortedObject.h"

namespace ringbook {

/// Sorted insertion: the place of an item in a sorted collection.
namespace MSort {

/// Binary search of `items`, a collection of `ISortedObject`s kept in
/// ascending order under `helper` (a new default `CSortHelper`, text compare
/// ascending, when nullptr).
///
/// Returns true when an item equal to `item` was found and sets `position`
/// to its 1-based position; which of a run of equal items is found depends on
/// where the halving lands. Returns false when there is none and sets
/// `position` to the place at which `item` keeps the order (1 for an empty
/// collection, Count + 1 after every item). Each step compares the
/// collection's item first: `helper->Compare(items.Item(middle), item)`.
/// Errors of the helper or the collection pass to the caller.
RINGBOOK_EXPORT bool Find(ICollection& items, const std::shared_ptr<ISortedObject>& item,
                          int32_t& position, ISortHelper* helper = nullptr);

}  // namespace MSort
}  // namespace ringbook
