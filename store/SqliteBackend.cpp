#include "store/SqliteBackend_impl.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <limits>
#include <system_error>

#include "core/Path.h"
#include "core/Text.h"

namespace ringbook::sqlite {
namespace {

// Above this many logged changes a recordset builds its keyset at once
// rather than keep growing its log.
constexpr std::size_t kMaxLoggedChanges = 4096;

// Rows read in one statement while a recordset is walked in order.
constexpr std::size_t kWalkBatch = 100;

// Statements a connection keeps prepared while no one uses them: enough
// for the stored queries a session runs again and again with each one's
// row, batch and write statements.
constexpr std::size_t kIdleStatements = 64;

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

std::string Upper(std::string s) {
  for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return s;
}

bool SameName(const std::string& a, const std::string& b) {
  return text::CompareNoCase(a, b) == 0;
}

Error DbError(int32_t number, const std::string& description) {
  return Error(number, std::string(kComponentName), description);
}

int32_t NumberFor(int rc) {
  switch (rc & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return dberr::kFileInUse;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return dberr::kUnrecognizedFormat;
    case SQLITE_CANTOPEN:
      return dberr::kFileNotFound;
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return dberr::kReadOnly;
    case SQLITE_MISMATCH:
      return dberr::kConversion;
    case SQLITE_CONSTRAINT:
      switch (rc) {
        case SQLITE_CONSTRAINT_NOTNULL:
          return dberr::kNullNotAllowed;
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_ROWID:
          return dberr::kDuplicateKey;
        default:
          return dberr::kValidationRule;
      }
    default:
      return dberr::kEngine;
  }
}

// A value converted to the type of the column it is written to, as the
// original engine converted on assignment: a text that is not a number
// cannot go into a number column, a number too large for the column
// overflows. Null and Empty write NULL.
Variant ConvertForColumn(const ColumnInfo& column, const Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return Variant::Null();
  try {
    switch (column.Kind) {
      case ColumnKind::Int16:
        return Variant(value.ToInteger());
      case ColumnKind::Int32:
        return Variant(value.ToLong());
      case ColumnKind::Real:
        return Variant(value.ToDouble());
      case ColumnKind::Text:
        return Variant(value.ToString());
      case ColumnKind::Date:
        return Variant::FromDate(value.ToDate());
      case ColumnKind::Boolean:
        return Variant(value.ToBool());
      case ColumnKind::Any:
        if (value.IsObject()) throw Error::TypeMismatch();
        return value;
    }
  } catch (const Error& e) {
    if (e.Number() == errnum::kOverflow) {
      throw DbError(dberr::kNumericOverflow,
                    "Numeric field overflow in the field '" + column.Name + "'.");
    }
    throw DbError(dberr::kConversion, "Data type conversion error in the field '" + column.Name +
                                          "': " + e.Description() + ".");
  }
  return value;
}

// The whole number of a find criterion "<Key> = <number>"; false for any
// other text.
bool ParseKeyCriterion(const std::string& criterion, const std::string& key_column, int64_t& key) {
  const std::size_t eq = criterion.find('=');
  if (eq == std::string::npos) return false;
  const std::string lhs = text::Trim(criterion.substr(0, eq));
  std::string rhs = text::Trim(criterion.substr(eq + 1));
  if (!SameName(lhs, key_column)) return false;
  bool negative = false;
  std::size_t i = 0;
  if (i < rhs.size() && (rhs[i] == '-' || rhs[i] == '+')) negative = rhs[i++] == '-';
  if (i == rhs.size()) return false;
  uint64_t magnitude = 0;
  for (; i < rhs.size(); ++i) {
    if (rhs[i] < '0' || rhs[i] > '9') return false;
    magnitude = magnitude * 10 + static_cast<uint64_t>(rhs[i] - '0');
    if (magnitude > static_cast<uint64_t>(std::numeric_limits<int64_t>::max())) return false;
  }
  key = negative ? -static_cast<int64_t>(magnitude) : static_cast<int64_t>(magnitude);
  return true;
}

// The recordsets open on this thread, so that a change made through one of
// them is logged by every other one over the same table whose keyset build
// is due (see `SqliteRecordset`).
class ChangeLog {
 public:
  ~ChangeLog();
  static ChangeLog* Current();

  void Add(SqliteRecordset* rs) { open_.push_back(rs); }
  void Remove(SqliteRecordset* rs) {
    open_.erase(std::remove(open_.begin(), open_.end(), rs), open_.end());
  }

  void BeforeChange(const SqliteRecordset& writer, int64_t key) {
    for (std::size_t i = 0; i < open_.size(); ++i) {
      SqliteRecordset* rs = open_[i];
      if (Same(*rs, writer)) rs->BeforeRowChange(key);
    }
  }
  void AfterInsert(const SqliteRecordset& writer, int64_t key) {
    for (std::size_t i = 0; i < open_.size(); ++i) {
      SqliteRecordset* rs = open_[i];
      if (Same(*rs, writer)) rs->AfterRowInsert(key, rs == &writer);
    }
  }

 private:
  static bool Same(const SqliteRecordset& a, const SqliteRecordset& b) {
    return a.FileKey() == b.FileKey() && SameName(a.BaseTable(), b.BaseTable());
  }
  std::vector<SqliteRecordset*> open_;
};

thread_local bool tl_change_log_gone = false;
thread_local ChangeLog tl_change_log;

ChangeLog::~ChangeLog() {
  tl_change_log_gone = true;
}

ChangeLog* ChangeLog::Current() {
  return tl_change_log_gone ? nullptr : &tl_change_log;
}

class SqliteDatabase final : public Database {
 public:
  SqliteDatabase(std::shared_ptr<Connection> connection, std::string path)
      : connection_(std::move(connection)), path_(std::move(path)) {}

  const std::string& Name() const override { return path_; }
  void Close() override {
    query_stmt_ = Statement();
    connection_.reset();
  }

