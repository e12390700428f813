#pragma once

// What the record commands share: finding a record by ID without taking
// another row for it, walking every key of a stored query, and reporting a
// change.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "cli/Errors.h"
#include "cli/Fields.h"
#include "core/Error.h"
#include "store/Database.h"

namespace ringbook::cli {

/// The record of `id` from `collection`. The collections' `Item` answers an
/// unknown ID with some other row or an empty record, so the record's own
/// ID is checked: fails with "no <word> with ID <id>".
template <class Record, class Collection>
std::shared_ptr<Record> FindRecord(Collection& collection, int32_t id, const std::string& word) {
  std::shared_ptr<Record> record;
  if (id > 0) {
    try {
      record = collection.Item(id);
    } catch (const Error& e) {
      // An empty table has no row to read at all.
      if (e.Number() != dberr::kNoCurrentRecord) throw;
    }
  }
  if (!record || record->ID() != id) {
    throw CommandError("no " + word + " with ID " + std::to_string(id));
  }
  return record;
}

/// Every value of the key column `key` of the stored query `query` of the
/// game database, in the query's order.
std::vector<int32_t> AllIds(const std::string& query, const std::string& key);

/// Reports a change: "<verb> <word> <id>" on standard output, or with
/// --json the record itself.
void ReportChange(const std::string& verb, const std::string& word, const Json& record, int32_t id);

}  // namespace ringbook::cli
