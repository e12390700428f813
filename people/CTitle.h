#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"
#include "core/Object.h"

namespace ringbook {

/// A championship title that fighters can hold. A plain value built and
/// stored by `NTitles`.
class RINGBOOK_EXPORT CTitle : public Object {
 public:
  /// Copies this title's `ID` (through `SetID`) and `Name` into `target`.
  void Clone(CTitle& target) const;

  /// Key of the row ("TitleId"); 0 when not stored.
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
