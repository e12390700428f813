#include "core/DefaultUtility.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "core/Error.h"
#include "core/Path.h"

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace ringbook {
namespace fs = std::filesystem;

namespace {

// Forces the file's bytes to disk so that the rename cannot expose a target
// whose data is still only in the cache.
bool FlushToDisk(const std::string& path) {
#ifdef _WIN32
  FILE* f = OpenFileUtf8(path, "r+b");
  if (!f) return false;
  const bool ok = std::fflush(f) == 0 && _commit(_fileno(f)) == 0;
  std::fclose(f);
  return ok;
#else
  const int fd = ::open(path.c_str(), O_RDONLY);
  if (fd < 0) return false;
  const bool ok = ::fsync(fd) == 0;
  ::close(fd);
  return ok;
#endif
}

[[noreturn]] void Fail(const std::string& what) {
  throw Error(errnum::kStreamWrite, "Utility:ReplaceFile", "Write Error: " + what);
}

}  // namespace

bool DefaultUtility::FileExists(const std::string& path) {
  std::error_code ec;
  return !path.empty() && fs::exists(PathFromUtf8(path), ec);
}

bool DefaultUtility::CheckPicturePath(std::string& path) {
  std::error_code ec;
  return !path.empty() && fs::is_regular_file(PathFromUtf8(path), ec);
}

void DefaultUtility::ReplaceFile(const std::string& target, const std::string& temporary) {
  const fs::path tmp = PathFromUtf8(temporary);
  std::error_code ec;
  if (!fs::is_regular_file(tmp, ec)) Fail("no temporary file " + temporary);
  if (!FlushToDisk(temporary)) Fail("cannot flush " + temporary);
  fs::rename(tmp, PathFromUtf8(target), ec);
  if (ec) Fail(ec.message());
#ifndef _WIN32
  // Make the rename itself durable.
  fs::path dir = PathFromUtf8(target).parent_path();
  if (dir.empty()) dir = ".";
  const int dfd = ::open(dir.c_str(), O_RDONLY);
  if (dfd >= 0) {
    ::fsync(dfd);
    ::close(dfd);
  }
#endif
}

std::string DefaultUtility::CollapseSeparators(const std::string& text,
                                               const std::string& separator) {
  if (separator.empty()) return text;
  const std::string doubled = separator + separator;
  std::string out = text;
  for (auto pos = out.find(doubled); pos != std::string::npos; pos = out.find(doubled, pos)) {
    out.erase(pos, separator.size());
  }
  return out;
}

std::string DefaultUtility::TrimSeparators(const std::string& text, const std::string& separator) {
  if (separator.empty()) return text;
  std::string_view v = text;
  while (v.size() >= separator.size() && v.substr(0, separator.size()) == separator) {
    v.remove_prefix(separator.size());
  }
  while (v.size() >= separator.size() && v.substr(v.size() - separator.size()) == separator) {
    v.remove_suffix(separator.size());
  }
  return std::string(v);
}

}  // namespace ringbook
