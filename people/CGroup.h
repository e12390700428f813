#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"
#include "core/Object.h"

namespace ringbook {

/// A named grouping that fighters belong to; the fighter collection filters
/// by it. A plain value built and stored by `NGroups`.
class RINGBOOK_EXPORT CGroup : public Object {
 public:
  /// Copies this group's `ID` (through `SetID`) and `Name` into `target`.
  void Clone(CGroup& target) const;

  /// Key of the row ("GroupID"); 0 when not stored.
  int32_t ID() const { return id_; }
  /// Component-internal: used by the collection and by `Clone`.
  void SetID(int32_t value) { id_ = value; }

  /// Stored as given.
  const std::string& Name() const { return name_; }
  void SetName(const std::string& value) { name_ = value; }

 private:
  int32_t id_ = 0;
  std::string name_;
};

}  // namespace ringbook