 protected:
  bool FindQuery(const std::string& name, QueryDefinition& out) override {
    CheckOpen();
    if (!query_stmt_) {
      query_stmt_ = connection_->Prepare(
          std::string("SELECT Name, SQL, Parameters, BaseTable, KeyColumn FROM ") + kQueryTable +
          " WHERE Name = ?1 COLLATE NOCASE");
    }
    sqlite3_stmt* s = query_stmt_.get();
    sqlite3_bind_text(s, 1, name.c_str(), static_cast<int>(name.size()), SQLITE_TRANSIENT);
    const bool found = query_stmt_.Step("Reading the stored query", name);
    if (found) {
      auto col = [s](int i) {
        const unsigned char* t = sqlite3_column_text(s, i);
        return t ? std::string(reinterpret_cast<const char*>(t)) : std::string();
      };
      out.Name = col(0);
      out.SQL = col(1);
      out.Parameters.clear();
      const std::string params = col(2);
      std::size_t start = 0;
      while (start <= params.size()) {
        std::size_t end = params.find(';', start);
        if (end == std::string::npos) end = params.size();
        std::string p = text::Trim(params.substr(start, end - start));
        if (!p.empty()) out.Parameters.push_back(std::move(p));
        start = end + 1;
      }
      out.BaseTable = col(3);
      out.KeyColumn = col(4);
    }
    query_stmt_.Reset();
    return found;
  }

  std::shared_ptr<Recordset> OpenQuery(const QueryDefinition& query,
                                       const std::vector<Variant>& parameters,
                                       RecordsetType type) override {
    CheckOpen();
    return std::make_shared<SqliteRecordset>(connection_, query, parameters, type);
  }

  std::shared_ptr<Recordset> OpenTable(const std::string& name) override {
    CheckOpen();
    const TableInfo* table = connection_->Table(name);
    if (!table) return nullptr;
    if (table->KeyIndex < 0) {
      throw DbError(dberr::kEngine, "The table '" + table->Name + "' of '" + path_ +
                                        "' has no whole-number key column.");
    }
    const std::string& key = table->Columns[static_cast<std::size_t>(table->KeyIndex)].Name;
    QueryDefinition def;
    def.Name = table->Name;
    def.SQL = "SELECT * FROM " + Quote(table->Name) + " ORDER BY " + Quote(key);
    def.BaseTable = table->Name;
    def.KeyColumn = key;
    return std::make_shared<SqliteRecordset>(connection_, def, std::vector<Variant>{},
                                             RecordsetType::Table);
  }

 private:
  void CheckOpen() const {
    if (!connection_) throw DbError(dberr::kEngine, "The database '" + path_ + "' is closed.");
  }

  std::shared_ptr<Connection> connection_;
  std::string path_;
  Statement query_stmt_;
};

// Reads one whole number from `sql`; raises the open errors named after the
// file.
int64_t QueryNumber(sqlite3* db, const std::string& path, const std::string& sql, bool& found) {
  sqlite3_stmt* stmt = nullptr;
  int rc = sqlite3_prepare_v2(db, sql.c_str(), -1, &stmt, nullptr);
  if (rc == SQLITE_OK) {
    rc = sqlite3_step(stmt);
    found = rc == SQLITE_ROW;
    const int64_t v = found ? sqlite3_column_int64(stmt, 0) : 0;
    if (rc == SQLITE_ROW || rc == SQLITE_DONE) {
      sqlite3_finalize(stmt);
      return v;
    }
  }
  sqlite3_finalize(stmt);
  const int32_t number = NumberFor(rc);
  if (number == dberr::kFileInUse) {
    throw DbError(number, "The database '" + path + "' is locked by another program.");
  }
  if (number == dberr::kUnrecognizedFormat) {
    throw DbError(number, "The file '" + path + "' is not a database.");
  }
  throw DbError(number, "Could not read the database '" + path + "': " + sqlite3_errmsg(db));
}

}  // namespace

// ---------------------------------------------------------------------------
// Helpers

void Fail(sqlite3* db, int rc, const std::string& context) {
  const char* message = db ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
  throw DbError(NumberFor(rc), context + ": " + message + ".");
}

void Exec(sqlite3* db, const std::string& sql) {
  char* message = nullptr;
  const int rc = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message);
  if (rc != SQLITE_OK) {
    std::string text = message ? message : sqlite3_errstr(rc);
    sqlite3_free(message);
    throw DbError(NumberFor(sqlite3_extended_errcode(db)),
                  "The database engine failed: " + text + ".");
  }
}

std::string Quote(const std::string& identifier) {
  std::string out = "\"";
  for (char c : identifier) {
    if (c == '"') out += '"';
    out += c;
  }
  return out + "\"";
}

ColumnKind KindOfDeclaredType(const char* declared) {
  if (!declared) return ColumnKind::Any;
  const std::string t = Upper(declared);
  auto has = [&t](const char* part) { return t.find(part) != std::string::npos; };
  if (has("BOOL") || has("YESNO") || has("BIT")) return ColumnKind::Boolean;
  if (has("DATE") || has("TIME")) return ColumnKind::Date;
  if (has("SMALLINT") || has("INT2") || has("SHORT")) return ColumnKind::Int16;
  if (has("INT")) return ColumnKind::Int32;
  if (has("REAL") || has("FLOA") || has("DOUB") || has("SINGLE")) return ColumnKind::Real;
  if (has("CHAR") || has("TEXT") || has("CLOB")) return ColumnKind::Text;
  return ColumnKind::Any;
}

Variant ReadColumn(sqlite3_stmt* stmt, int column, ColumnKind kind) {
  switch (sqlite3_column_type(stmt, column)) {
    case SQLITE_NULL:
      return Variant::Null();
    case SQLITE_INTEGER: {
      const int64_t v = sqlite3_column_int64(stmt, column);
      if (kind == ColumnKind::Boolean) return Variant(v != 0);
      if (kind == ColumnKind::Date) return Variant::FromDate(static_cast<double>(v));
      if (v >= std::numeric_limits<int32_t>::min() && v <= std::numeric_limits<int32_t>::max()) {
        return Variant(static_cast<int32_t>(v));
      }
      return Variant(static_cast<double>(v));
    }
    case SQLITE_FLOAT: {
      const double v = sqlite3_column_double(stmt, column);
      if (kind == ColumnKind::Boolean) return Variant(v != 0);
      if (kind == ColumnKind::Date) return Variant::FromDate(v);
      return Variant(v);
    }
    default: {
      const void* bytes = sqlite3_column_blob(stmt, column);
      const int size = sqlite3_column_bytes(stmt, column);
      return Variant(std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(size)));
    }
  }
}

