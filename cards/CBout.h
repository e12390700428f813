#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

#include "core/CStream.h"
#include "core/Export.h"
#include "core/Object.h"
#include "core/StreamRecord.h"
#include "core/Variant.h"
#include "options/COptions.h"

namespace ringbook {

/// How `CBout::FighterName` and `CBout::Description` name a fighter.
enum ENameStyle : int16_t {
  /// "First Last"
  ensFullName = 0,
  /// "F. Last"
  ensInitialAndLastName = 1,
  /// "Last"
  ensLastName = 2,
};

/// One scheduled bout between fighters 1 and 2: who they are, the settings
/// with which each enters the fight, the wagers placed on each, the result
/// and the options under which it is fought. Derives the betting odds and
/// names the favourite and the underdog from the fighters' totals.
///
/// Per-fighter properties take an `Index` (or `WhichFighter`) of 1 or 2. Any
/// other index is the caller's fault: debug builds stop on an assertion;
/// otherwise a getter returns 0 (or the empty text) and a setter does
/// nothing.
///
/// A new bout has all numbers 0, all names empty and a new `COptions`
/// object of its own (which takes style 0 as new options do).
class RINGBOOK_EXPORT CBout : public Object, public StreamRecord {
 public:
  CBout();
  CBout(const CBout&) = delete;
  CBout& operator=(const CBout&) = delete;

  /// The options under which the bout is fought; saved with the bout. The
  /// caller may replace the object; when there is none, a new options
  /// object is saved in its place, and one is created to read into.
  std::shared_ptr<COptions> Options() const { return options_; }
  void SetOptions(std::shared_ptr<COptions> value) { options_ = std::move(value); }

  int32_t CutManID(int16_t Index) const;
  void SetCutManID(int16_t Index, int32_t value);

  /// The bout's title: the two fighters named in `Style` (see
  /// `FighterName`) around " vs ". With `OrderByOdds` the favourite comes
  /// first and the underdog second, otherwise fighter 1 and then fighter 2.
  /// With `SplitIntoLines` a line break (CR LF) stands on each side of
  /// " vs ", giving three lines.
  std::string Description(int16_t Style = ensFullName, bool OrderByOdds = false,
                          bool SplitIntoLines = false) const;

  int16_t CareerStage(int16_t Index) const;
  void SetCareerStage(int16_t Index, int16_t value);

  /// Without `FromFighter` and `ToFighter`: copies every field into `Bout`:
  /// the options (through `COptions::Clone` into the target's own options),
  /// both fighters' figures, names, corner staff and wagers, `Repeat`,
  /// `Winner` and the odds pair.
  ///
  /// With either of them: copies only fighter `FromFighter`'s own settings
  /// (`FighterID`, names, `CutManID`, `TrainerID`, `CareerStage`,
  /// `Conditioning`, `DrawPower`, `Rating`, `Style`, `Training` and `Wager`)
  /// into position `ToFighter` of `Bout`; the one not given takes the
  /// other's number. The target's other fighter, options, `Repeat` and
  /// `Winner` are left alone, and its odds pair is cleared so that
  /// `OddsModifier` works the odds out afresh. This is how a host moves a
  /// fighter to the other corner or into another bout.
  void Clone(CBout& Bout, std::optional<int16_t> FromFighter = std::nullopt,
             std::optional<int16_t> ToFighter = std::nullopt) const;

  int16_t Conditioning(int16_t Index) const;
  void SetConditioning(int16_t Index, int16_t value);
  /// The fighter's drawing power; part of his total.
  int16_t DrawPower(int16_t Index) const;
  void SetDrawPower(int16_t Index, int16_t value);
  const std::string& FighterFirstName(int16_t Index) const;
  void SetFighterFirstName(int16_t Index, const std::string& value);
  const std::string& FighterLastName(int16_t Index) const;
  void SetFighterLastName(int16_t Index, const std::string& value);

  /// Fighter `Index`'s name in `Style`, from the names trimmed of blanks:
  /// style 0 "First Last", style 1 the first character of the first name,
  /// ". " and the last name ("J. Smith"), style 2 the last name alone. Any
  /// other style is taken as style 0. A missing part is left out with its
  /// separator: without a first name every style gives the last name alone;
  /// without a last name every style gives the first name in full (an
  /// initial alone would name nobody). A fighter with neither name is "".
  std::string FighterName(int16_t Index, int16_t Style = ensFullName) const;

  int32_t FighterID(int16_t Index) const;
  void SetFighterID(int16_t Index, int32_t value);

