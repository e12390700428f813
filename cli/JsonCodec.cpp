#include "cli/JsonCodec.h"

#include <vector>

#include "cli/Errors.h"
#include "cli/RecordFields.h"
#include "schedule/CLevel.h"

namespace ringbook::cli {
namespace {

// Every document carries the version of its layout, for the day it changes.
constexpr int kFormat = 1;

const Json& Member(const Json& json, const char* name, const std::string& what) {
  if (!json.is_object()) throw UsageError(what + " must be a JSON object");
  auto it = json.find(name);
  if (it == json.end()) throw UsageError(what + ": \"" + name + "\" is missing");
  return *it;
}

template <class T>
T Value(const Json& json, const char* name, FieldKind kind, const std::string& what) {
  return CheckValue(kind, Member(json, name, what), what + "." + name).template get<T>();
}

const Json& Array(const Json& json, const char* name, std::size_t size, const std::string& what) {
  const Json& a = Member(json, name, what);
  if (!a.is_array() || (size != 0 && a.size() != size)) {
    throw UsageError(what + "." + name + " must be an array" +
                     (size ? " of " + std::to_string(size) : std::string()));
  }
  return a;
}

// ---- Options ----

// The plain values of the options record, by their property; the corners,
// the display switches, the officials and the style are handled apart.
struct OptionValue {
  const char* name;
  FieldKind kind;
  Json (*get)(const COptions&);
  void (*set)(COptions&, const Json&);
};

#define RB_BOOL(N)                                                                                 \
  {                                                                                                \
#N, FieldKind::Bool,                                                                           \
        [](const COptions& o) { return Json(o.N()); },                                             \
                                                    [](COptions & o,                               \
                                                       const Json& v) { o.Set##N(v.get<bool>()); } \
  }
#define RB_I16(N)                                                                                \
  {                                                                                              \
#N, FieldKind::Int16,                                                                        \
        [](const COptions& o) { return Json(o.N()); }, [](COptions & o,                          \
                                                          const Json&                            \
                                                              v) { o.Set##N(v.get<int16_t>()); } \
  }
#define RB_I32(N)                                                                                \
  {                                                                                              \
#N, FieldKind::Int32,                                                                        \
        [](const COptions& o) { return Json(o.N()); }, [](COptions & o,                          \
                                                          const Json&                            \
                                                              v) { o.Set##N(v.get<int32_t>()); } \
  }

const std::vector<OptionValue> kRuleValues = {
    RB_BOOL(UseStrategies), RB_BOOL(ThreeKDRule),     RB_BOOL(CheckForInjuries),
    RB_BOOL(SavedByBell),   RB_BOOL(Mand8Count),      RB_BOOL(AdjWeightClass),
    RB_BOOL(BeltBout),      RB_I32(BeltBoutID),       RB_I32(UseJudgesBias),
    RB_I16(ScoringSystem),  RB_BOOL(TwoMinuteRounds),
};
const std::vector<OptionValue> kLaterValues = {
    RB_I16(Opponent),
    RB_I16(Rounds),
};
// The tails of the styles: each record holds its own style's.
const std::vector<OptionValue> kStyleValues = {
    RB_I32(SchedulerDefaultRepeats), RB_I16(TournamentDefaultLevels),
    RB_I32(FightCardBout),           RB_I16(FightCardEra),
    RB_I16(FightCardProficiency),    RB_I16(FightCardRefFilter),
};

#undef RB_BOOL
#undef RB_I16
#undef RB_I32

template <class Record>
Json Official(const std::shared_ptr<Record>& record, const std::vector<Field<Record>>& fields) {
  // A missing official is saved as a new, empty one.
  return ToJson(record ? *record : Record(), fields);
}

template <class Record>
void SetOfficial(std::shared_ptr<Record>& own, const std::vector<Field<Record>>& fields,
                 const Json& json, const std::string& what) {
  if (!own) own = std::make_shared<Record>();
  SetFromJson(*own, fields, json, what, true);
}

// ---- Bouts ----

// One corner of a bout; `ToJson` only reads through it.
struct BoutSide {
  CBout* bout;
  int16_t index;
};

template <class T>
struct IndexedArg;
template <class A>
struct IndexedArg<void (CBout::*)(int16_t, A)> {
  using type = std::decay_t<A>;
};

template <class Getter, class Setter>
Field<BoutSide> SideField(std::string name, FieldKind kind, Getter get, Setter set) {
  using Arg = typename IndexedArg<Setter>::type;
  Field<BoutSide> f;
  f.name = std::move(name);
  f.kind = kind;
  f.get = [get](const BoutSide& s) { return Json((s.bout->*get)(s.index)); };
  f.set = [set](BoutSide& s, const Json& v) { (s.bout->*set)(s.index, v.get<Arg>()); };
  return f;
}

// What each fighter brings to a bout, in the order of the bout record.
const std::vector<Field<BoutSide>>& SideFields() {
  using B = CBout;
  static const std::vector<Field<BoutSide>> fields = {
      SideField("FighterID", FieldKind::Int32, &B::FighterID, &B::SetFighterID),
      SideField("FirstName", FieldKind::Text, &B::FighterFirstName, &B::SetFighterFirstName),
      SideField("LastName", FieldKind::Text, &B::FighterLastName, &B::SetFighterLastName),
      SideField("CareerStage", FieldKind::Int16, &B::CareerStage, &B::SetCareerStage),
      SideField("Conditioning", FieldKind::Int16, &B::Conditioning, &B::SetConditioning),
      SideField("DrawPower", FieldKind::Int16, &B::DrawPower, &B::SetDrawPower),
      SideField("Rating", FieldKind::Int16, &B::Rating, &B::SetRating),
      SideField("Style", FieldKind::Int16, &B::Style, &B::SetStyle),
      SideField("Training", FieldKind::Int16, &B::Training, &B::SetTraining),
      SideField("CutManID", FieldKind::Int32, &B::CutManID, &B::SetCutManID),
      SideField("TrainerID", FieldKind::Int32, &B::TrainerID, &B::SetTrainerID),
  };
  return fields;
}

}  // namespace

void CheckKind(const Json& json, const char* kind) {
  if (!json.is_object()) throw UsageError(std::string("the document must be a JSON object"));
  auto it = json.find("kind");
  if (it == json.end() || !it->is_string() || it->get<std::string>() != kind) {
    throw UsageError(std::string("the document is not a ") + kind + " (its \"kind\" is " +
                     (it == json.end() ? std::string("missing") : it->dump()) + ")");
  }
}

Json OptionsToJson(const COptions& o) {
  Json out = Json::object();
  out["Style"] = o.Style();
  for (const OptionValue& v : kRuleValues) out[v.name] = v.get(o);
  // The stored corners, as the record holds them.
  out["HometownFavorite"] = o.miHometownFavorite();
  out["DefendingChampion"] = o.miDefendingChampion();
  out["Referee"] = Official(o.Referee(), RefereeFields());
  out["Announcer"] = Official(o.Announcer(), AnnouncerFields());
  out["Location"] = Official(o.Location(), LocationFields());
  out["AutoScroll"] = o.AutoScroll();
  Json judges = Json::array();
  for (int16_t i = 1; i <= 3; ++i) judges.push_back(Official(o.Judge(i), JudgeFields()));
  out["Judges"] = judges;
  for (const OptionValue& v : kLaterValues) out[v.name] = v.get(o);
  out["QuietDisplay"] = o.QuietDisplay();
  out["ShowRingCard"] = o.ShowRingCard();
  for (const OptionValue& v : kStyleValues) out[v.name] = v.get(o);
  Json rounds = Json::array();
  for (int16_t i = 1; i <= 4; ++i) rounds.push_back(o.TournamentDefaultRounds(i));
  out["TournamentDefaultRounds"] = rounds;
  return out;
}

std::shared_ptr<COptions> OptionsFromJson(const Json& json, const std::string& what) {
  auto o = std::make_shared<COptions>();
  // The first style given after creation is taken; later ones would not be.
  o->SetStyle(Value<int32_t>(json, "Style", FieldKind::Int32, what));
  for (const OptionValue& v : kRuleValues) {
    v.set(*o, CheckValue(v.kind, Member(json, v.name, what), what + "." + v.name));
  }
  o->SetmiHometownFavorite(Value<int16_t>(json, "HometownFavorite", FieldKind::Int16, what));
  o->SetmiDefendingChampion(Value<int16_t>(json, "DefendingChampion", FieldKind::Int16, what));
  std::shared_ptr<CReferee> referee = o->Referee();
  SetOfficial(referee, RefereeFields(), Member(json, "Referee", what), what + ".Referee");
  o->SetReferee(referee);
  std::shared_ptr<CAnnouncer> announcer = o->Announcer();
  SetOfficial(announcer, AnnouncerFields(), Member(json, "Announcer", what), what + ".Announcer");
  o->SetAnnouncer(announcer);
  std::shared_ptr<CLocation> location = o->Location();
  SetOfficial(location, LocationFields(), Member(json, "Location", what), what + ".Location");
  o->SetLocation(location);
  const Json& judges = Array(json, "Judges", 3, what);
  for (int16_t i = 1; i <= 3; ++i) {
    CJudge judge;
    SetFromJson(judge, JudgeFields(), judges[static_cast<std::size_t>(i - 1)],
                what + ".Judges[" + std::to_string(i - 1) + "]", true);
    o->SetJudge(i, judge);
  }
  for (const OptionValue& v : kLaterValues) {
    v.set(*o, CheckValue(v.kind, Member(json, v.name, what), what + "." + v.name));
  }
  // Quiet display first: setting it clears the other two, and setting
  // either of them clears it, so this order ends with the values given
  // whenever they agree with each other (as every saved record does).
  o->SetQuietDisplay(Value<bool>(json, "QuietDisplay", FieldKind::Bool, what));
  o->SetAutoScroll(Value<bool>(json, "AutoScroll", FieldKind::Bool, what));
  o->SetShowRingCard(Value<bool>(json, "ShowRingCard", FieldKind::Bool, what));
  for (const OptionValue& v : kStyleValues) {
    v.set(*o, CheckValue(v.kind, Member(json, v.name, what), what + "." + v.name));
  }
  const Json& rounds = Array(json, "TournamentDefaultRounds", 4, what);
  for (int16_t i = 1; i <= 4; ++i) {
    o->SetTournamentDefaultRounds(
        i, CheckValue(FieldKind::Int16, rounds[static_cast<std::size_t>(i - 1)],
                      what + ".TournamentDefaultRounds")
               .get<int16_t>());
  }
  return o;
}

Json OptionsDocument(const COptions& options) {
  Json out = {{"kind", kOptionsKind}, {"format", kFormat}};
  out.update(OptionsToJson(options));
  return out;
}

Json BoutToJson(const CBout& bout) {
  Json out = Json::object();
  Json fighters = Json::array();
  for (int16_t i = 1; i <= 2; ++i) {
    const BoutSide side{const_cast<CBout*>(&bout), i};
    fighters.push_back(ToJson(side, SideFields()));
  }
  out["Fighters"] = fighters;
  // The record carries all 32 bits of the repeat count; the property shows
  // the low 16, which is all a saved bout ever holds.
  out["Repeat"] = bout.Repeat();
  // Missing options are saved as new ones.
  std::shared_ptr<COptions> options = bout.Options();
  out["Options"] = OptionsToJson(options ? *options : *std::make_shared<COptions>());
  return out;
}

void BoutFromJson(CBout& bout, const Json& json, const std::string& what) {
  const Json& fighters = Array(json, "Fighters", 2, what);
  for (int16_t i = 1; i <= 2; ++i) {
    BoutSide side{&bout, i};
    SetFromJson(side, SideFields(), fighters[static_cast<std::size_t>(i - 1)],
                what + ".Fighters[" + std::to_string(i - 1) + "]", true);
  }
  bout.SetRepeat(Value<int16_t>(json, "Repeat", FieldKind::Int16, what));
  bout.SetOptions(OptionsFromJson(Member(json, "Options", what), what + ".Options"));
}

Json CardToJson(const CFightCard& card) {
  Json out = {{"kind", kCardKind}, {"format", kFormat}};
  out["Name"] = card.Name();
  out["Era"] = card.Era();
  out["FightDate"] = card.FightDate();
  Json bouts = Json::array();
  for (int16_t i = 1; i <= CFightCard::kBouts; ++i) {
    std::shared_ptr<CBout> bout = card.Bout(i);
    // An empty position is saved as a new bout.
    bouts.push_back(BoutToJson(bout ? *bout : *std::make_shared<CBout>()));
  }
  out["Bouts"] = bouts;
  std::shared_ptr<CLocation> location = card.Location();
  out["Location"] = Official(location, LocationFields());
  return out;
}

void CardFromJson(CFightCard& card, const Json& json) {
  CheckKind(json, kCardKind);
  const std::string what = "card";
  card.SetName(Value<std::string>(json, "Name", FieldKind::Text, what));
  card.SetEra(Value<int16_t>(json, "Era", FieldKind::Int16, what));
  card.SetFightDate(Value<double>(json, "FightDate", FieldKind::Date, what));
  const Json& bouts = Array(json, "Bouts", CFightCard::kBouts, what);
  for (int16_t i = 1; i <= CFightCard::kBouts; ++i) {
    auto bout = std::make_shared<CBout>();
    BoutFromJson(*bout, bouts[static_cast<std::size_t>(i - 1)],
                 what + ".Bouts[" + std::to_string(i - 1) + "]");
    card.SetItem(i, bout);
  }
  std::shared_ptr<CLocation> location = card.Location();
  SetOfficial(location, LocationFields(), Member(json, "Location", what), what + ".Location");
  card.SetLocation(location);
}

Json TournamentToJson(const CTournament& tournament) {
  Json out = {{"kind", kTournamentKind}, {"format", kFormat}};
  out["Name"] = tournament.Name();
  Json levels = Json::array();
  for (int16_t i = 1; i <= tournament.Levels(); ++i) {
    std::shared_ptr<CLevel> level = tournament.Level(i);
    Json l = Json::object();
    l["Brackets"] = level->Brackets();
    l["Rounds"] = level->Rounds();
    Json bouts = Json::array();
    Json shown = Json::array();
    for (int16_t b = 1; b <= level->BoutCount(); ++b) {
      bouts.push_back(BoutToJson(*level->Bout(b)));
      shown.push_back(level->DisplayFight(b));
    }
    l["Bouts"] = bouts;
    l["DisplayFight"] = shown;
    levels.push_back(std::move(l));
  }
  out["Levels"] = levels;
  std::shared_ptr<COptions> options = tournament.Options();
  out["Options"] = OptionsToJson(options ? *options : *std::make_shared<COptions>());
  return out;
}

void TournamentFromJson(CTournament& tournament, const Json& json) {
  CheckKind(json, kTournamentKind);
  const std::string what = "tournament";
  tournament.SetName(Value<std::string>(json, "Name", FieldKind::Text, what));
  const Json& levels = Array(json, "Levels", 0, what);
  if (levels.size() < 2 || levels.size() > 4) {
    throw UsageError(what + ".Levels must hold 2 to 4 levels, not " +
                     std::to_string(levels.size()));
  }
  tournament.SetLevels(static_cast<int16_t>(levels.size()));
  for (int16_t i = 1; i <= tournament.Levels(); ++i) {
    const Json& l = levels[static_cast<std::size_t>(i - 1)];
    const std::string at = what + ".Levels[" + std::to_string(i - 1) + "]";
    std::shared_ptr<CLevel> level = tournament.Level(i);
    const int16_t brackets = Value<int16_t>(l, "Brackets", FieldKind::Int16, at);
    level->SetBrackets(brackets);
    if (level->Brackets() != brackets) {
      throw UsageError(at + ".Brackets must be 2, 4, 8 or 16, not " + std::to_string(brackets));
    }
    level->SetRounds(Value<int16_t>(l, "Rounds", FieldKind::Int16, at));
    const auto count = static_cast<std::size_t>(level->BoutCount());
    const Json& bouts = Array(l, "Bouts", count, at);
    const Json& shown = Array(l, "DisplayFight", count, at);
    for (int16_t b = 1; b <= level->BoutCount(); ++b) {
      const auto k = static_cast<std::size_t>(b - 1);
      BoutFromJson(*level->Bout(b), bouts[k], at + ".Bouts[" + std::to_string(k) + "]");
      level->SetDisplayFight(
          b, CheckValue(FieldKind::Bool, shown[k], at + ".DisplayFight").get<bool>());
    }
  }
  tournament.SetOptions(OptionsFromJson(Member(json, "Options", what), what + ".Options"));
}

}  // namespace ringbook::cli
