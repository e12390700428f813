#pragma once

#include <string>

#include "core/Export.h"

namespace ringbook {

/// Creates a new, empty game database at `path`: the tables of locations,
/// groups, judges, referees, announcers, cornermen, titles, fighters and
/// fight histories, the stored queries the collections open, and the
/// layout version (`kGameSchemaVersion`). docs/database.md describes the
/// tables, the queries and their sort orders.
///
/// Never writes over anything: fails with `dberr::kDatabaseExists` when the
/// file exists and with `dberr::kInvalidPath` when its folder does not. On
/// any failure no file is left behind.
RINGBOOK_EXPORT void CreateGameDatabase(const std::string& path);

}  // namespace ringbook
