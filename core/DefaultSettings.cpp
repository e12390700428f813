#include "core/DefaultSettings.h"

#include <cstdlib>
#include <filesystem>

namespace ringbook {
namespace {

std::string Env(const char* name) {
  const char* v = std::getenv(name);
  return v ? std::string(v) : std::string();
}

}  // namespace

std::string DefaultSettings::DataFolderFromEnvironment() {
  if (auto dir = Env("RINGBOOK_DATA_DIR"); !dir.empty()) return dir;
#ifdef _WIN32
  if (auto appdata = Env("APPDATA"); !appdata.empty()) return appdata + "\\Ringbook";
  return "Ringbook";
#else
  if (auto xdg = Env("XDG_DATA_HOME"); !xdg.empty()) return xdg + "/ringbook";
  if (auto home = Env("HOME"); !home.empty()) return home + "/.local/share/ringbook";
  return "ringbook";
#endif
}

DefaultSettings::DefaultSettings() : data_folder_(DataFolderFromEnvironment()) {
  database_path_ = Env("RINGBOOK_DB");
  if (database_path_.empty()) {
    database_path_ = (std::filesystem::path(data_folder_) / "ringbook.db").string();
  }
}

DefaultSettings::DefaultSettings(std::string database_path, std::string data_folder)
    : database_path_(std::move(database_path)), data_folder_(std::move(data_folder)) {}

std::string DefaultSettings::OptionsFolder(int16_t) {
  std::string folder = data_folder_;
  const char sep = static_cast<char>(std::filesystem::path::preferred_separator);
  if (!folder.empty() && folder.back() != '/' && folder.back() != sep) folder.push_back(sep);
  return folder;
}

std::string DefaultSettings::OptionsFileName(int16_t style) {
  return "options" + std::to_string(style) + ".rbo";
}

}  // namespace ringbook
