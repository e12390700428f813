#pragma once

// Reading and writing the game's save files with a clear failure: a missing
// file, one of another kind, or one that ends early or runs on past its
// record is refused with a message naming it.
#include <memory>
#include <string>

#include "cards/CFightCard.h"
#include "options/COptions.h"
#include "schedule/CTournament.h"

namespace ringbook::cli {

/// The fight card saved in `path`.
std::shared_ptr<CFightCard> LoadCard(const std::string& path);
/// The tournament saved in `path`.
std::shared_ptr<CTournament> LoadTournament(const std::string& path);
/// The options record at the start of the options file `path`. An options
/// file is rewritten in place, so bytes after its record are allowed.
std::shared_ptr<COptions> LoadOptions(const std::string& path);

/// Saves `record` to `path` through its own `SaveToFile`; fails with the
/// stream's error when the file cannot be written.
void SaveRecord(StreamRecord& record, const std::string& path);

}  // namespace ringbook::cli
