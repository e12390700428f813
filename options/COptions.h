#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "core/CStream.h"
#include "core/Export.h"
#include "core/Object.h"
#include "core/StreamRecord.h"
#include "people/CAnnouncer.h"
#include "people/CJudge.h"
#include "people/CLocation.h"
#include "people/CReferee.h"

namespace ringbook {

/// The kinds of competition an options object can belong to (`Style`).
enum EOptionsStyle : int32_t {
  eosSingleFight = 0,
  eosScheduler = 1,
  eosTournament = 2,
  eosFightCard = 3,
};

/// The rules and settings under which a fight is staged: rule switches, the
/// scoring system, the officials, the site and date, the rounds, display
/// switches, and the defaults of the scheduler, tournaments and fight cards.
/// One options object travels with every bout and tournament and is saved
/// inside their files.
///
/// Style and options files. Every options object belongs to one `Style`.
/// Styles 0, 1 and 2 each keep an options file whose name is
/// `Settings().OptionsFolder(style) + Settings().OptionsFileName(style)`;
/// style 3 (and any other code) has none. Creating an options object sets
/// `Style` to 0, which loads the style-0 file when `Utility().FileExists`
/// reports it, and otherwise applies the style-0 defaults and writes the file.
/// The first assignment to `Style` after creation does the same for the new
/// style; every later assignment is ignored (the value is not even stored),
/// except while a record is being read, when the record's style is simply
/// stored. See docs/options-files.md.
///
/// Default officials. The style-0 defaults copy referee 2, location 1,
/// announcer 1 and judges 4, 5 and 6 of the game database (through the
/// `NReferees`, `NLocations`, `NAnnouncers` and `NJudges` collections). When
/// the database at `Settings().DatabasePath()` does not exist, cannot be
/// opened or lacks one of those rows, the `Error` is caught and the official
/// concerned stays as it was (a new object is empty): options must be usable
/// without a game database, for example by a tool that only converts files.
///
/// The options raise no errors of their own; stream failures are posted to
/// the thread's error state by the stream and leave values unread.
class RINGBOOK_EXPORT COptions : public Object, public StreamRecord {
 public:
  /// Creates the referee, judges 1 to 3, the announcer and the location,
  /// takes style 0 (loading or creating its options file), then sets
  /// `SchedulerDefaultRepeats` to 10 and `FightDate` to now. Everything else
  /// starts at 0, false or empty.
  COptions();
  COptions(const COptions&) = delete;
  COptions& operator=(const COptions&) = delete;

  bool UseStrategies() const { return use_strategies_; }
  void SetUseStrategies(bool value) { use_strategies_ = value; }
  bool ThreeKDRule() const { return three_kd_rule_; }
  void SetThreeKDRule(bool value) { three_kd_rule_ = value; }
  bool CheckForInjuries() const { return check_for_injuries_; }
  void SetCheckForInjuries(bool value) { check_for_injuries_ = value; }
  bool SavedByBell() const { return saved_by_bell_; }
  void SetSavedByBell(bool value) { saved_by_bell_ = value; }
  bool Mand8Count() const { return mand8_count_; }
  void SetMand8Count(bool value) { mand8_count_ = value; }
  /// Whether the pre-fight weight-class adjustment is applied.
  bool AdjWeightClass() const { return adj_weight_class_; }
  void SetAdjWeightClass(bool value) { adj_weight_class_ = value; }
  /// Whether the bout is a championship bout.
  bool BeltBout() const { return belt_bout_; }
  void SetBeltBout(bool value) { belt_bout_ = value; }
  /// Code of the scoring system (the host gives the codes their meaning).
  int16_t ScoringSystem() const { return scoring_system_; }
  void SetScoringSystem(int16_t value) { scoring_system_ = value; }
  bool TwoMinuteRounds() const { return two_minute_rounds_; }
  void SetTwoMinuteRounds(bool value) { two_minute_rounds_ = value; }
  /// ID of the title at stake, 0 for none.
  int32_t BeltBoutID() const { return belt_bout_id_; }
  void SetBeltBoutID(int32_t value) { belt_bout_id_ = value; }
  /// Whether and how the judges' bias is used (a code of the host's).
  int32_t UseJudgesBias() const { return use_judges_bias_; }
  void SetUseJudgesBias(int32_t value) { use_judges_bias_ = value; }

  /// The stored values behind `HometownFavorite` and `DefendingChampion`,
  /// as plain fields: setting them applies no rule.
  int16_t miHometownFavorite() const { return hometown_favorite_; }
  void SetmiHometownFavorite(int16_t value) { hometown_favorite_ = value; }
  int16_t miDefendingChampion() const { return defending_champion_; }
  void SetmiDefendingChampion(int16_t value) { defending_champion_ = value; }

