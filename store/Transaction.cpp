#include "store/Transaction.h"

#include <sqlite3.h>

#include <map>
#include <utility>

#include "core/Error.h"
#include "store/Database.h"
#include "store/SqliteBackend_impl.h"

namespace ringbook {
namespace sqlite {
namespace {

// The connections of the transactions open on this thread, by the resolved
// file name, so that the opens of that file made meanwhile join them.
std::map<std::string, std::weak_ptr<Connection>>& OpenTransactions() {
  thread_local std::map<std::string, std::weak_ptr<Connection>> open;
  return open;
}

}  // namespace

std::shared_ptr<Connection> TransactionConnection(const std::string& file_key) {
  auto& open = OpenTransactions();
  const auto it = open.find(file_key);
  return it == open.end() ? nullptr : it->second.lock();
}

}  // namespace sqlite

struct Transaction::State {
  std::string path;
  std::shared_ptr<sqlite::Connection> connection;

  // Ends the transaction's hold on the file: later opens get connections of
  // their own again.
  void End() {
    if (!connection) return;
    sqlite::OpenTransactions().erase(connection->FileKey());
    connection.reset();
  }
};

namespace {

Error NotOpen(const std::string& path) {
  return Error(dberr::kEngine, std::string(kComponentName),
               "No transaction is open on the database '" + path + "'.");
}

}  // namespace

Transaction::Transaction(const std::string& path) : state_(std::make_unique<State>()) {
  state_->path = path;
  std::shared_ptr<sqlite::Connection> connection = sqlite::OpenConnection(path);
  if (sqlite::TransactionConnection(connection->FileKey())) {
    throw Error(dberr::kEngine, std::string(kComponentName),
                "A transaction is already open on the database '" + path +
                    "' on this thread; transactions do not nest.");
  }
  // IMMEDIATE takes the write lock now, so that a busy file fails here and
  // not halfway through the work.
  sqlite::Exec(connection->db(), "BEGIN IMMEDIATE");
  sqlite::OpenTransactions()[connection->FileKey()] = connection;
  state_->connection = std::move(connection);
}

Transaction::~Transaction() {
  if (!state_->connection) return;
  sqlite3* db = state_->connection->db();
  if (!sqlite3_get_autocommit(db)) sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
  state_->End();
}

void Transaction::Commit() {
  if (!state_->connection) throw NotOpen(state_->path);
  sqlite::Exec(state_->connection->db(), "COMMIT");
  state_->End();
}

void Transaction::Rollback() {
  if (!state_->connection) throw NotOpen(state_->path);
  sqlite3* db = state_->connection->db();
  // A failed statement may already have ended the transaction.
  const bool active = !sqlite3_get_autocommit(db);
  std::shared_ptr<sqlite::Connection> keep = state_->connection;
  state_->End();
  if (active) sqlite::Exec(db, "ROLLBACK");
}

bool Transaction::IsOpen() const {
  return state_->connection != nullptr;
}

}  // namespace ringbook
