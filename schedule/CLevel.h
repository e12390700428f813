#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "cards/CBout.h"
#include "core/CStream.h"
#include "core/Export.h"
#include "core/Object.h"
#include "core/StreamRecord.h"

namespace ringbook {

/// One level of an elimination tournament: a round of the draw with its
/// number of brackets (entrants), one bout per pair of brackets, and the
/// rounds over which those bouts are fought.
///
/// A new level has no brackets and no bouts (its tournament sets
/// `Brackets`), and `Rounds` 10. New bouts start with `DisplayFight` true.
class RINGBOOK_EXPORT CLevel : public Object, public StreamRecord {
 public:
  CLevel() = default;
  CLevel(const CLevel&) = delete;
  CLevel& operator=(const CLevel&) = delete;

  /// Bout `Index` (1 to the bout count); nullptr for any other index.
  std::shared_ptr<CBout> Bout(int16_t Index) const;

  /// Number of entrants: 2, 4, 8 or 16; any other value is ignored (not
  /// stored). Setting it makes the bout count `Brackets` / 2 and resizes the
  /// bouts and display flags to that count, keeping those that remain and
  /// creating new bouts where there are none.
  int16_t Brackets() const { return brackets_; }
  void SetBrackets(int16_t value);

  /// Number of bouts, always `Brackets` / 2 (0 before brackets are set).
  int16_t BoutCount() const { return static_cast<int16_t>(bouts_.size()); }

  /// Copies `Brackets` (resizing `Level`), `Rounds`, every bout into the
  /// target's own bout at the same position, and the display flags.
  void Clone(CLevel& Level) const;

  /// Whether bout `Index` is shown. An index outside 1 to the bout count
  /// reads false and is ignored when set.
  bool DisplayFight(int16_t Index) const;
  void SetDisplayFight(int16_t Index, bool value);

  /// Scheduled rounds of the level's bouts: 3, 4, 6, 8, 10, 12 or 15; any
  /// other value stores 10.
  int16_t Rounds() const { return rounds_; }
  void SetRounds(int16_t value);

  /// Component-internal: the level record. Marker 1000001, `Brackets`,
  /// `Rounds` and the bout count (16-bit each), the bout records, then each
  /// bout's `DisplayFight` flag (2-byte boolean).
  ///
  /// Reading applies `Brackets` and `Rounds` through their setters, so a
  /// damaged value is ignored (brackets) or becomes 10 (rounds), and then
  /// reads as many bouts and flags as the level's own bout count, which only
  /// `Brackets` decides: the count field of the record is read and
  /// disregarded. A record whose count field disagrees is damaged; reading
  /// it this way never allocates more than the 8 bouts a level can hold and
  /// never reads past the file's end. The marker is not checked.
  void WriteToStream(CStream& stream) override;
  void ReadFromStream(CStream& stream) override;

 private:
  int16_t brackets_ = 0;
  int16_t rounds_ = 10;
  std::vector<std::shared_ptr<CBout>> bouts_;
  std::vector<bool> display_fight_;
};

}  // namespace ringbook