  /// The betting odds as "favourite-underdog" text, and stores them as the
  /// odds pair (two 16-bit values). From the totals, the larger gains 1 and the smaller loses 1
  /// (0 becomes 1); an even underdog part then gives a quarter of the
  /// favourite's part against 2 (halved again to against 1 when that
  /// quarter is even), an odd one the favourite's part divided by it
  /// against 1. Equal totals are "1-1". So 91/29 is "23-2", 90/31 "11-1",
  /// 80/60 "1-1" and 70/69 "17-2". The even test is `Utility().IsEven`.
  /// Fails with overflow (6) when a total or an adjusted part leaves the
  /// 16-bit range.
  std::string OddsForFight();
  /// 1 when fighter 1's total is greater than fighter 2's, otherwise 2 (so
  /// fighter 2 at equal totals).
  int16_t OddsFavorite() const;
  /// The odds pair as a ratio (3.0 for 3-1); works the odds out first when
  /// either part is still 0.
  float OddsModifier();
  /// 1 when fighter 1's total is less than fighter 2's, 2 when fighter 2's
  /// is less, and 1 at equal totals (so distinct from the favourite).
  int16_t OddsUnderdog() const;

  /// The fighter's rating for this bout; part of his total.
  int16_t Rating(int16_t Index) const;
  void SetRating(int16_t Index, int16_t value);

  /// Amount wagered on fighter `WhichFighter`; not saved.
  int32_t Wager(int16_t WhichFighter) const;
  void SetWager(int16_t WhichFighter, int32_t value);

  /// The repeat count, kept as 32 bits: the setter sign-extends, the getter
  /// returns the low 16 bits. The record carries all 32 bits.
  int16_t Repeat() const { return static_cast<int16_t>(repeat_ & 0xFFFF); }
  void SetRepeat(int16_t value) { repeat_ = value; }

  /// Fighting style code.
  int16_t Style(int16_t Index) const;
  void SetStyle(int16_t Index, int16_t value);

  /// `Rating` plus `DrawPower` of fighter `Index`, as a value holding a
  /// 16-bit integer. Fails with overflow (6) when the sum leaves the 16-bit
  /// range, as the runtime's 16-bit addition does.
  Variant TotalRating(int16_t Index) const;

  int32_t TrainerID(int16_t Index) const;
  void SetTrainerID(int16_t Index, int32_t value);
  int16_t Training(int16_t Index) const;
  void SetTraining(int16_t Index, int16_t value);

  /// The winning fighter's number; not saved.
  int16_t Winner() const { return winner_; }
  void SetWinner(int16_t value) { winner_ = value; }

  /// Component-internal: the bout record. Marker 1000001, first and last
  /// names of fighter 1 then fighter 2, `FighterID` 1 and 2, `Repeat`
  /// (32-bit), then pairs (fighter 1, fighter 2) of `CareerStage`,
  /// `Conditioning`, `DrawPower`, `Rating`, `Style`, `Training` (16-bit),
  /// `CutManID` and `TrainerID` (32-bit), and last the options record.
  /// Wagers, the winner and the odds pair are not saved. Reading takes the
  /// same values in the same order (the marker is not checked) and leaves
  /// wagers, winner and odds as they were.
  void WriteToStream(CStream& stream) override;
  void ReadFromStream(CStream& stream) override;

 private:
  /// What one fighter brings to the bout.
  struct Fighter {
    int32_t id = 0;
    std::string first_name;
    std::string last_name;
    int32_t cut_man_id = 0;
    int32_t trainer_id = 0;
    int16_t career_stage = 0;
    int16_t conditioning = 0;
    int16_t draw_power = 0;
    int16_t rating = 0;
    int16_t style = 0;
    int16_t training = 0;
    int32_t wager = 0;
  };

  /// Fighter `index`, or nullptr (after a debug assertion) outside 1..2.
  Fighter* At(int16_t index);
  const Fighter* At(int16_t index) const;
  int16_t Total(int16_t index) const;
  /// One field of fighter `index`: every per-fighter property goes through
  /// these two, so the index rule above is stated once.
  template <typename T>
  const T& Get(int16_t index, T Fighter::*field) const;
  template <typename T>
  void Put(int16_t index, T Fighter::*field, const std::type_identity_t<T>& value);

  std::shared_ptr<COptions> options_;
  std::array<Fighter, 2> fighters_;
  int32_t repeat_ = 0;
  int16_t winner_ = 0;
  int16_t odds_favorite_part_ = 0;
  int16_t odds_underdog_part_ = 0;
};

}  // namespace ringbook
