#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Export.h"

namespace ringbook {

/// The default rows of the game world that the component carries for the
/// host: a list of cities and the default announcers, judges, referees,
/// cornermen and locations. Each row is a set of texts addressed by string
/// number; docs/default-data.md gives the numbering and what each field means.
///
/// Each block has a count entry holding its row count as decimal text. A city
/// row is the entry at its row number (101 to 146); field f (from 1) of row r
/// of any other block is the entry r * 10 + f, where the rows are numbered
/// from the count entry plus 1.
enum class DefaultDataBlock {
  Cities,      // count entry 100: city name
  Announcers,  // 200: first name, last name, era
  Judges,      // 300: first name, last name, bias
  Referees,    // 500: first name, last name, active/retired, fouls, stoppage
  Cornermen,   // 700: first name, last name, specialty, discipline, skill,
               //      motivate, then three fields that are always 0
  Locations,   // 900: arena, city, country, era, site rating, always 0
};

/// All six blocks, in the order of their count entries.
inline constexpr DefaultDataBlock kDefaultDataBlocks[] = {
    DefaultDataBlock::Cities,   DefaultDataBlock::Announcers, DefaultDataBlock::Judges,
    DefaultDataBlock::Referees, DefaultDataBlock::Cornermen,  DefaultDataBlock::Locations,
};

/// The text of string `number`, UTF-8; the empty string when the table has
/// no such entry (this is not an error: a reader walks a block until its
/// count and may probe past it).
RINGBOOK_EXPORT std::string DefaultDataString(int32_t number);

/// The number of `block`'s count entry (100, 200, 300, 500, 700 or 900).
RINGBOOK_EXPORT int32_t DefaultDataCountEntry(DefaultDataBlock block);

/// How many fields each row of `block` has (1 for cities).
RINGBOOK_EXPORT int DefaultDataFieldCount(DefaultDataBlock block);

/// The string number of field `field` (from 1) of the `row`-th row (from 1)
/// of `block`. Computes the number only: it says nothing about whether the
/// table holds that entry.
RINGBOOK_EXPORT int32_t DefaultDataEntryNumber(DefaultDataBlock block, int row, int field);

/// One row of a block: its fields in order, as texts.
using DefaultDataRow = std::vector<std::string>;

/// The rows of `block`, read as a host reads them: the count from the count
/// entry, then each row's fields by number. A count entry that is missing or
/// not a whole number gives no rows.
RINGBOOK_EXPORT std::vector<DefaultDataRow> DefaultDataRows(DefaultDataBlock block);

}  // namespace ringbook
