#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "cards/CBout.h"
#include "core/CStream.h"
#include "core/Export.h"
#include "core/Object.h"
#include "core/StreamRecord.h"
#include "core/Variant.h"
#include "people/CLocation.h"

namespace ringbook {

/// The four positions of a fight card, in the order the card holds them.
enum EBoutType : int32_t {
  ebtBout1 = 1,
  ebtBout2 = 2,
  ebtBout3 = 3,
  ebtBout4 = 4,
};

/// One evening's fight card: a date, a name, an era, a venue and four bouts
/// at positions 1 to 4. Rates the card from the bouts' fighters and saves
/// itself to one file of its own.
///
/// A new card holds four new bouts (as `CBout` creates them), a new
/// location, `FightDate` now, `Era` 0, an empty `Name`, every `DisplayFight`
/// flag true and `WagersPlaced` false.
///
/// Empty positions. `Remove` (or `SetItem` with nullptr) leaves a position
/// without a bout. Such a position rates 0 (in `BoutRating`, `FighterRating`
/// and `Rating`) and is not described; `Add` puts a new bout there again. A
/// card with an empty position saves a new, default bout record there, so
/// the file's layout never changes, and loading creates a bout to read it
/// into: after a round trip every position holds a bout. The same holds for
/// a card without a location.
class RINGBOOK_EXPORT CFightCard : public Object, public StreamRecord {
 public:
  static constexpr int16_t kBouts = 4;

  CFightCard();
  CFightCard(const CFightCard&) = delete;
  CFightCard& operator=(const CFightCard&) = delete;

  /// The venue; saved with the card.
  std::shared_ptr<CLocation> Location() const { return location_; }
  void SetLocation(std::shared_ptr<CLocation> value) { location_ = std::move(value); }

  /// Date and time of the card (an Automation date).
  double FightDate() const { return fight_date_; }
  void SetFightDate(double value) { fight_date_ = value; }

  /// Copies `Bout` into the card's bout at position `BoutType` through
  /// `Bout.Clone`: the card keeps its own object (creating one first at an
  /// empty position). A position outside 1 to 4 is ignored.
  void Add(const CBout& Bout, EBoutType BoutType);

  /// The bout at position `Index` (1 to 4); nullptr for an empty position
  /// or any other index.
  std::shared_ptr<CBout> Bout(int16_t Index) const;

  /// The second fighter's `Rating` plus `DrawPower` at position `Index`: the
  /// first fighter's sum is worked out and then replaced, deliberately. 0
  /// for an empty position or an index outside 1 to 4. Fails with overflow
  /// (6) when a sum leaves the 16-bit range.
  int16_t BoutRating(int16_t Index) const;

  /// Copies this card into `FightCard`: `FightDate`, `Era`, `Name`,
  /// `DisplayFight`, `WagersPlaced`, each bout into the target's own bout at
  /// the same position (created when the target has none there; an empty
  /// position here empties the target's), and the location into the
  /// target's own location (likewise).
  void Clone(CFightCard& FightCard) const;

  /// `Rating` plus `DrawPower` of fighter `FtrIndex` in the bout at
  /// `BoutIndex`; 0 for an empty position or an index outside 1 to 4.
  int16_t FighterRating(int16_t BoutIndex, int16_t FtrIndex) const;

  /// Whether the bout at position `Index` is shown; not saved. An index
  /// outside 1 to 4 reads false and is ignored when set.
  bool DisplayFight(int16_t Index) const;
  void SetDisplayFight(int16_t Index, bool value);

  int16_t Era() const { return era_; }
  void SetEra(int16_t value) { era_ = value; }

  /// As `Bout`; setting stores the given object itself at position `Index`
  /// (nullptr empties it). An index outside 1 to 4 is ignored.
  std::shared_ptr<CBout> Item(int16_t Index) const { return Bout(Index); }
  void SetItem(int16_t Index, std::shared_ptr<CBout> value);

  const std::string& Name() const { return name_; }
  void SetName(const std::string& value) { name_ = value; }

  /// The card's rating: the 16-bit sum of `Rating` plus `DrawPower` over the
  /// eight fighters, position by position. Each bout is also asked for its
  /// `Description`, which is discarded. Fails with overflow (6) when the
  /// sum leaves the 16-bit range.
  int16_t Rating() const;

  /// Empties position `Index` (converted to a 32-bit whole number; a value
  /// that is not a number fails with type mismatch). A position outside 1
  /// to 4 is ignored.
  void Remove(const Variant& Index);

  /// Whether wagers have been placed on the card; not saved.
  bool WagersPlaced() const { return wagers_placed_; }
  void SetWagersPlaced(bool value) { wagers_placed_ = value; }

  /// Component-internal: the card's file. Marker 1000001, `Era` (16-bit),
  /// `FightDate` (8-byte date), `Name`, the bout records of positions 1 to
  /// 4, and the location's record. Reading fills the card's own bouts and
  /// location in place; the marker is not checked.
  void WriteToStream(CStream& stream) override;
  void ReadFromStream(CStream& stream) override;

 private:
  static bool ValidPosition(int32_t index) { return index >= 1 && index <= kBouts; }

  std::shared_ptr<CLocation> location_;
  double fight_date_ = 0;
  int16_t era_ = 0;
  std::string name_;
  std::array<std::shared_ptr<CBout>, kBouts> bouts_;
  std::array<bool, kBouts> display_fight_{true, true, true, true};
  bool wagers_placed_ = false;
};

}  // namespace ringbook
