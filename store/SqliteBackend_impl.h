#pragma once

// The embedded backend of the database layer, over SQLite. Private to the
// library: nothing here is installed, and only .cpp files include
// <sqlite3.h>.

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/Variant.h"
#include "store/Database.h"
#include "store/Recordset.h"

struct sqlite3;
struct sqlite3_stmt;

namespace ringbook::sqlite {

/// The game database's own tables: the stored query definitions and the
/// name/value pairs that describe the database (its layout version).
inline constexpr const char* kQueryTable = "StoredQueries";
inline constexpr const char* kInfoTable = "DatabaseInfo";
inline constexpr const char* kSchemaVersionName = "SchemaVersion";

/// How long a statement waits for a lock held by another program.
inline constexpr int kBusyTimeoutMs = 500;

/// Opens a game database (see `Database::Open`). While a `Transaction` is
/// open on the same file on this thread, the database shares its connection.
std::shared_ptr<Database> OpenDatabase(const std::string& path);

class Connection;

/// Opens a connection of its own to the game database at `path` and checks
/// the file as `Database::Open` describes, with the same errors.
std::shared_ptr<Connection> OpenConnection(const std::string& path);

/// The connection of the transaction open on this thread over the file
/// whose resolved name is `file_key` (`Connection::FileKey`); nullptr when
/// there is none. Defined beside `Transaction`.
std::shared_ptr<Connection> TransactionConnection(const std::string& file_key);

/// Raises the `Error` for a failed engine call: the engine's result code
/// mapped to a `dberr` number, `context` followed by the engine's message.
[[noreturn]] void Fail(sqlite3* db, int rc, const std::string& context);

/// Whole-statement execution, for schema work and savepoints.
void Exec(sqlite3* db, const std::string& sql);

/// An identifier in double quotes, for table and column names that come
/// from the database's own definitions.
std::string Quote(const std::string& identifier);

/// How a column's declared type converts values written to it and read
/// from it.
enum class ColumnKind { Any, Int16, Int32, Real, Text, Date, Boolean };
ColumnKind KindOfDeclaredType(const char* declared);

/// A value of a result column as a `Variant`, by storage class and declared
/// kind.
Variant ReadColumn(sqlite3_stmt* stmt, int column, ColumnKind kind);

/// Binds `value` to parameter `index` (1-based).
void BindValue(sqlite3* db, sqlite3_stmt* stmt, int index, const Variant& value);

/// A prepared statement. One made here is finalized when it goes; one
/// taken from a connection (`Connection::Prepare`) goes back to it, reset
/// and unbound, for the next use of the same SQL.
class Statement {
 public:
  Statement() = default;
  Statement(sqlite3* db, const std::string& sql);
  ~Statement();
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&& other) noexcept;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  sqlite3_stmt* get() const { return stmt_; }
  explicit operator bool() const { return stmt_ != nullptr; }
  /// Next row: true while there is one. Resets and raises on failure, the
  /// description saying what was being done to what.
  bool Step(std::string_view what, const std::string& subject);
  /// Ready for a new run, bindings cleared.
  void Reset();

 private:
  friend class Connection;
  Statement(sqlite3* db, sqlite3_stmt* stmt, Connection* home)
      : db_(db), stmt_(stmt), home_(home) {}
  /// Finalizes the statement or hands it back to its connection.
  void Release() noexcept;

  sqlite3* db_ = nullptr;
  sqlite3_stmt* stmt_ = nullptr;
  Connection* home_ = nullptr;  // the connection it goes back to, if any
};

/// Column names mapped to their positions without regard to case, built once
/// so that a lookup by name costs one hash and, as a rule, one comparison
/// instead of a scan: recordsets look their fields up by name on every row.
/// Only names in ASCII are indexed (their case folds byte by byte); when any
/// name is not, or the name looked up is not, `Find` compares with the
/// library's full case folding one name after another, as before.
class ColumnIndex {
 public:
  /// Indexes `names`; the first of equal names wins.
  void Build(const std::vector<std::string>& names);
  /// Position of `name` in the names given to `Build`; -1 when absent.
  int Find(std::string_view name) const;

