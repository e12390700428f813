#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/Export.h"
#include "core/Object.h"
#include "core/Variant.h"
#include "store/Database.h"

namespace ringbook {

class Recordset;

/// A stored query taken from a database by name, with values for its named
/// parameters. Parameter names are the names the component uses ("Enter
/// GroupID"), matched without regard to case; values are bound to the
/// query's placeholders, never put into its text.
class RINGBOOK_EXPORT QueryDef : public Object {
 public:
  QueryDef(std::shared_ptr<Database> database, QueryDefinition definition);

  const std::string& Name() const { return definition_.Name; }
  const std::string& SQL() const { return definition_.SQL; }
  const std::vector<std::string>& ParameterNames() const { return definition_.Parameters; }
  const QueryDefinition& Definition() const { return definition_; }

  /// The value of parameter `name`; Empty until set. `kItemNotFound` for a
  /// name the query does not have.
  Variant Parameter(const std::string& name) const;
  /// Sets parameter `name` for the next `OpenRecordset`. `kItemNotFound` for
  /// a name the query does not have.
  void SetParameter(const std::string& name, const Variant& value);

  /// Runs the query with the current parameter values. Every parameter must
  /// have been set (`kTooFewParameters` otherwise). The recordset keeps the
  /// values it was opened with, also across `Requery`.
  std::shared_ptr<Recordset> OpenRecordset(RecordsetType type = RecordsetType::Dynaset);

  /// Lets go of the database; further `OpenRecordset` calls fail.
  void Close();

 private:
  std::size_t IndexOf(const std::string& name) const;

  std::shared_ptr<Database> database_;
  QueryDefinition definition_;
  std::vector<Variant> values_;
  std::vector<bool> set_;
};

}  // namespace ringbook
