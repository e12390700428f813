#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/Error.h"
#include "core/Export.h"
#include "core/Object.h"
#include "core/Variant.h"

namespace ringbook {

class QueryDef;
class Recordset;

/// Error numbers of the database layer, in the range the original database
/// engine used, so that a host that tests `Err.Number` keeps working. Every
/// database failure is raised as an `Error` with one of these numbers; the
/// description names the file, query, table or field concerned.
namespace dberr {
inline constexpr int32_t kNoEditInProgress = 3020;  // Update without AddNew or Edit
inline constexpr int32_t kNoCurrentRecord = 3021;
inline constexpr int32_t kDuplicateKey = 3022;
inline constexpr int32_t kFileNotFound = 3024;
inline constexpr int32_t kReadOnly = 3027;
inline constexpr int32_t kInvalidPath = 3044;
inline constexpr int32_t kFileInUse = 3045;
inline constexpr int32_t kTooFewParameters = 3061;
inline constexpr int32_t kSyntaxInCriterion = 3077;
inline constexpr int32_t kTableOrQueryNotFound = 3078;
inline constexpr int32_t kInvalidBookmark = 3159;
inline constexpr int32_t kFieldNotUpdatable = 3164;
inline constexpr int32_t kRecordDeleted = 3167;
inline constexpr int32_t kDatabaseExists = 3204;
inline constexpr int32_t kItemNotFound = 3265;
inline constexpr int32_t kNullNotAllowed = 3314;
inline constexpr int32_t kValidationRule = 3317;
inline constexpr int32_t kUnrecognizedFormat = 3343;
inline constexpr int32_t kNumericOverflow = 3349;
inline constexpr int32_t kConversion = 3421;
inline constexpr int32_t kEngine = 3000;  // any other failure of the engine
}  // namespace dberr

/// The layout version of the game database that this library reads and
/// writes. A database whose version is higher was written by a newer
/// library and is refused on open.
inline constexpr int32_t kGameSchemaVersion = 1;

/// How a recordset holds its rows.
enum class RecordsetType : int32_t {
  /// A plain table opened by name (rows in key order); otherwise a dynaset.
  Table = 1,
  /// Keeps the ordered list of keys and reads each row's current values when
  /// it becomes current. Updatable. The default.
  Dynaset = 2,
  /// Reads every row once when opened (and on `Requery`); read-only.
  Snapshot = 4,
};

/// A stored query as the database keeps it: the SQL text with numbered
/// placeholders ?1..?N standing for the parameters in `Parameters` order,
/// the table that rows are added to and changed in, and the key column that
/// identifies a row (an integer, present among the query's columns).
struct QueryDefinition {
  std::string Name;
  std::string SQL;
  std::vector<std::string> Parameters;
  std::string BaseTable;
  std::string KeyColumn;
};

/// An open game database. Obtained from `Database::Open`; kept alive by the
/// recordsets opened from it. Used on one thread (the thread that opened it).
class RINGBOOK_EXPORT Database : public Object, public std::enable_shared_from_this<Database> {
 public:
  ~Database() override;

  /// Opens the game database at `path` for reading and writing, with the
  /// embedded engine. Opening never creates a file. Fails with an `Error`
  /// whose description names `path` when the file is missing
  /// (`kFileNotFound`), is not a database or not a game database, or was
  /// written by a newer library (`kUnrecognizedFormat`), or is locked by
  /// another program (`kFileInUse`).
  static std::shared_ptr<Database> Open(const std::string& path);

  /// The path the database was opened with.
  virtual const std::string& Name() const = 0;

  /// The stored query `name` (matched without regard to case), with every
  /// parameter unset. Fails with `kItemNotFound` naming the query and the
  /// database when there is none.
  std::shared_ptr<QueryDef> QueryDefs(const std::string& name);

  /// Opens a stored query without parameters, or else a table, by name
  /// (without regard to case). A table opens as `RecordsetType::Table`: all
  /// its columns, in key order, updatable. Fails with
  /// `kTableOrQueryNotFound` when neither exists.
  std::shared_ptr<Recordset> OpenRecordset(const std::string& name,
                                           RecordsetType type = RecordsetType::Dynaset);

  /// Lets go of the connection; it closes when the last recordset opened
  /// from it is closed too. Further calls on this object fail.
  virtual void Close() = 0;

 protected:
  friend class QueryDef;

  /// The definition of stored query `name`, or false when there is none.
  virtual bool FindQuery(const std::string& name, QueryDefinition& out) = 0;
  /// Opens the query with its parameter values (in `Parameters` order).
  virtual std::shared_ptr<Recordset> OpenQuery(const QueryDefinition& query,
                                               const std::vector<Variant>& parameters,
                                               RecordsetType type) = 0;
  /// Opens table `name`, or returns nullptr when there is no such table.
  virtual std::shared_ptr<Recordset> OpenTable(const std::string& name) = 0;
};

}  // namespace ringbook