void BindValue(sqlite3* db, sqlite3_stmt* stmt, int index, const Variant& value) {
  int rc = SQLITE_OK;
  switch (value.Type()) {
    case VarType::Empty:
    case VarType::Null:
      rc = sqlite3_bind_null(stmt, index);
      break;
    case VarType::Boolean:
      rc = sqlite3_bind_int64(stmt, index, value.ToBool() ? 1 : 0);
      break;
    case VarType::Byte:
    case VarType::Integer:
    case VarType::Long:
      rc = sqlite3_bind_int64(stmt, index, value.ToLong());
      break;
    case VarType::Single:
    case VarType::Double:
    case VarType::Date: {
      const double d = value.ToDouble();
      // Whole numbers go in as integers so that they compare with integer
      // keys and columns exactly.
      if (value.Type() != VarType::Date && std::floor(d) == d && std::fabs(d) < 9.0e15) {
        rc = sqlite3_bind_int64(stmt, index, static_cast<int64_t>(d));
      } else {
        rc = sqlite3_bind_double(stmt, index, d);
      }
      break;
    }
    case VarType::String: {
      const std::string s = value.ToString();
      rc = sqlite3_bind_text(stmt, index, s.data(), static_cast<int>(s.size()), SQLITE_TRANSIENT);
      break;
    }
    case VarType::Object:
      throw Error::TypeMismatch();
  }
  if (rc != SQLITE_OK) Fail(db, rc, "Binding a value");
}

// ---------------------------------------------------------------------------
// Statement

Statement::Statement(sqlite3* db, const std::string& sql) : db_(db) {
  const int rc = sqlite3_prepare_v3(db, sql.c_str(), static_cast<int>(sql.size()),
                                    SQLITE_PREPARE_PERSISTENT, &stmt_, nullptr);
  if (rc != SQLITE_OK) {
    sqlite3_finalize(stmt_);
    stmt_ = nullptr;
    Fail(db, rc, "Preparing \"" + sql + "\"");
  }
}

Statement::~Statement() {
  Release();
}

Statement::Statement(Statement&& other) noexcept
    : db_(other.db_), stmt_(other.stmt_), home_(other.home_) {
  other.stmt_ = nullptr;
}

Statement& Statement::operator=(Statement&& other) noexcept {
  if (this != &other) {
    Release();
    db_ = other.db_;
    stmt_ = other.stmt_;
    home_ = other.home_;
    other.stmt_ = nullptr;
  }
  return *this;
}

void Statement::Release() noexcept {
  if (!stmt_) return;
  if (home_) {
    home_->Return(stmt_);
  } else {
    sqlite3_finalize(stmt_);
  }
  stmt_ = nullptr;
}

bool Statement::Step(std::string_view what, const std::string& subject) {
  const int rc = sqlite3_step(stmt_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  const int code = sqlite3_extended_errcode(db_);
  const std::string message = sqlite3_errmsg(db_);
  Reset();
  throw DbError(NumberFor(code), std::string(what) + " '" + subject + "' failed: " + message + ".");
}

void Statement::Reset() {
  sqlite3_reset(stmt_);
  sqlite3_clear_bindings(stmt_);
}

// ---------------------------------------------------------------------------
// Connection

namespace {

char FoldAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// FNV-1a over the folded bytes; `ascii` false when `s` has a byte that is
// not ASCII.
std::size_t FoldedHash(std::string_view s, bool& ascii) {
  uint64_t h = 14695981039346656037ull;  // cut to size_t at the end
  unsigned char high = 0;
  for (const char c : s) {
    high |= static_cast<unsigned char>(c);
    h ^= static_cast<unsigned char>(FoldAscii(c));
    h *= 1099511628211ull;
  }
  ascii = high < 0x80;
  return static_cast<std::size_t>(h);
}

bool SameFolded(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (FoldAscii(a[i]) != FoldAscii(b[i])) return false;
  }
  return true;
}

}  // namespace

void ColumnIndex::Build(const std::vector<std::string>& names) {
  names_ = names;
  slots_.clear();
  ascii_ = true;
  for (const std::string& name : names_) {
    if (!text::IsAscii(name)) {
      ascii_ = false;
      return;
    }
  }
  std::size_t size = 8;
  while (size < 2 * names_.size()) size *= 2;
  slots_.assign(size, 0);
  const std::size_t mask = size - 1;
  for (std::size_t i = 0; i < names_.size(); ++i) {
    bool ascii = true;
    std::size_t slot = FoldedHash(names_[i], ascii) & mask;
    bool taken = false;
    for (; slots_[slot] != 0; slot = (slot + 1) & mask) {
      if (SameFolded(names_[static_cast<std::size_t>(slots_[slot] - 1)], names_[i])) {
        taken = true;
        break;
      }
    }
    if (!taken) slots_[slot] = static_cast<int>(i) + 1;
  }
}

int ColumnIndex::Find(std::string_view name) const {
  if (!ascii_) return FindByScan(name);
  bool ascii = true;
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = FoldedHash(name, ascii) & mask;
  if (!ascii) return FindByScan(name);
  for (; slots_[slot] != 0; slot = (slot + 1) & mask) {
    const int position = slots_[slot] - 1;
    if (SameFolded(names_[static_cast<std::size_t>(position)], name)) return position;
  }
  return -1;
}

int ColumnIndex::FindByScan(std::string_view name) const {
  for (std::size_t i = 0; i < names_.size(); ++i) {
    if (text::CompareNoCase(names_[i], name) == 0) return static_cast<int>(i);
  }
  return -1;
}

Connection::Connection(sqlite3* db, std::string path) : db_(db), path_(std::move(path)) {
  const char* file = sqlite3_db_filename(db_, "main");
  file_key_ = file && *file ? file : path_;
}

Connection::~Connection() {
  for (const IdleStatement& idle : idle_) sqlite3_finalize(idle.stmt);
  sqlite3_close_v2(db_);
}

