#include "support/TempDir.h"

#include <atomic>
#include <chrono>
#include <system_error>

namespace ringbook::test {

TempDir::TempDir() {
  static std::atomic<unsigned> counter{0};
  const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
  path_ = std::filesystem::temp_directory_path() /
          ("ringbook-test-" + std::to_string(stamp) + "-" + std::to_string(counter++));
  std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
  std::error_code ec;
  std::filesystem::remove_all(path_, ec);
}

std::string TempDir::File(const std::string& name) const {
  return (path_ / name).string();
}

}  // namespace ringbook::test