 private:
  int FindByScan(std::string_view name) const;

  std::vector<std::string> names_;
  // Open addressing over a power-of-two table: position + 1 of the name
  // hashed to the slot or probed on to it, 0 for an empty slot.
  std::vector<int> slots_;
  bool ascii_ = true;
};

/// One column of a table as the engine declares it.
struct ColumnInfo {
  std::string Name;
  ColumnKind Kind = ColumnKind::Any;
};

/// The columns of a table and its integer key column.
struct TableInfo {
  std::string Name;
  std::vector<ColumnInfo> Columns;
  int KeyIndex = -1;
  /// Index of column `name` without regard to case; -1 when there is none.
  /// Valid once `Index` is built from `Columns`.
  int Find(const std::string& name) const { return Index.Find(name); }
  ColumnIndex Index;
};

/// An open connection to one database file, shared by the `Database` object
/// and the recordsets opened from it; it closes when the last one goes.
class Connection {
 public:
  Connection(sqlite3* db, std::string path);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  sqlite3* db() const { return db_; }
  const std::string& Path() const { return path_; }
  /// The file's full name as the engine resolved it: identifies the file
  /// among every connection of the thread.
  const std::string& FileKey() const { return file_key_; }
  /// The table's columns, read once; nullptr when there is no such table.
  const TableInfo* Table(const std::string& name);

  /// A statement for `sql` that no one else is using: one prepared earlier
  /// on this connection and since handed back, or a new one. The stored
  /// queries are opened again and again with only their parameters
  /// changed; preparing each once per connection keeps their cost at that
  /// of the rows they read. Every `Statement` taken here must go before the
  /// connection (the recordsets hold the connection, so theirs do).
  Statement Prepare(const std::string& sql);

 private:
  friend class Statement;
  /// Takes back a statement of `Prepare`, reset and unbound.
  void Return(sqlite3_stmt* stmt) noexcept;

  sqlite3* db_;
  std::string path_;
  std::string file_key_;
  std::map<std::string, std::unique_ptr<TableInfo>> tables_;  // by lower-case name
  // Statements handed back and not in use, the most recently used last;
  // each is taken out while in use, so two users never share one.
  struct IdleStatement {
    std::string sql;
    sqlite3_stmt* stmt;
  };
  std::vector<IdleStatement> idle_;
};

/// A dynaset, table or snapshot over one stored query or table.
///
/// The keyset is built lazily: opening and `Requery` only note that it is
/// due, and it is built when something walks or positions by index. Finding
/// a row by key, reading it, adding, changing and deleting rows cost one
/// indexed statement each, whatever the size of the table.
///
/// So that a keyset built late is the one an immediate build would have
/// given, every change to the base table made on this thread (through any
/// recordset on the same file) while a build is due is logged first: the
/// row's values before the change, or the fact that the row is new. The
/// late build restores those rows inside a savepoint, reads the keys and
/// rolls back; rows added through this recordset then go to the end.
class SqliteRecordset final : public Recordset {
 public:
  SqliteRecordset(std::shared_ptr<Connection> connection, QueryDefinition query,
                  std::vector<Variant> parameters, RecordsetType type);
  ~SqliteRecordset() override;

  int32_t RecordCount() override;
  void MoveFirst() override;
  void MoveNext() override;
  bool Eof() override;
  void FindFirst(const std::string& criterion) override;
  bool NoMatch() const override { return no_match_; }
  void AddNew() override;
  void Edit() override;
  void Update() override;
  void CancelUpdate() override;
  void Delete() override;
  void Requery() override;
  int64_t Bookmark() override;
  void SetBookmark(int64_t bookmark) override;
  int64_t LastModified() override;
  Variant Field(const std::string& name) override;
  void SetField(const std::string& name, const Variant& value) override;
  std::vector<std::string> FieldNames() override;
  void Close() override;