  /// The officials and the site: the options' own objects, created with
  /// them. The caller may replace them (nullptr included); a missing one is
  /// saved as a new, empty record and created anew when a record is read.
  std::shared_ptr<CReferee> Referee() const { return referee_; }
  void SetReferee(std::shared_ptr<CReferee> value) { referee_ = std::move(value); }
  std::shared_ptr<CAnnouncer> Announcer() const { return announcer_; }
  void SetAnnouncer(std::shared_ptr<CAnnouncer> value) { announcer_ = std::move(value); }
  std::shared_ptr<CLocation> Location() const { return location_; }
  void SetLocation(std::shared_ptr<CLocation> value) { location_ = std::move(value); }

  /// The date of the fight (an Automation date). Not saved in the record.
  double FightDate() const { return fight_date_; }
  void SetFightDate(double value) { fight_date_ = value; }

  /// The scheduler's default number of repeats; 10 on new options.
  int32_t SchedulerDefaultRepeats() const { return scheduler_default_repeats_; }
  void SetSchedulerDefaultRepeats(int32_t value) { scheduler_default_repeats_ = value; }

  /// The fight display scrolls by itself. Setting it true clears
  /// `QuietDisplay`.
  bool AutoScroll() const { return auto_scroll_; }
  void SetAutoScroll(bool value);

  /// `HometownFavorite` plus `DefendingChampion` (at most one is non-zero
  /// when both were set through their properties).
  int16_t Bias() const;

  /// Copies every option into `oTarget`, in this order: the rule switches,
  /// `ScoringSystem`, `TwoMinuteRounds`, `BeltBoutID`, `UseJudgesBias`, the
  /// stored hometown and champion corners, the referee, announcer and
  /// location, `FightDate`, `SchedulerDefaultRepeats`, the three display
  /// switches, the fight-card defaults, judges 1 to 3, `Opponent`, `Rounds`,
  /// the tournament defaults and `Style`. Values are copied as stored, so no
  /// setter rule changes them on the way. The officials and the site are
  /// copied through their own `Clone` into the target's own objects (the
  /// target creates one where it has none; where this object has none, the
  /// target's is removed too). `Style` is copied without loading any options
  /// file and without using up the target's style assignment.
  void Clone(COptions& oTarget) const;

  /// Fight-card defaults: the kind of bout, era, proficiency and referee
  /// filters (codes of the host's).
  int32_t FightCardBout() const { return fight_card_bout_; }
  void SetFightCardBout(int32_t value) { fight_card_bout_ = value; }
  int16_t FightCardEra() const { return fight_card_era_; }
  void SetFightCardEra(int16_t value) { fight_card_era_ = value; }
  int16_t FightCardProficiency() const { return fight_card_proficiency_; }
  void SetFightCardProficiency(int16_t value) { fight_card_proficiency_ = value; }
  int16_t FightCardRefFilter() const { return fight_card_ref_filter_; }
  void SetFightCardRefFilter(int16_t value) { fight_card_ref_filter_ = value; }

  /// The corner of the defending champion, 0 for none. A non-zero value
  /// first sets `HometownFavorite` to 0.
  int16_t DefendingChampion() const { return defending_champion_; }
  void SetDefendingChampion(int16_t value);
  /// The corner of the hometown favourite, 0 for none. A non-zero value
  /// first sets `DefendingChampion` to 0.
  int16_t HometownFavorite() const { return hometown_favorite_; }
  void SetHometownFavorite(int16_t value);

  /// The options' own judge `Index` (1 to 3); nullptr for any other index.
  std::shared_ptr<CJudge> Judge(int16_t Index) const;
  /// Copies `value` into the options' own judge `Index` through
  /// `CJudge::Clone`; any index outside 1 to 3 is ignored.
  void SetJudge(int16_t Index, const CJudge& value);

  /// The opponent setting of the fight (a code of the host's); stored as
  /// given.
  int16_t Opponent() const { return opponent_; }
  void SetOpponent(int16_t value) { opponent_ = value; }

  /// The host's fight display runs without commentary. Setting it true
  /// clears `AutoScroll` and `ShowRingCard`.
  bool QuietDisplay() const { return quiet_display_; }
  void SetQuietDisplay(bool value);

  /// Scheduled rounds: 3, 4, 6, 8, 10, 12 or 15; any other value stores 10.
  int16_t Rounds() const { return rounds_; }
  void SetRounds(int16_t value);

