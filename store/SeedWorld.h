#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "core/Export.h"

namespace ringbook {

/// The seventeen standard weight divisions, lightest first. A new game
/// world gets one world title per division, "World <division> Title", in
/// this order.
inline constexpr std::array<std::string_view, 17> kStandardDivisions = {
    "Minimumweight", "Light Flyweight",    "Flyweight",         "Super Flyweight",
    "Bantamweight",  "Super Bantamweight", "Featherweight",     "Super Featherweight",
    "Lightweight",   "Super Lightweight",  "Welterweight",      "Super Welterweight",
    "Middleweight",  "Super Middleweight", "Light Heavyweight", "Cruiserweight",
    "Heavyweight",
};

/// The group a new game world starts with.
inline constexpr std::string_view kDefaultGroupName = "World";

/// What seeding wrote: the rows added to each table, and whether the
/// database file was created for it.
struct SeedReport {
  bool Created = false;
  int32_t Locations = 0;
  int32_t Announcers = 0;
  int32_t Judges = 0;
  int32_t Referees = 0;
  int32_t Cornermen = 0;
  int32_t Groups = 0;
  int32_t Titles = 0;

  int32_t Total() const {
    return Locations + Announcers + Judges + Referees + Cornermen + Groups + Titles;
  }
};

/// Called with the rows written so far and the rows to write in all: once
/// with 0 before the first row, then after every row. An exception thrown
/// from it stops the seeding, which then fails as a whole.
using SeedProgress = std::function<void(int32_t done, int32_t total)>;

/// Fills a new game world at `path` with the default data
/// (`DefaultDataRows`): every location, announcer, judge, referee and
/// cornerman, mapped to their columns as docs/default-data.md describes,
/// then the group "World" and the world title of each standard division.
/// Rows are added through the collections' own `AddRecord`, in the order of
/// the data, so in a database that never held rows the keys are the row
/// numbers from 1.
///
/// When no file is at `path`, a new game database is created there first
/// (`CreateGameDatabase`). An existing file must be a game database (it is
/// opened as `Database::Open` opens it, with its errors) whose locations,
/// announcers, judges, referees, cornermen, groups and titles are all
/// empty; otherwise seeding fails with `dberr::kDatabaseExists` and the
/// description "The game database '<path>' already holds rows; seeding
/// would duplicate them.", and the file is left unchanged.
///
/// All of it is one transaction: on any failure nothing is left of the
/// seeding, and a file created for it is removed again. The collections
/// find the database through the thread's settings, so while seeding runs
/// the thread's settings object is replaced by one naming `path`; the
/// caller's object is put back afterwards, whether seeding succeeds or not.
RINGBOOK_EXPORT SeedReport SeedGameWorld(const std::string& path,
                                         const SeedProgress& progress = {});

}  // namespace ringbook
