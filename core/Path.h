#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace ringbook {

/// A filesystem path from a UTF-8 text, on every platform.
inline std::filesystem::path PathFromUtf8(std::string_view utf8) {
  return std::filesystem::path(
      std::u8string(reinterpret_cast<const char8_t*>(utf8.data()), utf8.size()));
}

/// The UTF-8 text of a filesystem path.
inline std::string PathToUtf8(const std::filesystem::path& path) {
  const std::u8string s = path.u8string();
  return std::string(reinterpret_cast<const char*>(s.data()), s.size());
}

/// `fopen` of a UTF-8 path (wide on Windows, where the narrow form would take
/// the ANSI code page).
inline std::FILE* OpenFileUtf8(const std::string& utf8, const char* mode) {
#ifdef _WIN32
  const std::wstring wide = PathFromUtf8(utf8).wstring();
  std::wstring wmode(mode, mode + std::char_traits<char>::length(mode));
  return _wfopen(wide.c_str(), wmode.c_str());
#else
  return std::fopen(utf8.c_str(), mode);
#endif
}

}  // namespace ringbook
