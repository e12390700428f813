#pragma once

#include <cstdint>

#include "core/Export.h"
#include "core/Object.h"

namespace ringbook {

/// The component's own version numbers, as the host asks for them.
class RINGBOOK_EXPORT Version : public Object {
 public:
  /// 1
  int16_t Major() const;
  /// 0
  int16_t Minor() const;
  /// 83
  int16_t Revision() const;
};

}  // namespace ringbook
