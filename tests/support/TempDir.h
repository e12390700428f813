#pragma once

#include <filesystem>
#include <string>

namespace ringbook::test {

/// A fresh folder under the system's temporary folder, removed with its
/// contents when the object goes.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  /// The UTF-8 path of `name` inside the folder.
  std::string File(const std::string& name) const;

 private:
  std::filesystem::path path_;
};

}  // namespace ringbook::test