Statement Connection::Prepare(const std::string& sql) {
  // Newest first: the statements of the query just closed are likeliest.
  for (std::size_t i = idle_.size(); i-- > 0;) {
    if (idle_[i].sql == sql) {
      sqlite3_stmt* stmt = idle_[i].stmt;
      idle_.erase(idle_.begin() + static_cast<std::ptrdiff_t>(i));
      return Statement(db_, stmt, this);
    }
  }
  Statement fresh(db_, sql);
  fresh.home_ = this;
  return fresh;
}

void Connection::Return(sqlite3_stmt* stmt) noexcept {
  sqlite3_reset(stmt);
  sqlite3_clear_bindings(stmt);
  const char* sql = sqlite3_sql(stmt);
  try {
    idle_.push_back({sql ? sql : "", stmt});
  } catch (...) {
    sqlite3_finalize(stmt);
    return;
  }
  if (idle_.size() > kIdleStatements) {
    sqlite3_finalize(idle_.front().stmt);
    idle_.erase(idle_.begin());
  }
}

const TableInfo* Connection::Table(const std::string& name) {
  const std::string key = Lower(name);
  if (auto it = tables_.find(key); it != tables_.end()) return it->second.get();

  Statement find(db_,
                 "SELECT name FROM sqlite_master WHERE type = 'table' AND "
                 "name = ?1 COLLATE NOCASE");
  sqlite3_bind_text(find.get(), 1, name.c_str(), static_cast<int>(name.size()), SQLITE_TRANSIENT);
  if (!find.Step("Looking up the table", name)) return nullptr;
  auto info = std::make_unique<TableInfo>();
  info->Name = reinterpret_cast<const char*>(sqlite3_column_text(find.get(), 0));
  find.Reset();

  Statement columns(db_, "SELECT name, type, pk FROM pragma_table_info(?1)");
  sqlite3_bind_text(columns.get(), 1, info->Name.c_str(), -1, SQLITE_TRANSIENT);
  int pk_count = 0;
  int pk_index = -1;
  bool pk_integer = false;
  while (columns.Step("Reading the columns of", info->Name)) {
    ColumnInfo c;
    c.Name = reinterpret_cast<const char*>(sqlite3_column_text(columns.get(), 0));
    const char* type = reinterpret_cast<const char*>(sqlite3_column_text(columns.get(), 1));
    c.Kind = KindOfDeclaredType(type);
    if (sqlite3_column_int(columns.get(), 2) > 0) {
      ++pk_count;
      pk_index = static_cast<int>(info->Columns.size());
      pk_integer = type && Upper(type) == "INTEGER";
    }
    info->Columns.push_back(std::move(c));
  }
  // Only an INTEGER PRIMARY KEY is the row's own number, which a new row
  // gets on insert.
  if (pk_count == 1 && pk_integer) info->KeyIndex = pk_index;
  std::vector<std::string> names;
  names.reserve(info->Columns.size());
  for (const ColumnInfo& c : info->Columns) names.push_back(c.Name);
  info->Index.Build(names);
  const TableInfo* result = info.get();
  tables_.emplace(key, std::move(info));
  return result;
}

// ---------------------------------------------------------------------------
// Opening

std::shared_ptr<Database> OpenDatabase(const std::string& path) {
  std::shared_ptr<Connection> connection = OpenConnection(path);
  // Inside a transaction every open of its file joins it: the work of each
  // collection then commits or rolls back with the rest.
  if (std::shared_ptr<Connection> shared = TransactionConnection(connection->FileKey())) {
    connection = std::move(shared);
  }
  return std::make_shared<SqliteDatabase>(std::move(connection), path);
}

std::shared_ptr<Connection> OpenConnection(const std::string& path) {
  std::error_code ec;
  const auto status = std::filesystem::status(PathFromUtf8(path), ec);
  if (!std::filesystem::exists(status)) {
    throw DbError(dberr::kFileNotFound, "Could not find the database file '" + path + "'.");
  }
  if (std::filesystem::is_directory(status)) {
    throw DbError(dberr::kInvalidPath, "'" + path + "' is a folder, not a database file.");
  }

  sqlite3* db = nullptr;
  const int rc = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  if (rc != SQLITE_OK) {
    const std::string message = db ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
    sqlite3_close_v2(db);
    throw DbError(NumberFor(rc), "Could not open the database '" + path + "': " + message + ".");
  }
  auto connection = std::make_shared<Connection>(db, path);
  sqlite3_extended_result_codes(db, 1);
  sqlite3_busy_timeout(db, kBusyTimeoutMs);

  bool found = false;
  const int64_t version = QueryNumber(db, path, "PRAGMA user_version", found);
  if (version == 0) {
    throw DbError(dberr::kUnrecognizedFormat,
                  "The file '" + path + "' is not a game database (it carries no layout version).");
  }
  if (version > kGameSchemaVersion) {
    throw DbError(dberr::kUnrecognizedFormat,
                  "The game database '" + path + "' has layout version " + std::to_string(version) +
                      ", written by a newer version; this library reads up to version " +
                      std::to_string(kGameSchemaVersion) + ".");
  }
  if (!connection->Table(kInfoTable) || !connection->Table(kQueryTable)) {
    throw DbError(dberr::kUnrecognizedFormat,
                  "The game database '" + path + "' is damaged: its own tables are missing.");
  }
  const int64_t recorded = QueryNumber(
      db, path,
      std::string("SELECT Value FROM ") + kInfoTable + " WHERE Name = '" + kSchemaVersionName + "'",
      found);
  if (!found || recorded != version) {
    throw DbError(dberr::kUnrecognizedFormat,
                  "The game database '" + path +
                      "' is damaged: its recorded layout version does not "
                      "match its header.");
  }
  // Write-ahead logging lets every collection keep its own connection open
  // while the others write; commits then need no flush of their own.
  const char* mode = nullptr;
  sqlite3_stmt* jm = nullptr;
  if (sqlite3_prepare_v2(db, "PRAGMA journal_mode", -1, &jm, nullptr) == SQLITE_OK &&
      sqlite3_step(jm) == SQLITE_ROW) {
    mode = reinterpret_cast<const char*>(sqlite3_column_text(jm, 0));
    if (mode && Lower(mode) == "wal") Exec(db, "PRAGMA synchronous = NORMAL");
  }
  sqlite3_finalize(jm);
  // Rows are read by key in the order of each query, which jumps about the
  // file: reading it through a memory map keeps that cheap for any size of
  // table, and every connection shares the system's cache of its pages.
  Exec(db, "PRAGMA mmap_size = 1073741824");
  return connection;
}

