#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Export.h"
#include "core/Object.h"
#include "core/Variant.h"

namespace ringbook {

/// The rows of a stored query or table, with one current row, as the
/// collections walk and change them. A row is identified by its key, which
/// is also its bookmark.
///
/// A dynaset keeps the ordered list of keys as of its last open or
/// `Requery`: rows added through it are appended at the end, rows deleted
/// through it are skipped, and rows changed anywhere keep their place until
/// the next `Requery`; the values read are always the row's current values.
/// Every failure is raised as an `Error` with a number from `dberr`.
class RINGBOOK_EXPORT Recordset : public Object {
 public:
  ~Recordset() override;

  /// The number of rows in the recordset; the component only tests it for
  /// being above 0.
  virtual int32_t RecordCount() = 0;
  virtual void MoveFirst() = 0;
  /// Moves to the next row; at the end, `Eof` becomes true.
  virtual void MoveNext() = 0;
  /// True when there is no current row because the position is past the
  /// last row (an empty recordset is at its end at once).
  virtual bool Eof() = 0;

  /// Makes the first row that matches `criterion` current. The only form
  /// understood is "<KeyColumn> = <whole number>" (the key column's name
  /// without regard to case); anything else fails with `kSyntaxInCriterion`.
  /// When no row matches, `NoMatch` becomes true and the position is kept.
  virtual void FindFirst(const std::string& criterion) = 0;
  virtual bool NoMatch() const = 0;

  /// Starts a new row in the row buffer; unset fields take the table's
  /// defaults. Moving, finding or requerying drops a pending add or edit.
  virtual void AddNew() = 0;
  /// Starts changing the current row in the row buffer.
  virtual void Edit() = 0;
  /// Writes the row buffer. A failed update raises the error, changes
  /// nothing in the table and leaves the add or edit pending.
  virtual void Update() = 0;
  /// Drops a pending add or edit.
  virtual void CancelUpdate() = 0;
  /// Deletes the current row; the position stays on the deleted row, which
  /// can no longer be read, until the next move.
  virtual void Delete() = 0;
  /// Runs the query again (with the values it was opened with) and moves to
  /// the first row.
  virtual void Requery() = 0;

  /// The key of the current row.
  virtual int64_t Bookmark() = 0;
  /// Makes the row with this key current; `kInvalidBookmark` when the row is
  /// not in the recordset.
  virtual void SetBookmark(int64_t bookmark) = 0;
  /// The key of the row last added or changed through this recordset.
  virtual int64_t LastModified() = 0;

  /// The value of field `name` (without regard to case) in the current row,
  /// or in the row buffer while an add or edit is pending: Null for SQL
  /// NULL, whole numbers as Long (Double when beyond 32 bits), reals as
  /// Double, texts as String, dates as Date and yes/no columns as Boolean.
  virtual Variant Field(const std::string& name) = 0;
  /// Sets field `name` of the row buffer, converted to the column's type.
  virtual void SetField(const std::string& name, const Variant& value) = 0;
  /// The names of the fields, in the query's order.
  virtual std::vector<std::string> FieldNames() = 0;

  /// Closes the recordset; further calls fail.
  virtual void Close() = 0;
};

}  // namespace ringbook
