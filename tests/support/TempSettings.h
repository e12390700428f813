#pragma once

#include <memory>
#include <string>

#include "core/DefaultSettings.h"
#include "core/HostServices.h"
#include "support/TempDir.h"

namespace ringbook::test {

/// Points the thread's settings at a fresh temporary folder for the life of
/// the object: options files are kept there, and the game database path
/// names a file that does not exist unless a test creates it. Restores the
/// default settings afterwards.
class TempSettings {
 public:
  TempSettings() {
    SetSettings(std::make_shared<DefaultSettings>(DatabasePath(), dir_.Path().string()));
  }
  ~TempSettings() { SetSettings(nullptr); }
  TempSettings(const TempSettings&) = delete;
  TempSettings& operator=(const TempSettings&) = delete;

  const TempDir& Dir() const { return dir_; }
  std::string File(const std::string& name) const { return dir_.File(name); }
  std::string DatabasePath() const { return dir_.File("game.db"); }
  /// The options file of `style` (0 to 2) in the folder.
  std::string OptionsFile(int style) const {
    return dir_.File("options" + std::to_string(style) + ".rbo");
  }

 private:
  TempDir dir_;
};

}  // namespace ringbook::test
