#include "store/Database.h"

#include "store/QueryDef.h"
#include "store/Recordset.h"
#include "store/SqliteBackend_impl.h"

namespace ringbook {

Database::~Database() = default;
Recordset::~Recordset() = default;

std::shared_ptr<Database> Database::Open(const std::string& path) {
  return sqlite::OpenDatabase(path);
}

std::shared_ptr<QueryDef> Database::QueryDefs(const std::string& name) {
  QueryDefinition definition;
  if (!FindQuery(name, definition)) {
    throw Error(dberr::kItemNotFound, std::string(kComponentName),
                "The query '" + name + "' is not in the database '" + Name() + "'.");
  }
  return std::make_shared<QueryDef>(shared_from_this(), std::move(definition));
}

std::shared_ptr<Recordset> Database::OpenRecordset(const std::string& name, RecordsetType type) {
  QueryDefinition definition;
  if (FindQuery(name, definition)) {
    if (!definition.Parameters.empty()) {
      throw Error(dberr::kTooFewParameters, std::string(kComponentName),
                  "The query '" + name + "' needs " + std::to_string(definition.Parameters.size()) +
                      " parameter(s); open it through its query definition.");
    }
    return OpenQuery(definition, {}, type);
  }
  if (auto table = OpenTable(name)) return table;
  throw Error(dberr::kTableOrQueryNotFound, std::string(kComponentName),
              "There is no table or query '" + name + "' in the database '" + Name() + "'.");
}

}  // namespace ringbook
