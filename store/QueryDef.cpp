#include "store/QueryDef.h"

#include "core/Text.h"
#include "store/Recordset.h"

namespace ringbook {

QueryDef::QueryDef(std::shared_ptr<Database> database, QueryDefinition definition)
    : database_(std::move(database)),
      definition_(std::move(definition)),
      values_(definition_.Parameters.size()),
      set_(definition_.Parameters.size(), false) {}

std::size_t QueryDef::IndexOf(const std::string& name) const {
  for (std::size_t i = 0; i < definition_.Parameters.size(); ++i) {
    if (text::CompareNoCase(definition_.Parameters[i], name) == 0) return i;
  }
  throw Error(dberr::kItemNotFound, std::string(kComponentName),
              "The query '" + definition_.Name + "' has no parameter '" + name + "'.");
}

Variant QueryDef::Parameter(const std::string& name) const {
  return values_[IndexOf(name)];
}

void QueryDef::SetParameter(const std::string& name, const Variant& value) {
  const std::size_t i = IndexOf(name);
  values_[i] = value;
  set_[i] = true;
}

std::shared_ptr<Recordset> QueryDef::OpenRecordset(RecordsetType type) {
  if (!database_) {
    throw Error(dberr::kEngine, std::string(kComponentName),
                "The query definition '" + definition_.Name + "' is closed.");
  }
  for (std::size_t i = 0; i < set_.size(); ++i) {
    if (!set_[i]) {
      throw Error(dberr::kTooFewParameters, std::string(kComponentName),
                  "The query '" + definition_.Name + "' needs a value for its parameter '" +
                      definition_.Parameters[i] + "'.");
    }
  }
  return database_->OpenQuery(definition_, values_, type);
}

void QueryDef::Close() {
  database_.reset();
}

}  // namespace ringbook
