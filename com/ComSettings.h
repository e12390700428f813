#pragma once

#include <cstdint>
#include <string>

#include "core/HostServices.h"

namespace ringbook::com {

/// The server's settings object: where the game database and the per-style
/// options files are, configurable without code. Each value is looked up
/// when asked for, in this order:
///
/// - database path: the environment variable RINGBOOK_DB; else the value
///   "DatabasePath" under HKEY_CURRENT_USER\Software\Korvat\Ringbook; else
///   "ringbook.db" in the data folder;
/// - data folder (options files "options<style>.rbo"): RINGBOOK_DATA_DIR;
///   else the value "DataFolder" under the same key; else
///   "%APPDATA%\Ringbook".
class ComSettings : public ISettings {
 public:
  std::string DatabasePath() override;
  std::string OptionsFolder(int16_t style) override;
  std::string OptionsFileName(int16_t style) override;

  /// The data folder, without a trailing separator.
  static std::string DataFolder();
};

}  // namespace ringbook::com
