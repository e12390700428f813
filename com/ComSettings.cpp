#include "com/ComSettings.h"

#include "com/Convert.h"
#include "com/Environment.h"
#include "core/DefaultSettings.h"

namespace ringbook::com {

std::string ComSettings::DataFolder() {
  std::wstring folder = EnvironmentVariable(L"RINGBOOK_DATA_DIR");
  if (folder.empty()) folder = UserSetting(L"DataFolder");
  if (folder.empty()) return DefaultSettings::DataFolderFromEnvironment();
  while (!folder.empty() && (folder.back() == L'\\' || folder.back() == L'/')) folder.pop_back();
  return Utf8(folder);
}

std::string ComSettings::DatabasePath() {
  std::wstring path = EnvironmentVariable(L"RINGBOOK_DB");
  if (path.empty()) path = UserSetting(L"DatabasePath");
  if (!path.empty()) return Utf8(path);
  return DataFolder() + "\\ringbook.db";
}

std::string ComSettings::OptionsFolder(int16_t) {
  return DataFolder() + "\\";
}

std::string ComSettings::OptionsFileName(int16_t style) {
  return DefaultSettings(std::string(), std::string()).OptionsFileName(style);
}

}  // namespace ringbook::com
