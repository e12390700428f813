#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/CStream.h"
#include "core/Export.h"
#include "core/Object.h"
#include "core/StreamRecord.h"
#include "options/COptions.h"
#include "schedule/CLevel.h"

namespace ringbook {

/// An elimination tournament of two to four levels, with options of its own
/// from which a new tournament takes its number of levels and each level's
/// rounds. Saves itself to one file of its own.
class RINGBOOK_EXPORT CTournament : public Object, public StreamRecord {
 public:
  /// Creates the options and sets their `Style` to 2 (loading or creating
  /// the tournament options file), names the tournament "My Tournament",
  /// sets `Levels` to the options' `TournamentDefaultLevels` and the rounds
  /// of each level i to the options' `TournamentDefaultRounds(i)`. A default
  /// level count outside 2 to 4 leaves the tournament without levels.
  CTournament();
  CTournament(const CTournament&) = delete;
  CTournament& operator=(const CTournament&) = delete;

  /// The tournament's options; saved with it. The caller may replace the
  /// object; when there is none, a new options object is saved in its
  /// place, and one is created to read into.
  std::shared_ptr<COptions> Options() const { return options_; }
  void SetOptions(std::shared_ptr<COptions> value) { options_ = std::move(value); }

  /// Copies `Name`, `Levels` and each level (through `CLevel::Clone`) into
  /// `Tournament`'s own levels, and the options into its own options
  /// (through `COptions::Clone`).
  void Clone(CTournament& Tournament) const;

  /// Level `Index` (1 to `Levels`); nullptr for any other index.
  std::shared_ptr<CLevel> Level(int16_t Index) const;

  /// Number of levels, 2 to 4 (0 until set). Any other value is ignored, not
  /// clamped. Setting it keeps the existing levels up to the new count,
  /// drops the rest, and creates each missing level i with 2^i brackets.
  int16_t Levels() const { return static_cast<int16_t>(levels_.size()); }
  void SetLevels(int16_t value);

  const std::string& Name() const { return name_; }
  void SetName(const std::string& value) { name_ = value; }

  /// Component-internal: the tournament file. Marker 1000001, `Name`,
  /// `Levels` (16-bit), the level records of levels 1 to `Levels`, then the
  /// options record. Reading applies `Levels` through its setter (a damaged
  /// count is ignored) and then reads as many level records as the
  /// tournament then has, so a hostile count can neither allocate nor read
  /// without bound. The marker is not checked.
  void WriteToStream(CStream& stream) override;
  void ReadFromStream(CStream& stream) override;

 private:
  std::shared_ptr<COptions> options_;
  std::string name_;
  std::vector<std::shared_ptr<CLevel>> levels_;
};

}  // namespace ringbook
