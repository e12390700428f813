#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"

namespace ringbook {

/// The component's version (major.minor.revision), from the build's single
/// version number.
struct RINGBOOK_EXPORT ComponentVersion {
  static int16_t Major();
  static int16_t Minor();
  static int16_t Revision();
  /// "1.0.83"
  static std::string Text();
};

}  // namespace ringbook
