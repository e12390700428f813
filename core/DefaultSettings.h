#pragma once

#include <string>

#include "core/HostServices.h"

namespace ringbook {

/// The default settings of a console or test host.
///
/// The data folder is `RINGBOOK_DATA_DIR` when set; otherwise
/// `%APPDATA%\Ringbook` on Windows and `$XDG_DATA_HOME/ringbook` (falling
/// back to `~/.local/share/ringbook`) elsewhere. The database is
/// `RINGBOOK_DB` when set, otherwise "ringbook.db" in the data folder. The
/// options file of style s is "options<s>.rbo" in the data folder.
class RINGBOOK_EXPORT DefaultSettings : public ISettings {
 public:
  /// Reads the environment as above.
  DefaultSettings();
  /// Fixed paths, as the command-line tool and tests give them.
  DefaultSettings(std::string database_path, std::string data_folder);

  std::string DatabasePath() override { return database_path_; }
  std::string OptionsFolder(int16_t style) override;
  std::string OptionsFileName(int16_t style) override;

  /// The data folder the environment names, without a trailing separator.
  static std::string DataFolderFromEnvironment();

 private:
  std::string database_path_;
  std::string data_folder_;
};

}  // namespace ringbook
