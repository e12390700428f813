#include "support/SqlFile.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace ringbook::test {
namespace {

sqlite3* OpenRaw(const std::string& path) {
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
    ADD_FAILURE() << "cannot open " << path << ": " << (db ? sqlite3_errmsg(db) : "");
    sqlite3_close(db);
    return nullptr;
  }
  sqlite3_busy_timeout(db, 2000);
  return db;
}

}  // namespace

void ExecSql(const std::string& path, const std::string& sql) {
  sqlite3* db = OpenRaw(path);
  if (!db) return;
  char* message = nullptr;
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
    ADD_FAILURE() << sql << ": " << (message ? message : "");
  }
  sqlite3_free(message);
  sqlite3_close(db);
}

std::string QuerySql(const std::string& path, const std::string& sql) {
  sqlite3* db = OpenRaw(path);
  if (!db) return {};
  std::string result;
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v2(db, sql.c_str(), -1, &stmt, nullptr) != SQLITE_OK) {
    ADD_FAILURE() << sql << ": " << sqlite3_errmsg(db);
  } else if (sqlite3_step(stmt) == SQLITE_ROW && sqlite3_column_text(stmt, 0)) {
    result = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
  }
  sqlite3_finalize(stmt);
  sqlite3_close(db);
  return result;
}

}  // namespace ringbook::test