  /// With a stream: writes the options record at its position. Without one:
  /// writes the record to this style's options file, opened in place (not
  /// through the temporary file: bytes beyond the record stay); nothing
  /// happens for a style without a file.
  void Save(CStream* Stream = nullptr);

  /// The host shows the ring card between rounds. Setting it true clears
  /// `QuietDisplay`.
  bool ShowRingCard() const { return show_ring_card_; }
  void SetShowRingCard(bool value);

  /// Tournament defaults: the number of levels, and the rounds of each
  /// level `Index` from 1 to 4 (3, 4, 6, 8, 10, 12 or 15; any other value
  /// stores 10). An index outside 1 to 4 reads 0 and is ignored when set.
  int16_t TournamentDefaultLevels() const { return tournament_default_levels_; }
  void SetTournamentDefaultLevels(int16_t value) { tournament_default_levels_ = value; }
  int16_t TournamentDefaultRounds(int16_t Index) const;
  void SetTournamentDefaultRounds(int16_t Index, int16_t value);

  /// With a stream: reads the options record at its position. Without one:
  /// reads this style's options file when `Utility().FileExists` reports it;
  /// otherwise nothing happens.
  void Load(CStream* Stream = nullptr);

  /// The kind of competition these options belong to (`EOptionsStyle`).
  int32_t Style() const { return style_; }
  /// Taken at creation and at the first assignment after it (loading the
  /// style's options file, or applying its defaults and writing the file);
  /// stored as is while a record is being read; otherwise ignored.
  void SetStyle(int32_t value);

  /// Component-internal: the options record. Written as marker 1000004, the
  /// seven rule switches, `BeltBoutID`, `UseJudgesBias`, `ScoringSystem`,
  /// `TwoMinuteRounds`, `HometownFavorite`, `DefendingChampion`, the
  /// referee, announcer and location records, `AutoScroll`, the records of
  /// judges 1 to 3, `Opponent`, `QuietDisplay`, `Rounds`, `ShowRingCard`,
  /// `Style` (32-bit), then a tail by style: style 1 `SchedulerDefaultRepeats`
  /// (32-bit); style 2 `TournamentDefaultLevels` and the rounds of levels 1
  /// to 4 (16-bit each); style 3 `FightCardBout` (32-bit), `FightCardEra`,
  /// `FightCardProficiency` and `FightCardRefFilter` (16-bit each).
  ///
  /// Reading mirrors it through the setters and accepts the older markers:
  /// `BeltBoutID` is present from 1000004, `UseJudgesBias` from 1000002, the
  /// two corners from 1000003; a value an older record lacks keeps its
  /// current value. The tail follows the style just read.
  void WriteToStream(CStream& stream) override;
  void ReadFromStream(CStream& stream) override;

 private:
  /// The options file of `style_`; empty when the style has none.
  std::string StyleFileName() const;
  void ApplyStyleDefaults();
  void ApplySingleFightDefaults();
  /// Copies the default officials and site from the game database, each
  /// one skipped when the database cannot give it.
  void CopyDefaultOfficials();

  bool use_strategies_ = false;
  bool three_kd_rule_ = false;
  bool check_for_injuries_ = false;
  bool saved_by_bell_ = false;
  bool mand8_count_ = false;
  bool adj_weight_class_ = false;
  bool belt_bout_ = false;
  int16_t scoring_system_ = 0;
  bool two_minute_rounds_ = false;
  int32_t belt_bout_id_ = 0;
  int32_t use_judges_bias_ = 0;
  int16_t hometown_favorite_ = 0;
  int16_t defending_champion_ = 0;
  std::shared_ptr<CReferee> referee_;
  std::shared_ptr<CAnnouncer> announcer_;
  std::shared_ptr<CLocation> location_;
  double fight_date_ = 0;
  int32_t scheduler_default_repeats_ = 0;
  bool auto_scroll_ = false;
  int32_t fight_card_bout_ = 0;
  int16_t fight_card_era_ = 0;
  int16_t fight_card_proficiency_ = 0;
  int16_t fight_card_ref_filter_ = 0;
  std::array<std::shared_ptr<CJudge>, 3> judges_;
  int16_t opponent_ = 0;
  bool quiet_display_ = false;
  int16_t rounds_ = 0;
  bool show_ring_card_ = false;
  int16_t tournament_default_levels_ = 0;
  std::array<int16_t, 4> tournament_default_rounds_{};
  int32_t style_ = 0;

  bool creating_ = false;          // set while the constructor takes style 0
  bool reading_ = false;           // set while a record is being read
  bool style_check_used_ = false;  // the one assignment after creation is spent
};

}  // namespace ringbook