  // Notifications from the thread's change log (see the class comment).
  const std::string& FileKey() const { return connection_->FileKey(); }
  const std::string& BaseTable() const { return base_->Name; }
  /// Row `key` of the base table is about to change or go.
  void BeforeRowChange(int64_t key);
  /// Row `key` was added to the base table; `own` when through this one.
  void AfterRowInsert(int64_t key, bool own);

 private:
  enum class EditMode { None, AddNew, Edit };
  struct Undo {
    bool existed = false;
    std::vector<Variant> row;  // the base table's columns, in table order
  };

  void CheckOpen() const;
  [[noreturn]] void Raise(int32_t number, const std::string& description) const;
  void BindParameters(Statement& stmt);
  /// Builds the keyset if it is due, and puts the position on its row.
  void Materialize();
  /// The query's keys, with the logged changes undone for the read; with
  /// `rows`, also every row's values.
  std::vector<int64_t> ReadKeys(std::vector<std::vector<Variant>>* rows);
  void ApplyUndo(int64_t key, const Undo& undo);
  bool HasKeyNow(int64_t key);
  /// Reads the rows of the keys from position `from` on into `batch_`.
  void FetchBatch(std::size_t from);
  bool IsMember(int64_t key);
  void PositionOn(int64_t key);
  std::size_t FirstLiveFrom(std::size_t index) const;
  int64_t CurrentKey();
  const std::vector<Variant>& CurrentRow();
  int ResultColumn(const std::string& name) const;
  void DropEdit();
  void InvalidateRow() { row_valid_ = false; }
  Statement& WriteStatement(const std::string& sql);

  std::shared_ptr<Connection> connection_;
  QueryDefinition query_;
  std::vector<Variant> parameters_;
  RecordsetType type_;
  const TableInfo* base_ = nullptr;
  bool closed_ = false;

  std::vector<std::string> result_names_;
  ColumnIndex result_index_;  // of result_names_
  std::vector<ColumnKind> result_kinds_;
  int result_key_ = -1;

  Statement keyset_stmt_;  // the stored query itself
  Statement row_stmt_;     // one row of the query by key
  Statement pre_image_stmt_;
  std::map<std::string, Statement> write_stmts_;  // by SQL text

  // The keyset. `fresh_` false means a build is due.
  bool fresh_ = false;
  std::vector<int64_t> keys_;
  std::unordered_map<int64_t, std::size_t> index_;
  std::unordered_set<int64_t> deleted_;
  std::vector<std::vector<Variant>> snapshot_rows_;

  // While a build is due: the change log and the rows added through this one.
  std::unordered_map<int64_t, Undo> undo_;
  std::vector<int64_t> own_inserts_;
  std::unordered_set<int64_t> own_insert_set_;

  // Position: an index into `keys_` when fresh; otherwise the first row
  // (nullopt) or a row found by key.
  std::size_t pos_ = 0;
  std::optional<int64_t> due_key_;
  bool no_match_ = false;

  // The current row's values, read once per visit.
  bool row_valid_ = false;
  int64_t row_key_ = 0;
  std::vector<Variant> row_;

  // While the rows are walked in order (MoveFirst, MoveNext), the rows ahead
  // are read a batch at a time, in one statement; a change made through the
  // thread's recordsets drops the changed row from the batch.
  bool walking_ = true;
  Statement batch_stmt_;
  std::unordered_map<int64_t, std::vector<Variant>> batch_;

  // The row buffer of a pending add or edit, by base-table column index.
  EditMode mode_ = EditMode::None;
  int64_t edit_key_ = 0;
  std::map<int, Variant> buffer_;
  std::optional<int64_t> last_modified_;
};

}  // namespace ringbook::sqlite