// ---------------------------------------------------------------------------
// SqliteRecordset

SqliteRecordset::SqliteRecordset(std::shared_ptr<Connection> connection, QueryDefinition query,
                                 std::vector<Variant> parameters, RecordsetType type)
    : connection_(std::move(connection)),
      query_(std::move(query)),
      parameters_(std::move(parameters)),
      type_(type) {
  base_ = connection_->Table(query_.BaseTable);
  if (!base_) {
    throw DbError(dberr::kTableOrQueryNotFound, "The table '" + query_.BaseTable +
                                                    "' of the query '" + query_.Name +
                                                    "' is not in '" + connection_->Path() + "'.");
  }
  if (base_->KeyIndex < 0 ||
      !SameName(base_->Columns[static_cast<std::size_t>(base_->KeyIndex)].Name, query_.KeyColumn)) {
    throw DbError(dberr::kEngine, "The key '" + query_.KeyColumn + "' of the query '" +
                                      query_.Name + "' is not the whole-number key of '" +
                                      base_->Name + "'.");
  }

  keyset_stmt_ = connection_->Prepare(query_.SQL);
  const int placeholders = sqlite3_bind_parameter_count(keyset_stmt_.get());
  if (placeholders != static_cast<int>(parameters_.size())) {
    throw DbError(dberr::kTooFewParameters,
                  "The query '" + query_.Name + "' has " + std::to_string(placeholders) +
                      " placeholder(s) for " + std::to_string(parameters_.size()) +
                      " parameter value(s).");
  }
  const int count = sqlite3_column_count(keyset_stmt_.get());
  for (int i = 0; i < count; ++i) {
    result_names_.emplace_back(sqlite3_column_name(keyset_stmt_.get(), i));
    ColumnKind kind = KindOfDeclaredType(sqlite3_column_decltype(keyset_stmt_.get(), i));
    if (kind == ColumnKind::Any) {
      // A column the engine cannot trace to a table: take the base table's
      // column of the same name, if any.
      const int b = base_->Find(result_names_.back());
      if (b >= 0) kind = base_->Columns[static_cast<std::size_t>(b)].Kind;
    }
    result_kinds_.push_back(kind);
    if (result_key_ < 0 && SameName(result_names_.back(), query_.KeyColumn)) result_key_ = i;
  }
  result_index_.Build(result_names_);
  if (result_key_ < 0) {
    throw DbError(dberr::kEngine, "The query '" + query_.Name +
                                      "' does not return its key column '" + query_.KeyColumn +
                                      "'.");
  }

  if (type_ == RecordsetType::Snapshot) {
    Materialize();
    return;
  }
  row_stmt_ =
      connection_->Prepare("SELECT * FROM (" + query_.SQL + ") WHERE " + Quote(query_.KeyColumn) +
                           " = ?" + std::to_string(parameters_.size() + 1));
  pre_image_stmt_ = connection_->Prepare("SELECT * FROM " + Quote(base_->Name) + " WHERE " +
                                         Quote(query_.KeyColumn) + " = ?1");
  std::string batch_keys;
  for (std::size_t i = 0; i < kWalkBatch; ++i) {
    if (i) batch_keys += ", ";
    batch_keys += "?" + std::to_string(parameters_.size() + 1 + i);
  }
  batch_stmt_ = connection_->Prepare("SELECT * FROM (" + query_.SQL + ") WHERE " +
                                     Quote(query_.KeyColumn) + " IN (" + batch_keys + ")");
  if (ChangeLog* log = ChangeLog::Current()) log->Add(this);
}

SqliteRecordset::~SqliteRecordset() {
  if (!closed_ && type_ != RecordsetType::Snapshot) {
    if (ChangeLog* log = ChangeLog::Current()) log->Remove(this);
  }
}

void SqliteRecordset::Close() {
  if (closed_) return;
  if (type_ != RecordsetType::Snapshot) {
    if (ChangeLog* log = ChangeLog::Current()) log->Remove(this);
  }
  closed_ = true;
  keyset_stmt_ = Statement();
  row_stmt_ = Statement();
  pre_image_stmt_ = Statement();
  batch_stmt_ = Statement();
  batch_.clear();
  write_stmts_.clear();
  keys_.clear();
  index_.clear();
  snapshot_rows_.clear();
  undo_.clear();
}

void SqliteRecordset::CheckOpen() const {
  if (closed_) Raise(dberr::kEngine, "The recordset of '" + query_.Name + "' is closed.");
}

void SqliteRecordset::Raise(int32_t number, const std::string& description) const {
  throw DbError(number, description);
}

void SqliteRecordset::BindParameters(Statement& stmt) {
  for (std::size_t i = 0; i < parameters_.size(); ++i) {
    BindValue(connection_->db(), stmt.get(), static_cast<int>(i + 1), parameters_[i]);
  }
}

Statement& SqliteRecordset::WriteStatement(const std::string& sql) {
  auto it = write_stmts_.find(sql);
  if (it == write_stmts_.end()) {
    it = write_stmts_.emplace(sql, connection_->Prepare(sql)).first;
  }
  return it->second;
}

std::vector<int64_t> SqliteRecordset::ReadKeys(std::vector<std::vector<Variant>>* rows) {
  sqlite3* db = connection_->db();
  const bool restore = !undo_.empty();
  if (restore) Exec(db, "SAVEPOINT ringbook_keyset");
  std::vector<int64_t> keys;
  try {
    for (const auto& [key, undo] : undo_) ApplyUndo(key, undo);
    BindParameters(keyset_stmt_);
    while (keyset_stmt_.Step("Running the query", query_.Name)) {
      sqlite3_stmt* s = keyset_stmt_.get();
      if (sqlite3_column_type(s, result_key_) == SQLITE_NULL) continue;
      keys.push_back(sqlite3_column_int64(s, result_key_));
      if (rows) {
        std::vector<Variant> row;
        row.reserve(result_names_.size());
        for (std::size_t i = 0; i < result_names_.size(); ++i) {
          row.push_back(ReadColumn(s, static_cast<int>(i), result_kinds_[i]));
        }
        rows->push_back(std::move(row));
      }
    }
    keyset_stmt_.Reset();
  } catch (...) {
    keyset_stmt_.Reset();
    if (restore) {
      sqlite3_exec(db, "ROLLBACK TO ringbook_keyset; RELEASE ringbook_keyset", nullptr, nullptr,
                   nullptr);
    }
    throw;
  }
  if (restore) Exec(db, "ROLLBACK TO ringbook_keyset; RELEASE ringbook_keyset");
  return keys;
}

