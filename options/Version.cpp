#include "options/Version.h"

#include "core/VersionInfo.h"

namespace ringbook {

int16_t Version::Major() const {
  return ComponentVersion::Major();
}

int16_t Version::Minor() const {
  return ComponentVersion::Minor();
}

int16_t Version::Revision() const {
  return ComponentVersion::Revision();
}

}  // namespace ringbook
