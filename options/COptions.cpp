#include "options/COptions.h"

#include "core/DateTime.h"
#include "core/Error.h"
#include "core/HostServices.h"
#include "store/NAnnouncers.h"
#include "store/NJudges.h"
#include "store/NLocations.h"
#include "store/NReferees.h"

namespace ringbook {
namespace {

// Marker history of the options record: 1000002 added `UseJudgesBias`,
// 1000003 the hometown and champion corners, 1000004 `BeltBoutID`.
constexpr int32_t kMarkerJudgesBias = 1000002;
constexpr int32_t kMarkerCorners = 1000003;
constexpr int32_t kMarkerCurrent = 1000004;

int16_t AllowedRounds(int16_t value) {
  switch (value) {
    case 3:
    case 4:
    case 6:
    case 8:
    case 10:
    case 12:
    case 15:
      return value;
    default:
      return 10;
  }
}

// Sets a flag for the lifetime of the guard.
class FlagGuard {
 public:
  explicit FlagGuard(bool& flag) : flag_(flag), old_(flag) { flag_ = true; }
  ~FlagGuard() { flag_ = old_; }
  FlagGuard(const FlagGuard&) = delete;
  FlagGuard& operator=(const FlagGuard&) = delete;

 private:
  bool& flag_;
  bool old_;
};

// Writes `record`, or a new empty record of the same class when there is
// none, so that the layout of the options record never changes.
template <class T>
void WriteOrBlank(CStream& stream, const std::shared_ptr<T>& record) {
  if (record) {
    record->WriteToStream(stream);
  } else {
    T blank;
    blank.WriteToStream(stream);
  }
}

// Reads into `record`, creating it first when there is none.
template <class T>
void ReadInto(CStream& stream, std::shared_ptr<T>& record) {
  if (!record) record = std::make_shared<T>();
  record->ReadFromStream(stream);
}

// Copies `source` into the target's own object (made when missing); a
// missing source removes the target's.
template <class T>
void CloneInto(const std::shared_ptr<T>& source, std::shared_ptr<T>& target) {
  if (!source) {
    target.reset();
    return;
  }
  if (!target) target = std::make_shared<T>();
  source->Clone(*target);
}

// Copies row `id` of `collection` into `target` (made when missing), fetched
// with the collection's `Item`: an unknown ID copies whatever row is current,
// as `Item` does for the host. A failure, such as a table without rows,
// leaves `target` as it was.
template <class Collection, class Record>
void CopyItem(Collection& collection, int32_t id, std::shared_ptr<Record>& target) {
  try {
    const std::shared_ptr<Record> record = collection.Item(id);
    if (!record) return;
    if (!target) target = std::make_shared<Record>();
    record->Clone(*target);
  } catch (const Error&) {
    // The row cannot be read: keep what there is.
  }
}

// As CopyItem, with a collection of its own. Creating the collection opens
// the game database, which fails when there is none.
template <class Collection, class Record>
void CopyFromDatabase(int32_t id, std::shared_ptr<Record>& target) {
  try {
    Collection collection;
    CopyItem(collection, id, target);
  } catch (const Error&) {
    // No game database: keep what there is.
  }
}

}  // namespace

COptions::COptions()
    : referee_(std::make_shared<CReferee>()),
      announcer_(std::make_shared<CAnnouncer>()),
      location_(std::make_shared<CLocation>()) {
  for (auto& judge : judges_) judge = std::make_shared<CJudge>();
  {
    FlagGuard creating(creating_);
    SetStyle(eosSingleFight);
  }
  scheduler_default_repeats_ = 10;
  fight_date_ = NowDate();
}

void COptions::SetAutoScroll(bool value) {
  if (value) quiet_display_ = false;
  auto_scroll_ = value;
}

int16_t COptions::Bias() const {
  const int32_t sum = int32_t{hometown_favorite_} + defending_champion_;
  // Only the plain fields can make both non-zero; their sum must still fit.
  if (sum < INT16_MIN || sum > INT16_MAX) throw Error::Overflow();
  return static_cast<int16_t>(sum);
}

void COptions::Clone(COptions& oTarget) const {
  if (&oTarget == this) return;
  oTarget.use_strategies_ = use_strategies_;
  oTarget.three_kd_rule_ = three_kd_rule_;
  oTarget.check_for_injuries_ = check_for_injuries_;
  oTarget.saved_by_bell_ = saved_by_bell_;
  oTarget.mand8_count_ = mand8_count_;
  oTarget.adj_weight_class_ = adj_weight_class_;
  oTarget.belt_bout_ = belt_bout_;
  oTarget.scoring_system_ = scoring_system_;
  oTarget.two_minute_rounds_ = two_minute_rounds_;
  oTarget.belt_bout_id_ = belt_bout_id_;
  oTarget.use_judges_bias_ = use_judges_bias_;
  oTarget.hometown_favorite_ = hometown_favorite_;
  oTarget.defending_champion_ = defending_champion_;
  CloneInto(referee_, oTarget.referee_);
  CloneInto(announcer_, oTarget.announcer_);
  CloneInto(location_, oTarget.location_);
  oTarget.fight_date_ = fight_date_;
  oTarget.scheduler_default_repeats_ = scheduler_default_repeats_;
  oTarget.auto_scroll_ = auto_scroll_;
  oTarget.quiet_display_ = quiet_display_;
  oTarget.show_ring_card_ = show_ring_card_;
  oTarget.fight_card_bout_ = fight_card_bout_;
  oTarget.fight_card_era_ = fight_card_era_;
  oTarget.fight_card_proficiency_ = fight_card_proficiency_;
  oTarget.fight_card_ref_filter_ = fight_card_ref_filter_;
  for (std::size_t i = 0; i < judges_.size(); ++i) CloneInto(judges_[i], oTarget.judges_[i]);
  oTarget.opponent_ = opponent_;
  oTarget.rounds_ = rounds_;
  oTarget.tournament_default_levels_ = tournament_default_levels_;
  oTarget.tournament_default_rounds_ = tournament_default_rounds_;
  oTarget.style_ = style_;
}

void COptions::SetDefendingChampion(int16_t value) {
  if (value != 0) hometown_favorite_ = 0;
  defending_champion_ = value;
}

void COptions::SetHometownFavorite(int16_t value) {
  if (value != 0) defending_champion_ = 0;
  hometown_favorite_ = value;
}

std::shared_ptr<CJudge> COptions::Judge(int16_t Index) const {
  if (Index < 1 || Index > 3) return nullptr;
  return judges_[static_cast<std::size_t>(Index - 1)];
}

void COptions::SetJudge(int16_t Index, const CJudge& value) {
  if (Index < 1 || Index > 3) return;
  auto& judge = judges_[static_cast<std::size_t>(Index - 1)];
  if (!judge) judge = std::make_shared<CJudge>();
  if (judge.get() != &value) value.Clone(*judge);
}

void COptions::SetQuietDisplay(bool value) {
  if (value) {
    auto_scroll_ = false;
    show_ring_card_ = false;
  }
  quiet_display_ = value;
}

void COptions::SetRounds(int16_t value) {
  rounds_ = AllowedRounds(value);
}

void COptions::SetShowRingCard(bool value) {
  if (value) quiet_display_ = false;
  show_ring_card_ = value;
}

int16_t COptions::TournamentDefaultRounds(int16_t Index) const {
  if (Index < 1 || Index > 4) return 0;
  return tournament_default_rounds_[static_cast<std::size_t>(Index - 1)];
}

void COptions::SetTournamentDefaultRounds(int16_t Index, int16_t value) {
  if (Index < 1 || Index > 4) return;
  tournament_default_rounds_[static_cast<std::size_t>(Index - 1)] = AllowedRounds(value);
}

std::string COptions::StyleFileName() const {
  if (style_ < eosSingleFight || style_ > eosTournament) return {};
  const auto style = static_cast<int16_t>(style_);
  ISettings& settings = Settings();
  return settings.OptionsFolder(style) + settings.OptionsFileName(style);
}

void COptions::SetStyle(int32_t value) {
  if (reading_) {
    style_ = value;
    return;
  }
  if (style_check_used_) return;  // deliberately not even stored
  style_ = value;
  const std::string name = StyleFileName();
  if (!name.empty() && Utility().FileExists(name)) {
    Load();
  } else {
    ApplyStyleDefaults();
    Save();
  }
  if (!creating_) style_check_used_ = true;
}

void COptions::ApplyStyleDefaults() {
  switch (style_) {
    case eosSingleFight:
      ApplySingleFightDefaults();
      break;
    case eosScheduler:
      scheduler_default_repeats_ = 10;
      break;
    case eosTournament:
      tournament_default_levels_ = 4;
      tournament_default_rounds_ = {15, 12, 10, 10};
      break;
    case eosFightCard:
      fight_card_bout_ = 4;
      fight_card_era_ = 4;
      fight_card_ref_filter_ = 30;
      // Filter value 0: the same proficiency filter a fighter list starts
      // with.
      fight_card_proficiency_ = 0;
      break;
    default:
      break;  // an unknown style has no defaults
  }
}

void COptions::ApplySingleFightDefaults() {
  use_strategies_ = false;
  three_kd_rule_ = true;
  check_for_injuries_ = true;
  saved_by_bell_ = true;
  mand8_count_ = true;
  adj_weight_class_ = true;
  belt_bout_ = false;
  scoring_system_ = 0;
  two_minute_rounds_ = false;
  belt_bout_id_ = 0;
  use_judges_bias_ = 0;
  hometown_favorite_ = 0;
  defending_champion_ = 0;
  CopyDefaultOfficials();
  fight_date_ = NowDate();
  opponent_ = 1;
  auto_scroll_ = false;
  quiet_display_ = false;
  show_ring_card_ = true;
  rounds_ = 10;
}

void COptions::CopyDefaultOfficials() {
  CopyFromDatabase<NReferees>(2, referee_);
  CopyFromDatabase<NLocations>(1, location_);
  CopyFromDatabase<NAnnouncers>(1, announcer_);
  try {
    NJudges judges;
    for (std::size_t i = 0; i < judges_.size(); ++i) {
      CopyItem(judges, static_cast<int32_t>(4 + i), judges_[i]);
    }
  } catch (const Error&) {
    // No game database: the judges stay as they are.
  }
}

void COptions::Save(CStream* Stream) {
  if (Stream != nullptr) {
    WriteToStream(*Stream);
    return;
  }
  const std::string name = StyleFileName();
  if (name.empty()) return;
  CStream stream;
  stream.SetFilename(name);
  stream.OpenStream(false);
  WriteToStream(stream);
  stream.CloseStream();
}

void COptions::Load(CStream* Stream) {
  if (Stream != nullptr) {
    ReadFromStream(*Stream);
    return;
  }
  const std::string name = StyleFileName();
  if (name.empty() || !Utility().FileExists(name)) return;
  CStream stream;
  stream.SetFilename(name);
  stream.OpenStream(false);
  ReadFromStream(stream);
  stream.CloseStream();
}

void COptions::WriteToStream(CStream& stream) {
  stream.WriteLng(kMarkerCurrent);
  stream.WriteBln(use_strategies_);
  stream.WriteBln(three_kd_rule_);
  stream.WriteBln(check_for_injuries_);
  stream.WriteBln(saved_by_bell_);
  stream.WriteBln(mand8_count_);
  stream.WriteBln(adj_weight_class_);
  stream.WriteBln(belt_bout_);
  stream.WriteLng(belt_bout_id_);
  stream.WriteLng(use_judges_bias_);
  stream.WriteInt(scoring_system_);
  stream.WriteBln(two_minute_rounds_);
  stream.WriteInt(hometown_favorite_);
  stream.WriteInt(defending_champion_);
  WriteOrBlank(stream, referee_);
  WriteOrBlank(stream, announcer_);
  WriteOrBlank(stream, location_);
  stream.WriteBln(auto_scroll_);
  for (const auto& judge : judges_) WriteOrBlank(stream, judge);
  stream.WriteInt(opponent_);
  stream.WriteBln(quiet_display_);
  stream.WriteInt(rounds_);
  stream.WriteBln(show_ring_card_);
  stream.WriteLng(style_);
  switch (style_) {
    case eosScheduler:
      stream.WriteLng(scheduler_default_repeats_);
      break;
    case eosTournament:
      stream.WriteInt(tournament_default_levels_);
      for (int16_t rounds : tournament_default_rounds_) stream.WriteInt(rounds);
      break;
    case eosFightCard:
      stream.WriteLng(fight_card_bout_);
      stream.WriteInt(fight_card_era_);
      stream.WriteInt(fight_card_proficiency_);
      stream.WriteInt(fight_card_ref_filter_);
      break;
    default:
      break;
  }
}

void COptions::ReadFromStream(CStream& stream) {
  FlagGuard reading(reading_);
  const int32_t marker = stream.ReadLng();
  SetUseStrategies(stream.ReadBln());
  SetThreeKDRule(stream.ReadBln());
  SetCheckForInjuries(stream.ReadBln());
  SetSavedByBell(stream.ReadBln());
  SetMand8Count(stream.ReadBln());
  SetAdjWeightClass(stream.ReadBln());
  SetBeltBout(stream.ReadBln());
  if (marker >= kMarkerCurrent) SetBeltBoutID(stream.ReadLng());
  if (marker >= kMarkerJudgesBias) SetUseJudgesBias(stream.ReadLng());
  SetScoringSystem(stream.ReadInt());
  SetTwoMinuteRounds(stream.ReadBln());
  if (marker >= kMarkerCorners) {
    SetHometownFavorite(stream.ReadInt());
    SetDefendingChampion(stream.ReadInt());
  }
  ReadInto(stream, referee_);
  ReadInto(stream, announcer_);
  ReadInto(stream, location_);
  SetAutoScroll(stream.ReadBln());
  for (auto& judge : judges_) ReadInto(stream, judge);
  SetOpponent(stream.ReadInt());
  SetQuietDisplay(stream.ReadBln());
  SetRounds(stream.ReadInt());
  SetShowRingCard(stream.ReadBln());
  SetStyle(stream.ReadLng());
  switch (style_) {
    case eosScheduler:
      SetSchedulerDefaultRepeats(stream.ReadLng());
      break;
    case eosTournament:
      SetTournamentDefaultLevels(stream.ReadInt());
      for (int16_t level = 1; level <= 4; ++level) {
        SetTournamentDefaultRounds(level, stream.ReadInt());
      }
      break;
    case eosFightCard:
      SetFightCardBout(stream.ReadLng());
      SetFightCardEra(stream.ReadInt());
      SetFightCardProficiency(stream.ReadInt());
      SetFightCardRefFilter(stream.ReadInt());
      break;
    default:
      break;
  }
}

}  // namespace ringbook
