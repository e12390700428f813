#include "bench/BenchSupport.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace ringbook::bench {

namespace fs = std::filesystem;

std::string NameOf(Lcg& rng, const char* const (&syllables)[16]) {
  std::string name;
  const int parts = rng.Between(2, 3);
  for (int i = 0; i < parts; ++i) name += syllables[rng.Below(16)];
  name[0] = static_cast<char>(name[0] - 'a' + 'A');
  return name;
}

const fs::path& Folder(const char* kind) {
  // Never destroyed, so that the removal registered while it is made can
  // still read it.
  static const fs::path* dir = [kind] {
    auto* d = new fs::path(fs::temp_directory_path() / ("ringbook-bench-" + std::string(kind) +
                                                        "-" + std::to_string(::getpid())));
    fs::create_directories(*d);
    std::atexit([] {
      std::error_code ec;
      fs::remove_all(*dir, ec);
    });
    return d;
  }();
  return *dir;
}

sqlite3* OpenDirect(const std::string& path) {
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
    std::fprintf(stderr, "%s: %s\n", path.c_str(), sqlite3_errmsg(db));
    std::abort();
  }
  sqlite3_busy_timeout(db, 500);
  Exec(db, "PRAGMA synchronous = NORMAL");
  Exec(db, "PRAGMA mmap_size = 1073741824");
  return db;
}

void Exec(sqlite3* db, const std::string& sql) {
  char* message = nullptr;
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
    std::fprintf(stderr, "%s: %s\n", sql.c_str(), message ? message : "");
    std::abort();
  }
}

sqlite3_stmt* Prepare(sqlite3* db, const std::string& sql) {
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v3(db, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &stmt, nullptr) !=
      SQLITE_OK) {
    std::fprintf(stderr, "%s: %s\n", sql.c_str(), sqlite3_errmsg(db));
    std::abort();
  }
  return stmt;
}

void Step(sqlite3* db, sqlite3_stmt* stmt) {
  const int rc = sqlite3_step(stmt);
  if (rc != SQLITE_DONE && rc != SQLITE_ROW) {
    std::fprintf(stderr, "%s\n", sqlite3_errmsg(db));
    std::abort();
  }
}

std::string Text(sqlite3_stmt* s, int i) {
  const unsigned char* t = sqlite3_column_text(s, i);
  return t ? reinterpret_cast<const char*>(t) : "";
}

void VectorList::AddItem(const std::string& text, int32_t index) {
  if (index < 0) index = static_cast<int32_t>(items_.size());
  items_.insert(items_.begin() + index, Item{text, 0});
  new_index_ = index;
}

}  // namespace ringbook::bench
