#pragma once

// What every command shares: where the game world is, how to print, and the
// host services the tool installs for the library.
#include <string>

#include "cli/Output.h"

namespace CLI {
class App;
}

namespace ringbook::cli {

class Context {
 public:
  /// The one context of the running tool.
  static Context& Get();

  /// Adds the global options --db, --data-dir, --json and --tsv to `app`.
  void AddGlobalOptions(CLI::App& app);

  /// The game database: --db, else `RINGBOOK_DB`, else "ringbook.db" in the
  /// data folder.
  std::string DatabasePath() const;
  /// The folder of the options files: --data-dir, else `RINGBOOK_DATA_DIR`,
  /// else the folder of a database named by --db or `RINGBOOK_DB`, else the
  /// user's data folder (`$XDG_DATA_HOME/ringbook`, `~/.local/share/ringbook`,
  /// `%APPDATA%\Ringbook`).
  std::string DataFolder() const;
  /// --json, --tsv or the aligned table.
  OutputFormat Format() const;
  bool Json() const { return json_; }

  /// Hands the library the settings (the database path and the options
  /// folder) and a message sink that keeps what the library shows, so that
  /// `ThrowIfStopped` can turn it into the command's error. Done once.
  void Install();
  /// `Install`, then fails unless the game database exists: the tool never
  /// creates one except in `init`.
  void RequireDatabase();
  /// Fails with the first message the library has shown (such as "Stop in
  /// NLocations.UpdateRecord") since the last call, and forgets them all.
  void ThrowIfStopped();

 private:
  Context() = default;

  std::string db_;
  std::string data_dir_;
  bool json_ = false;
  bool tsv_ = false;
  bool installed_ = false;
};

}  // namespace ringbook::cli