void SqliteRecordset::ApplyUndo(int64_t key, const Undo& undo) {
  sqlite3* db = connection_->db();
  const std::string& key_name = base_->Columns[static_cast<std::size_t>(base_->KeyIndex)].Name;
  if (!undo.existed) {
    Statement& del =
        WriteStatement("DELETE FROM " + Quote(base_->Name) + " WHERE " + Quote(key_name) + " = ?1");
    sqlite3_bind_int64(del.get(), 1, key);
    del.Step("Restoring the keyset of", query_.Name);
    del.Reset();
    return;
  }
  std::string columns, values;
  for (std::size_t i = 0; i < base_->Columns.size(); ++i) {
    if (i) columns += ", ", values += ", ";
    columns += Quote(base_->Columns[i].Name);
    values += "?" + std::to_string(i + 1);
  }
  Statement& put = WriteStatement("INSERT OR REPLACE INTO " + Quote(base_->Name) + " (" + columns +
                                  ") VALUES (" + values + ")");
  for (std::size_t i = 0; i < undo.row.size(); ++i) {
    BindValue(db, put.get(), static_cast<int>(i + 1), undo.row[i]);
  }
  sqlite3_bind_int64(put.get(), base_->KeyIndex + 1, key);
  put.Step("Restoring the keyset of", query_.Name);
  put.Reset();
}

void SqliteRecordset::Materialize() {
  if (fresh_) return;
  const bool snapshot = type_ == RecordsetType::Snapshot;
  std::vector<std::vector<Variant>> rows;
  std::vector<int64_t> keys = ReadKeys(snapshot ? &rows : nullptr);
  keys_.clear();
  index_.clear();
  snapshot_rows_.clear();
  keys_.reserve(keys.size() + own_inserts_.size());
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (!index_.emplace(keys[i], keys_.size()).second) continue;
    keys_.push_back(keys[i]);
    if (snapshot) snapshot_rows_.push_back(std::move(rows[i]));
  }
  // Rows added through this recordset since it was last queried come last,
  // in the order they were added.
  for (int64_t k : own_inserts_) {
    if (index_.emplace(k, keys_.size()).second) keys_.push_back(k);
  }
  undo_.clear();
  own_inserts_.clear();
  own_insert_set_.clear();
  fresh_ = true;
  if (due_key_) {
    auto it = index_.find(*due_key_);
    pos_ = it != index_.end() ? it->second : keys_.size();
    due_key_.reset();
  } else {
    pos_ = FirstLiveFrom(0);
  }
}

std::size_t SqliteRecordset::FirstLiveFrom(std::size_t index) const {
  while (index < keys_.size() && deleted_.count(keys_[index])) ++index;
  return index;
}

bool SqliteRecordset::HasKeyNow(int64_t key) {
  BindParameters(row_stmt_);
  sqlite3_bind_int64(row_stmt_.get(), static_cast<int>(parameters_.size() + 1), key);
  const bool found = row_stmt_.Step("Reading a row of", query_.Name);
  if (found) {
    row_.clear();
    for (std::size_t i = 0; i < result_kinds_.size(); ++i) {
      row_.push_back(ReadColumn(row_stmt_.get(), static_cast<int>(i), result_kinds_[i]));
    }
    row_valid_ = true;
    row_key_ = key;
  }
  row_stmt_.Reset();
  return found;
}

void SqliteRecordset::FetchBatch(std::size_t from) {
  batch_.clear();
  BindParameters(batch_stmt_);
  int slot = static_cast<int>(parameters_.size()) + 1;
  for (std::size_t i = from, n = 0; i < keys_.size() && n < kWalkBatch; ++i) {
    if (deleted_.count(keys_[i])) continue;
    sqlite3_bind_int64(batch_stmt_.get(), slot++, keys_[i]);
    ++n;
  }
  // Unbound placeholders are NULL and match nothing.
  sqlite3_stmt* s = batch_stmt_.get();
  while (batch_stmt_.Step("Reading rows of", query_.Name)) {
    if (sqlite3_column_type(s, result_key_) == SQLITE_NULL) continue;
    std::vector<Variant> row;
    row.reserve(result_kinds_.size());
    for (std::size_t i = 0; i < result_kinds_.size(); ++i) {
      row.push_back(ReadColumn(s, static_cast<int>(i), result_kinds_[i]));
    }
    batch_.emplace(sqlite3_column_int64(s, result_key_), std::move(row));
  }
  batch_stmt_.Reset();
}

bool SqliteRecordset::IsMember(int64_t key) {
  if (fresh_) return index_.count(key) && !deleted_.count(key);
  if (deleted_.count(key)) return false;
  if (own_insert_set_.count(key)) return true;
  auto it = undo_.find(key);
  if (it == undo_.end()) return HasKeyNow(key);
  if (!it->second.existed) return false;
  // The row changed since the last query: ask the query about the row as it
  // was then.
  sqlite3* db = connection_->db();
  Exec(db, "SAVEPOINT ringbook_member");
  bool member = false;
  try {
    ApplyUndo(key, it->second);
    member = HasKeyNow(key);
  } catch (...) {
    sqlite3_exec(db, "ROLLBACK TO ringbook_member; RELEASE ringbook_member", nullptr, nullptr,
                 nullptr);
    InvalidateRow();
    throw;
  }
  Exec(db, "ROLLBACK TO ringbook_member; RELEASE ringbook_member");
  InvalidateRow();
  return member;
}

void SqliteRecordset::PositionOn(int64_t key) {
  if (fresh_) {
    pos_ = index_.at(key);
  } else {
    due_key_ = key;
  }
}

