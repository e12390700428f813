#pragma once

#include <windows.h>

#include <string>

namespace ringbook::com {

/// The process's environment variable `name` as it is now (the host may
/// have changed it since the process started); empty when it is not set.
std::wstring EnvironmentVariable(const wchar_t* name);

/// A string value under HKEY_CURRENT_USER\Software\Korvat\Ringbook; empty
/// when the key or the value is missing or not a string.
std::wstring UserSetting(const wchar_t* value_name);

/// The key the server's per-user settings live under.
inline constexpr const wchar_t* kSettingsKey = L"Software\\Korvat\\Ringbook";

}  // namespace ringbook::com
