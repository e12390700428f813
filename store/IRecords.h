#pragma once

#include <cstdint>

#include "core/Export.h"
#include "core/Variant.h"

namespace ringbook {

/// The contract every database-backed collection offers, so that host code
/// can drive any of them the same way. Records and controls travel as
/// values of any type; each collection forwards to its own members.
class RINGBOOK_EXPORT IRecords {
 public:
  virtual ~IRecords() = default;

  /// Casts `Record` to the collection's record class (type mismatch for
  /// anything else), adds it and returns it, now with its new ID.
  virtual Variant AddRecord(const Variant& Record, bool Selected = true) = 0;
  /// Binds the control held by `ListControl`.
  virtual void BindTo(const Variant& ListControl) = 0;
  /// Fills the list; a collection without a filter ignores `Filter`.
  virtual void FillList(const Variant& ListControl = Variant(), int16_t Filter = 0) = 0;
  /// The record of `ID`, as a value holding the object.
  virtual Variant Item(int32_t ID) = 0;
  /// Casts `Record` to the record class and updates its row (`ID` ignored).
  virtual void SetItem(int32_t ID, const Variant& Record) = 0;
  /// Always false.
  virtual bool RemoveRecord(int32_t ID, bool NextSelected = true) = 0;
  /// Casts `Record`, updates its row and returns it (Nothing when the row
  /// is missing).
  virtual Variant UpdateRecord(const Variant& Record, bool Selected = true) = 0;
};

}  // namespace ringbook