int64_t SqliteRecordset::CurrentKey() {
  if (!fresh_) {
    if (due_key_) {
      if (deleted_.count(*due_key_)) {
        Raise(dberr::kRecordDeleted, "The current row of '" + query_.Name + "' has been deleted.");
      }
      return *due_key_;
    }
    Materialize();
  }
  if (pos_ >= keys_.size()) {
    Raise(dberr::kNoCurrentRecord, "There is no current row in '" + query_.Name + "'.");
  }
  const int64_t key = keys_[pos_];
  if (deleted_.count(key)) {
    Raise(dberr::kRecordDeleted, "The current row of '" + query_.Name + "' has been deleted.");
  }
  return key;
}

const std::vector<Variant>& SqliteRecordset::CurrentRow() {
  const int64_t key = CurrentKey();
  if (type_ == RecordsetType::Snapshot) return snapshot_rows_[pos_];
  if (row_valid_ && row_key_ == key) return row_;
  if (walking_ && fresh_) {
    auto it = batch_.find(key);
    if (it == batch_.end()) {
      FetchBatch(pos_);
      it = batch_.find(key);
    }
    if (it != batch_.end()) {
      row_ = std::move(it->second);
      batch_.erase(it);
      row_valid_ = true;
      row_key_ = key;
      return row_;
    }
  }
  if (!HasKeyNow(key)) {
    Raise(dberr::kRecordDeleted,
          "The row " + std::to_string(key) + " of '" + query_.Name + "' has been deleted.");
  }
  return row_;
}

int SqliteRecordset::ResultColumn(const std::string& name) const {
  return result_index_.Find(name);
}

void SqliteRecordset::DropEdit() {
  mode_ = EditMode::None;
  buffer_.clear();
}

int32_t SqliteRecordset::RecordCount() {
  CheckOpen();
  Materialize();
  return static_cast<int32_t>(keys_.size() - deleted_.size());
}

void SqliteRecordset::MoveFirst() {
  CheckOpen();
  DropEdit();
  InvalidateRow();
  batch_.clear();
  walking_ = true;
  Materialize();
  pos_ = FirstLiveFrom(0);
  if (pos_ >= keys_.size()) {
    Raise(dberr::kNoCurrentRecord, "There is no row in '" + query_.Name + "' to move to.");
  }
}

void SqliteRecordset::MoveNext() {
  CheckOpen();
  DropEdit();
  InvalidateRow();
  walking_ = true;
  Materialize();
  if (pos_ >= keys_.size()) {
    Raise(dberr::kNoCurrentRecord, "There is no row after the last one in '" + query_.Name + "'.");
  }
  pos_ = FirstLiveFrom(pos_ + 1);
}

bool SqliteRecordset::Eof() {
  CheckOpen();
  if (!fresh_ && due_key_) return false;
  Materialize();
  return pos_ >= keys_.size();
}

void SqliteRecordset::FindFirst(const std::string& criterion) {
  CheckOpen();
  DropEdit();
  int64_t key = 0;
  if (!ParseKeyCriterion(criterion, query_.KeyColumn, key)) {
    Raise(dberr::kSyntaxInCriterion, "The criterion \"" + criterion + "\" is not understood; '" +
                                         query_.Name + "' is searched only by \"" +
                                         query_.KeyColumn + " = <number>\".");
  }
  InvalidateRow();
  if (IsMember(key)) {
    no_match_ = false;
    walking_ = false;
    PositionOn(key);
  } else {
    no_match_ = true;
  }
}

void SqliteRecordset::AddNew() {
  CheckOpen();
  if (type_ == RecordsetType::Snapshot) {
    Raise(dberr::kReadOnly, "The snapshot of '" + query_.Name + "' cannot be changed.");
  }
  DropEdit();
  mode_ = EditMode::AddNew;
}

void SqliteRecordset::Edit() {
  CheckOpen();
  if (type_ == RecordsetType::Snapshot) {
    Raise(dberr::kReadOnly, "The snapshot of '" + query_.Name + "' cannot be changed.");
  }
  DropEdit();
  CurrentRow();  // the row must still be there
  edit_key_ = CurrentKey();
  mode_ = EditMode::Edit;
}

void SqliteRecordset::CancelUpdate() {
  CheckOpen();
  DropEdit();
}

void SqliteRecordset::SetField(const std::string& name, const Variant& value) {
  CheckOpen();
  if (mode_ == EditMode::None) {
    Raise(dberr::kNoEditInProgress,
          "The field '" + name + "' can be set only after AddNew or Edit.");
  }
  const int col = base_->Find(name);
  if (col < 0) {
    if (ResultColumn(name) >= 0) {
      Raise(dberr::kFieldNotUpdatable,
            "The field '" + name + "' of '" + query_.Name + "' is computed and cannot be set.");
    }
    Raise(dberr::kItemNotFound, "There is no field '" + name + "' in '" + query_.Name + "'.");
  }
  if (col == base_->KeyIndex) {
    Raise(dberr::kFieldNotUpdatable, "The key field '" + name + "' is numbered by the database.");
  }
  buffer_[col] = ConvertForColumn(base_->Columns[static_cast<std::size_t>(col)], value);
}

