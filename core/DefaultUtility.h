#pragma once

#include "core/HostServices.h"

namespace ringbook {

/// The default utility object.
class RINGBOOK_EXPORT DefaultUtility : public IUtility {
 public:
  bool FileExists(const std::string& path) override;
  /// True when `path` names an existing regular file; the path is left as is.
  bool CheckPicturePath(std::string& path) override;
  /// Flushes the temporary file to disk, then renames it over the target (an
  /// atomic replace); on failure throws `Error` 0x80040204 with source
  /// "Utility:ReplaceFile" and leaves the target as it was.
  void ReplaceFile(const std::string& target, const std::string& temporary) override;
  bool IsEven(int32_t value) override { return value % 2 == 0; }
  std::string CollapseSeparators(const std::string& text, const std::string& separator) override;
  std::string TrimSeparators(const std::string& text, const std::string& separator) override;
  std::shared_ptr<IListControl> PrepareList(std::shared_ptr<IListControl> control) override {
    return control;
  }
};

}  // namespace ringbook
