#pragma once

#include <memory>
#include <string>

#include "core/Export.h"

namespace ringbook {

/// A write transaction on one game database, for work that must land whole
/// or not at all, and that is much faster done in one commit than in one
/// commit per row.
///
/// Every collection keeps a connection of its own, so a transaction belongs
/// to the file and the thread rather than to one connection: while it is
/// open, every `Database::Open` of the same file on this thread (and so
/// every collection created meanwhile) shares the transaction's connection,
/// and its changes commit or roll back with the transaction. Databases
/// opened earlier keep their own connections; their writes wait for the
/// transaction and fail as locked (`dberr::kFileInUse`) if it takes too
/// long. A database opened inside keeps the shared connection after the
/// transaction ends, as an ordinary connection.
///
/// Rolls back unless committed: destroying an open transaction undoes every
/// change made inside it. Close the recordsets and collections opened
/// inside before a roll back; their keysets are not rebuilt by it.
class RINGBOOK_EXPORT Transaction {
 public:
  /// Opens the game database at `path` (failing as `Database::Open` does)
  /// and begins a transaction that holds the file's write lock from the
  /// start. Fails with `dberr::kFileInUse` when another connection holds
  /// the lock, and with `dberr::kEngine` when a transaction on that file is
  /// already open on this thread (transactions do not nest).
  explicit Transaction(const std::string& path);
  /// Rolls back when still open; never throws.
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  /// Makes every change permanent and ends the transaction. When the commit
  /// fails, the `Error` is raised and the transaction stays open, so that
  /// destroying it rolls back.
  void Commit();
  /// Undoes every change and ends the transaction.
  void Rollback();
  /// True from construction until `Commit` or `Rollback` succeeds. `Commit`
  /// and `Rollback` fail with `dberr::kEngine` once it is false.
  bool IsOpen() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace ringbook
