#include "com/Environment.h"

namespace ringbook::com {

std::wstring EnvironmentVariable(const wchar_t* name) {
  std::wstring value(64, L'\0');
  for (;;) {
    const DWORD n = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    if (n == 0) return std::wstring();
    if (n < value.size()) {
      value.resize(n);
      return value;
    }
    value.resize(n);  // n counts the terminator when the buffer was short
  }
}

std::wstring UserSetting(const wchar_t* value_name) {
  DWORD type = 0;
  DWORD bytes = 0;
  if (RegGetValueW(HKEY_CURRENT_USER, kSettingsKey, value_name,
                   RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ, &type, nullptr, &bytes) != ERROR_SUCCESS ||
      bytes < sizeof(wchar_t)) {
    return std::wstring();
  }
  std::wstring value(bytes / sizeof(wchar_t), L'\0');
  if (RegGetValueW(HKEY_CURRENT_USER, kSettingsKey, value_name,
                   RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ, &type, value.data(),
                   &bytes) != ERROR_SUCCESS) {
    return std::wstring();
  }
  value.resize(bytes / sizeof(wchar_t));
  while (!value.empty() && value.back() == L'\0') value.pop_back();
  return value;
}

}  // namespace ringbook::com