void SqliteRecordset::Update() {
  CheckOpen();
  if (mode_ == EditMode::None) {
    Raise(dberr::kNoEditInProgress, "Update of '" + query_.Name + "' without AddNew or Edit.");
  }
  sqlite3* db = connection_->db();
  const std::string& key_name = base_->Columns[static_cast<std::size_t>(base_->KeyIndex)].Name;
  ChangeLog* log = ChangeLog::Current();

  if (mode_ == EditMode::Edit) {
    if (!buffer_.empty()) {
      std::string sql = "UPDATE " + Quote(base_->Name) + " SET ";
      int n = 0;
      for (const auto& [col, value] : buffer_) {
        if (n) sql += ", ";
        sql += Quote(base_->Columns[static_cast<std::size_t>(col)].Name) + " = ?" +
               std::to_string(++n);
      }
      sql += " WHERE " + Quote(key_name) + " = ?" + std::to_string(n + 1);
      // Log before binding: a recordset that builds its keyset while logging
      // may use the same cached statement.
      if (log) log->BeforeChange(*this, edit_key_);
      Statement& stmt = WriteStatement(sql);
      n = 0;
      for (const auto& [col, value] : buffer_) BindValue(db, stmt.get(), ++n, value);
      sqlite3_bind_int64(stmt.get(), n + 1, edit_key_);
      stmt.Step("Writing a row of", base_->Name);
      stmt.Reset();
      if (sqlite3_changes(db) == 0) {
        Raise(dberr::kRecordDeleted, "The row " + std::to_string(edit_key_) + " of '" +
                                         base_->Name + "' has been deleted.");
      }
    }
    last_modified_ = edit_key_;
    DropEdit();
    InvalidateRow();
    return;
  }

  std::string sql;
  if (buffer_.empty()) {
    sql = "INSERT INTO " + Quote(base_->Name) + " DEFAULT VALUES";
  } else {
    std::string columns, values;
    int n = 0;
    for (const auto& [col, value] : buffer_) {
      if (n) columns += ", ", values += ", ";
      columns += Quote(base_->Columns[static_cast<std::size_t>(col)].Name);
      values += "?" + std::to_string(++n);
    }
    sql = "INSERT INTO " + Quote(base_->Name) + " (" + columns + ") VALUES (" + values + ")";
  }
  Statement& stmt = WriteStatement(sql);
  int n = 0;
  for (const auto& [col, value] : buffer_) BindValue(db, stmt.get(), ++n, value);
  stmt.Step("Writing a row of", base_->Name);
  stmt.Reset();
  const int64_t key = sqlite3_last_insert_rowid(db);
  last_modified_ = key;
  DropEdit();
  if (log) {
    log->AfterInsert(*this, key);
  } else {
    AfterRowInsert(key, true);
  }
}

void SqliteRecordset::Delete() {
  CheckOpen();
  if (type_ == RecordsetType::Snapshot) {
    Raise(dberr::kReadOnly, "The snapshot of '" + query_.Name + "' cannot be changed.");
  }
  DropEdit();
  const int64_t key = CurrentKey();
  sqlite3* db = connection_->db();
  const std::string& key_name = base_->Columns[static_cast<std::size_t>(base_->KeyIndex)].Name;
  if (ChangeLog* log = ChangeLog::Current()) log->BeforeChange(*this, key);
  Statement& stmt =
      WriteStatement("DELETE FROM " + Quote(base_->Name) + " WHERE " + Quote(key_name) + " = ?1");
  sqlite3_bind_int64(stmt.get(), 1, key);
  stmt.Step("Deleting a row of", base_->Name);
  stmt.Reset();
  if (sqlite3_changes(db) == 0) {
    Raise(dberr::kRecordDeleted,
          "The row " + std::to_string(key) + " of '" + base_->Name + "' has been deleted.");
  }
  deleted_.insert(key);
  InvalidateRow();
}

void SqliteRecordset::Requery() {
  CheckOpen();
  DropEdit();
  InvalidateRow();
  // Back on the first row: a walk from there reads ahead.
  walking_ = true;
  batch_.clear();
  fresh_ = false;
  due_key_.reset();
  deleted_.clear();
  undo_.clear();
  own_inserts_.clear();
  own_insert_set_.clear();
  keys_.clear();
  index_.clear();
  // A snapshot reads its rows at once; a dynaset builds its keyset when it
  // is next walked.
  if (type_ == RecordsetType::Snapshot) Materialize();
}

int64_t SqliteRecordset::Bookmark() {
  CheckOpen();
  return CurrentKey();
}

void SqliteRecordset::SetBookmark(int64_t bookmark) {
  CheckOpen();
  DropEdit();
  InvalidateRow();
  if (!IsMember(bookmark)) {
    Raise(dberr::kInvalidBookmark,
          "The row " + std::to_string(bookmark) + " is not in '" + query_.Name + "'.");
  }
  walking_ = false;
  PositionOn(bookmark);
}

int64_t SqliteRecordset::LastModified() {
  CheckOpen();
  if (!last_modified_) {
    Raise(dberr::kNoCurrentRecord,
          "No row has been added or changed through the recordset of '" + query_.Name + "'.");
  }
  return *last_modified_;
}

Variant SqliteRecordset::Field(const std::string& name) {
  CheckOpen();
  const int idx = ResultColumn(name);
  if (mode_ != EditMode::None) {
    const int col = base_->Find(name);
    if (col >= 0) {
      if (auto it = buffer_.find(col); it != buffer_.end()) return it->second;
    }
    if (mode_ == EditMode::AddNew) {
      if (col >= 0 || idx >= 0) return Variant::Null();
    }
  }
  if (idx < 0) {
    Raise(dberr::kItemNotFound, "There is no field '" + name + "' in '" + query_.Name + "'.");
  }
  return CurrentRow()[static_cast<std::size_t>(idx)];
}

std::vector<std::string> SqliteRecordset::FieldNames() {
  CheckOpen();
  return result_names_;
}

void SqliteRecordset::BeforeRowChange(int64_t key) {
  if (row_valid_ && row_key_ == key) InvalidateRow();
  batch_.erase(key);
  if (fresh_ || undo_.count(key)) return;
  sqlite3_bind_int64(pre_image_stmt_.get(), 1, key);
  if (pre_image_stmt_.Step("Logging a change of", base_->Name)) {
    Undo undo;
    undo.existed = true;
    const int count = sqlite3_column_count(pre_image_stmt_.get());
    for (int i = 0; i < count; ++i) {
      undo.row.push_back(ReadColumn(pre_image_stmt_.get(), i, ColumnKind::Any));
    }
    undo_.emplace(key, std::move(undo));
  }
  pre_image_stmt_.Reset();
  if (undo_.size() > kMaxLoggedChanges) Materialize();
}

void SqliteRecordset::AfterRowInsert(int64_t key, bool own) {
  if (fresh_) {
    // Rows added through this recordset join its keyset at the end; rows
    // added elsewhere wait for the next query.
    if (own && index_.emplace(key, keys_.size()).second) keys_.push_back(key);
    return;
  }
  undo_.try_emplace(key, Undo{});
  if (own && own_insert_set_.insert(key).second) own_inserts_.push_back(key);
  if (undo_.size() > kMaxLoggedChanges) Materialize();
}

}  // namespace ringbook::sqlite
