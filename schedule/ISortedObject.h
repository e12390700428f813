#pragma once

#include "core/Export.h"
#include "core/Object.h"
#include "core/Variant.h"

namespace ringbook {

/// An item that a sorted collection can order. `SortKey` is also the item's
/// default value: wherever the item is taken as text (a list control, a text
/// compare), its text is the text of its sort key.
class RINGBOOK_EXPORT ISortedObject : public Object {
 public:
  /// The value the item sorts by: usually a string, but any value will do (a
  /// key that is not a string makes `CSortHelper` compare by value).
  virtual Variant SortKey() const = 0;
};

}  // namespace ringbook
