#include "core/VersionInfo.h"

#include "core/Version.h"

namespace ringbook {

int16_t ComponentVersion::Major() {
  return RINGBOOK_VERSION_MAJOR;
}
int16_t ComponentVersion::Minor() {
  return RINGBOOK_VERSION_MINOR;
}
int16_t ComponentVersion::Revision() {
  return RINGBOOK_VERSION_PATCH;
}
std::string ComponentVersion::Text() {
  return RINGBOOK_VERSION_STRING;
}

}  // namespace ringbook
