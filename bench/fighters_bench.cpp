// The fighter collection against the same work done straight on SQLite with
// statements prepared once, over game databases of 1,000 and 100,000
// fighters (20 groups, 15 divisions; ratings 20 to 99, proficiency 0 to
// 100, performance points for three fighters in four, a title for one in
// fifty). Fighter 1 has 50 fights.
//
// In both worlds the listed group and division holds 300 fighters and a
// small one holds five; the others share the rest evenly (two or three each
// among 1,000 fighters, some 330 among 100,000), so that the lists measure
// the same work at both sizes.
//
// Targets: a single-fighter operation within 3x of its direct twin, and
// within 1.5x of its own cost at 1,000 fighters when there are 100,000; the
// list and ranking texts within 3x of theirs. Both sides use the same file,
// write-ahead log, synchronous setting and memory mapping, one commit per
// write. Each benchmark is written once for both sides (`Library`,
// `Direct`), which offer the same members.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bench/BenchSupport.h"
#include "core/DateTime.h"
#include "core/DefaultLookup.h"
#include "core/DefaultSettings.h"
#include "core/DefaultUtility.h"
#include "core/HostServices.h"
#include "fighters/NFighters.h"
#include "fighters/PerformanceText.h"
#include "store/GameDatabase.h"

namespace {

using ringbook::CFighter;
using ringbook::NFighters;
using ringbook::Variant;
using namespace ringbook::bench;
namespace fs = std::filesystem;

constexpr int kGroups = 20;
constexpr int kDivisions = 15;
constexpr int kTitles = 20;
constexpr int kHistoryFighter = 1;
constexpr int kFights = 50;

// The lists measured: a group and division of 300 fighters and one of five.
struct Place {
  int group;
  int division;
};
constexpr Place kListed = {1, 0};
constexpr int kListedSize = 300;
constexpr Place kSmall = {kGroups, kDivisions - 1};
constexpr int kSmallSize = 5;

// ---- The worlds ----

const fs::path& Worlds() {
  return Folder("fighters");
}

std::string NameOf(Lcg& rng) {
  static const char* const kSyllables[16] = {"ka",  "ro",  "mi", "tan", "lee", "jo", "vas", "quez",
                                             "son", "del", "ri", "mo",  "ber", "go", "ne",  "ty"};
  return ringbook::bench::NameOf(rng, kSyllables);
}

// The group and division of fighter `id` in every world: the listed list
// first, then the small one, then every other place in turn.
Place PlaceOf(int32_t id) {
  const int i = id - 1;
  if (i < kListedSize) return kListed;
  if (i < kListedSize + kSmallSize) return kSmall;
  constexpr int kOthers = kGroups * kDivisions - 2;
  int slot = (i - kListedSize - kSmallSize) % kOthers;
  // Slots run over the places in order, skipping the two measured ones.
  const int listed = (kListed.group - 1) * kDivisions + kListed.division;
  const int small = (kSmall.group - 1) * kDivisions + kSmall.division;
  for (const int skipped : {std::min(listed, small), std::max(listed, small)}) {
    if (slot >= skipped) ++slot;
  }
  return {1 + slot / kDivisions, slot % kDivisions};
}

// Makes the game database of `count` fighters, once per process.
std::string World(int count) {
  static std::map<int, std::string> worlds;
  if (auto it = worlds.find(count); it != worlds.end()) return it->second;
  const std::string path = (Worlds() / ("world-" + std::to_string(count) + ".db")).string();
  ringbook::CreateGameDatabase(path);
  sqlite3* db = nullptr;
  sqlite3_open(path.c_str(), &db);
  Exec(db, "BEGIN");
  for (int t = 1; t <= kTitles; ++t) {
    Exec(db, "INSERT INTO Titles (Name) VALUES ('Title " + std::to_string(t) + "')");
  }
  sqlite3_stmt* insert = Prepare(
      db,
      "INSERT INTO Fighters (GroupID, FirstName, LastName, NickName, Division, Rating, Style, "
      "ActiveRetired, Proficiency, Hp, Agg, Ki, Tko, Defn, Pl, Pm, J3, J2, H3, H2, Conditioning, "
      "Won, Lost, Draw, Kos, Tkos, HasPerformance, Performance, DisplayPerf, TotalPl, TotalPm, "
      "TotalRounds, TitleIDs, NumTitles, PicturePath) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, "
      "?10, ?11, ?12, ?13, ?14, ?15, ?16, ?17, ?18, ?19, ?20, ?21, ?22, ?23, ?24, ?25, ?26, ?27, "
      "?28, ?29, ?30, ?31, ?32, ?33, ?34, '')");
  Lcg rng(static_cast<uint64_t>(count));
  for (int i = 0; i < count; ++i) {
    const Place place = PlaceOf(i + 1);
    int c = 0;
    sqlite3_bind_int(insert, ++c, place.group);
    const std::string first = NameOf(rng), last = NameOf(rng);
    sqlite3_bind_text(insert, ++c, first.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(insert, ++c, last.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(insert, ++c, rng.Next() % 4 == 0 ? "Kid" : "", -1, SQLITE_STATIC);
    sqlite3_bind_int(insert, ++c, place.division);
    sqlite3_bind_int(insert, ++c, rng.Between(20, 99));
    sqlite3_bind_int(insert, ++c, rng.Between(0, 4));
    sqlite3_bind_int(insert, ++c, rng.Next() % 10 == 0);
    sqlite3_bind_int(insert, ++c, rng.Between(0, 100));
    for (int r = 0; r < 7; ++r) sqlite3_bind_int(insert, ++c, rng.Between(1, 99));
    for (int r = 0; r < 4; ++r) sqlite3_bind_double(insert, ++c, rng.Between(0, 400) / 4.0);
    sqlite3_bind_int(insert, ++c, rng.Between(40, 100));
    const int won = rng.Between(0, 40), lost = rng.Between(0, 15), draw = rng.Between(0, 3);
    sqlite3_bind_int(insert, ++c, won);
    sqlite3_bind_int(insert, ++c, lost);
    sqlite3_bind_int(insert, ++c, draw);
    sqlite3_bind_int(insert, ++c, won / 2);
    sqlite3_bind_int(insert, ++c, won / 4);
    const bool ranked = rng.Next() % 4 != 0;
    sqlite3_bind_int(insert, ++c, ranked);
    if (ranked) {
      sqlite3_bind_double(insert, ++c, rng.Between(0, 5000) / 100.0);
    } else {
      sqlite3_bind_null(insert, ++c);
    }
    sqlite3_bind_double(insert, ++c, rng.Between(0, 500) / 10.0);
    sqlite3_bind_int(insert, ++c, rng.Between(100, 9000));
    sqlite3_bind_int(insert, ++c, rng.Between(100, 9000));
    sqlite3_bind_int(insert, ++c, (won + lost + draw) * 8);
    const bool champion = rng.Next() % 50 == 0;
    const std::string titles =
        champion ? "|" + std::to_string(rng.Between(1, kTitles)) + "|" : std::string();
    sqlite3_bind_text(insert, ++c, titles.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_int(insert, ++c, champion ? 1 : 0);
    Step(db, insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  for (int f = 0; f < kFights; ++f) {
    Exec(db,
         "INSERT INTO FightHistories (FighterID, Division, \"Date\", Opponent, WonLostDraw, "
         "Decision, LastRound, ScheduledRounds, Notes) VALUES (" +
             std::to_string(kHistoryFighter) + ", 'Middleweight', " +
             std::to_string(ringbook::DateFromParts(1990 + f / 4, 1 + f % 12, 1 + f % 28)) +
             ", 'Opponent " + std::to_string(f) + "', 'Won', 'KO', " + std::to_string(1 + f % 12) +
             ", 12, 'Notes of fight " + std::to_string(f) + "')");
  }
  Exec(db, "COMMIT");
  sqlite3_close(db);
  worlds[count] = path;
  return path;
}

// Points the thread's settings at the world of `count` fighters.
void Use(int count) {
  ringbook::SetSettings(
      std::make_shared<ringbook::DefaultSettings>(World(count), Worlds().string()));
}

// ---- The library side ----

// The collection over the world of `count` fighters, no list bound but for
// the fills.
class Library {
 public:
  explicit Library(int count) {
    Use(count);
    fighters_ = std::make_unique<NFighters>();
  }

  std::shared_ptr<CFighter> Item(int32_t id) { return fighters_->Item(id); }
  void Add(const std::shared_ptr<CFighter>& f) { fighters_->AddRecord(f, false); }
  void UpdateProfile(const std::shared_ptr<CFighter>& f) {
    fighters_->UpdatePartialRecord(f, ringbook::ersProfile);
  }
  void UpdateCareer(const std::shared_ptr<CFighter>& f) {
    fighters_->UpdatePartialRecord(f, ringbook::ersCareer);
  }
  void FillList(const std::shared_ptr<VectorList>& list, int group, int division) {
    fighters_->FillList(Variant(list), group, static_cast<int16_t>(division));
  }
  std::string RankingList(int group, int division) {
    return fighters_->GetRankingList(group, static_cast<int16_t>(division));
  }
  std::string HistoryList(int32_t id) { return fighters_->GetHistoryList(id); }

 private:
  std::unique_ptr<NFighters> fighters_;
};

// ---- The direct side ----

// The fighter columns in the collection's order, with the setter and getter
// used to fill or write a record.
#define RB_I2(name) \
  { #name, 2, &CFighter::Set##name, nullptr, nullptr, &CFighter::name }
struct ColumnRef {
  const char* name;
  int kind;  // 2: 16-bit, 4: 32-bit, 5: float
  void (CFighter::*set16)(int16_t);
  void (CFighter::*set32)(int32_t);
  void (CFighter::*setf)(float);
  int16_t (CFighter::*get16)() const;
  int32_t (CFighter::*get32)() const = nullptr;
  float (CFighter::*getf)() const = nullptr;
};
#define RB_I4(name) \
  { #name, 4, nullptr, &CFighter::Set##name, nullptr, nullptr, &CFighter::name }
#define RB_R4(name) \
  { #name, 5, nullptr, nullptr, &CFighter::Set##name, nullptr, nullptr, &CFighter::name }
const std::vector<ColumnRef> kProfileNumbers = {
    RB_I2(Division),    RB_I2(Rating),       RB_I2(Style),     RB_I2(ActiveRetired),
    RB_I2(Sex),         RB_I2(SouthPaw),     RB_I2(SkinColor), RB_I2(Cfb),
    RB_I2(Cfs),         RB_I2(Hp),           RB_I2(Kdr1),      RB_I2(Kdr2),
    RB_I2(Kor),         RB_I2(Agg),          RB_I2(Ki),        RB_I2(Tko),
    RB_I2(E10),         RB_I2(Defn),         RB_I2(Cuts),      RB_I2(Fouls),
    RB_I2(Icor),        RB_I2(FastSlow),     RB_I2(Fi),        RB_I2(Fo),
    RB_I2(Cu),          RB_I2(Ko),           RB_I2(Pl),        RB_I2(Cp),
    RB_I2(Pm),          RB_I2(Cl),           RB_I2(Rm),        RB_R4(J3),
    RB_R4(J2),          RB_R4(H3),           RB_R4(H2),        RB_R4(Cr3),
    RB_R4(Cr2),         RB_R4(Cb3),          RB_R4(Cb2),       RB_R4(U3),
    RB_R4(U2),          RB_I2(Conditioning), RB_I2(Intellect), RB_I2(DrawPower),
    RB_I2(Proficiency), RB_I4(CutManID),     RB_I4(TrainerID)};
const std::vector<ColumnRef> kCareerNumbers = {
    RB_I4(Rank),     RB_I4(Won),       RB_I4(Lost),        RB_I4(Draw),
    RB_I4(Kos),      RB_I4(Tkos),      RB_R4(DisplayPerf), RB_I4(KdsFor),
    RB_I4(TotalPl),  RB_I4(TotalPm),   RB_I4(TotalCuts),   RB_I4(TotalRounds),
    RB_I4(OpKdsFor), RB_I4(OpTotalPl), RB_I4(OpTotalPm),   RB_I4(OpTotalCuts)};
#undef RB_I2
#undef RB_I4
#undef RB_R4

// Column lists and placeholders for the statements below.
std::string ProfileList(bool assign, int& n) {
  std::string sql = assign ? "GroupID = ?1, FirstName = ?2, LastName = ?3, NickName = ?4"
                           : "GroupID, FirstName, LastName, NickName";
  n = 4;
  for (const ColumnRef& c : kProfileNumbers) {
    sql += std::string(", ") + c.name + (assign ? " = ?" + std::to_string(++n) : "");
  }
  sql += assign ? ", PicturePath = ?" + std::to_string(++n) : ", PicturePath";
  return sql;
}

std::string CareerList(bool assign, int& n) {
  std::string sql;
  for (const ColumnRef& c : kCareerNumbers) {
    sql += std::string(sql.empty() ? "" : ", ") + c.name +
           (assign ? " = ?" + std::to_string(++n) : "");
  }
  for (const char* name : {"HasPerformance", "Performance", "TitleIDs", "NumTitles"}) {
    sql += std::string(", ") + name + (assign ? " = ?" + std::to_string(++n) : "");
  }
  return sql;
}

void BindNumber(sqlite3_stmt* s, int i, const CFighter& f, const ColumnRef& c) {
  if (c.kind == 2) sqlite3_bind_int(s, i, (f.*c.get16)());
  if (c.kind == 4) sqlite3_bind_int(s, i, (f.*c.get32)());
  if (c.kind == 5) sqlite3_bind_double(s, i, (f.*c.getf)());
}

int BindProfile(sqlite3_stmt* s, const CFighter& f, int i) {
  sqlite3_bind_int(s, ++i, std::stoi(f.GroupID()));
  sqlite3_bind_text(s, ++i, f.FirstName().c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_text(s, ++i, f.LastName().c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_text(s, ++i, f.NickName().c_str(), -1, SQLITE_TRANSIENT);
  for (const ColumnRef& c : kProfileNumbers) BindNumber(s, ++i, f, c);
  sqlite3_bind_text(s, ++i, f.PicturePath().c_str(), -1, SQLITE_TRANSIENT);
  return i;
}

int BindCareer(sqlite3_stmt* s, const CFighter& f, int i) {
  for (const ColumnRef& c : kCareerNumbers) BindNumber(s, ++i, f, c);
  sqlite3_bind_int(s, ++i, f.HasPerformance());
  if (f.Performance().IsNumeric()) {
    sqlite3_bind_double(s, ++i, f.Performance().ToDouble());
  } else {
    sqlite3_bind_null(s, ++i);
  }
  sqlite3_bind_text(s, ++i, f.TitleIDs().c_str(), -1, SQLITE_TRANSIENT);
  int bars = 0;
  for (char ch : f.TitleIDs()) bars += ch == '|';
  sqlite3_bind_int(s, ++i, f.TitleIDs().empty() ? 0 : bars - 1);
  return i;
}

// The same world through one connection and statements prepared once, with
// the members of `Library`.
class Direct {
 public:
  explicit Direct(int count) : db_(OpenDirect(World(count))) {
    Use(count);  // the lookup texts of the ranking
    int n = 0;
    item_ = Prepare(db_, "SELECT FighterID, " + ProfileList(false, n) + ", " +
                             CareerList(false, n) + " FROM Fighters WHERE FighterID = ?1");
    n = 0;
    std::string columns = ProfileList(false, n) + ", " + CareerList(false, n);
    n = static_cast<int>(5 + kProfileNumbers.size() + kCareerNumbers.size() + 4);
    std::string values;
    for (int i = 1; i <= n; ++i) values += (i > 1 ? ", ?" : "?") + std::to_string(i);
    insert_ = Prepare(db_, "INSERT INTO Fighters (" + columns + ") VALUES (" + values + ")");
    n = 0;
    const std::string profile = ProfileList(true, n);
    update_profile_ = Prepare(
        db_, "UPDATE Fighters SET " + profile + " WHERE FighterID = ?" + std::to_string(n + 1));
    n = 0;
    const std::string career = CareerList(true, n);
    update_career_ = Prepare(
        db_, "UPDATE Fighters SET " + career + " WHERE FighterID = ?" + std::to_string(n + 1));
    insert_history_ = Prepare(
        db_,
        "INSERT INTO FightHistories (FighterID, Division, \"Date\", Opponent, WonLostDraw, "
        "Decision, LastRound, ScheduledRounds, Notes) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)");
    const char* kName =
        "trim(CASE WHEN ifnull(NickName, '') <> '' THEN ifnull(FirstName, '') || ' ' || NickName "
        "|| ' ' || ifnull(LastName, '') ELSE ifnull(FirstName, '') || ' ' || ifnull(LastName, '') "
        "END)";
    group_ = Prepare(db_, std::string("SELECT FighterID, ") + kName +
                              " AS Name, Rating, Proficiency FROM Fighters WHERE GroupID = ?1 AND "
                              "Division = ?2 AND Proficiency BETWEEN ?3 AND ?4 ORDER BY "
                              "LastName, FirstName, FighterID");
    ranked_ = Prepare(db_, std::string("SELECT Performance, ") + kName +
                               " AS Name, Rating, Style, ActiveRetired, FighterID, NumTitles, "
                               "TitleIDs FROM Fighters WHERE GroupID = ?1 AND Division = ?2 "
                               "ORDER BY Performance IS NULL AND NOT ifnull(NumTitles, 0) > 0, "
                               "CASE WHEN NumTitles > 0 THEN NumTitles ELSE 0 END DESC, "
                               "Performance IS NULL, Performance DESC, LastName, FirstName, "
                               "FighterID");
    title_ = Prepare(db_, "SELECT Name FROM Titles WHERE TitleId = ?1");
    history_ = Prepare(db_,
                       "SELECT Division, \"Date\", Opponent, WonLostDraw, Decision, LastRound, "
                       "ScheduledRounds, Notes, FighterID, HistoryID FROM FightHistories WHERE "
                       "FighterID = ?1 ORDER BY \"Date\" DESC, HistoryID DESC");
  }
  Direct(const Direct&) = delete;
  Direct& operator=(const Direct&) = delete;
  ~Direct() {
    for (sqlite3_stmt* s : {item_, insert_, update_profile_, update_career_, insert_history_,
                            group_, ranked_, title_, history_}) {
      sqlite3_finalize(s);
    }
    sqlite3_close(db_);
  }

  std::shared_ptr<CFighter> Item(int32_t id) {
    auto f = std::make_shared<CFighter>();
    sqlite3_bind_int(item_, 1, id);
    if (sqlite3_step(item_) == SQLITE_ROW) {
      int i = 0;
      f->SetID(sqlite3_column_int(item_, i++));
      f->SetGroupID(std::to_string(sqlite3_column_int(item_, i++)));
      f->SetFirstName(Text(item_, i++));
      f->SetLastName(Text(item_, i++));
      f->SetNickName(Text(item_, i++));
      for (const ColumnRef& c : kProfileNumbers) Read(*f, c, i++);
      std::string picture = Text(item_, i++);
      if (!ringbook::Utility().CheckPicturePath(picture)) picture.clear();
      f->SetPicturePath(picture);
      for (const ColumnRef& c : kCareerNumbers) Read(*f, c, i++);
      f->SetHasPerformance(sqlite3_column_int(item_, i++) != 0);
      if (sqlite3_column_type(item_, i) != SQLITE_NULL) {
        f->SetPerformance(Variant(sqlite3_column_double(item_, i)));
      }
      ++i;
      f->SetTitleIDs(Text(item_, i++));
    }
    sqlite3_reset(item_);
    return f;
  }

  void Add(const std::shared_ptr<CFighter>& fighter) {
    CFighter& f = *fighter;
    BindCareer(insert_, f, BindProfile(insert_, f, 0));
    Step(db_, insert_);
    sqlite3_reset(insert_);
    f.SetID(static_cast<int32_t>(sqlite3_last_insert_rowid(db_)));
  }

  void UpdateProfile(const std::shared_ptr<CFighter>& fighter) {
    const CFighter& f = *fighter;
    const int n = BindProfile(update_profile_, f, 0);
    sqlite3_bind_int(update_profile_, n + 1, f.ID());
    Step(db_, update_profile_);
    sqlite3_reset(update_profile_);
  }

  void UpdateCareer(const std::shared_ptr<CFighter>& fighter) {
    const CFighter& f = *fighter;
    const int n = BindCareer(update_career_, f, 0);
    sqlite3_bind_int(update_career_, n + 1, f.ID());
    Step(db_, update_career_);
    sqlite3_reset(update_career_);
    const ringbook::CHistory& h = *f.History();
    sqlite3_stmt* s = insert_history_;
    sqlite3_bind_int(s, 1, f.ID());
    sqlite3_bind_text(s, 2, h.Division().c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_double(s, 3, h.FightDate());
    sqlite3_bind_text(s, 4, h.Opponent().c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(s, 5, h.WonLost().c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(s, 6, h.Decision().c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_int(s, 7, h.LastRound());
    sqlite3_bind_int(s, 8, h.ScheduledRounds());
    sqlite3_bind_text(s, 9, h.Notes().c_str(), -1, SQLITE_TRANSIENT);
    Step(db_, s);
    sqlite3_reset(s);
  }

  void FillList(const std::shared_ptr<VectorList>& to, int group, int division) {
    VectorList& list = *to;
    list.Clear();
    sqlite3_bind_int(group_, 1, group);
    sqlite3_bind_int(group_, 2, division);
    sqlite3_bind_int(group_, 3, -32768);
    sqlite3_bind_int(group_, 4, 32767);
    while (sqlite3_step(group_) == SQLITE_ROW) {
      list.AddItem(Text(group_, 1));
      list.SetItemData(list.NewIndex(), sqlite3_column_int(group_, 0));
    }
    sqlite3_reset(group_);
    list.Refresh();
  }

  std::string RankingList(int group, int division) {
    ringbook::ILookup& lookup = ringbook::Lookup();
    std::string text;
    int rank = 0;
    bool unranked = false;
    sqlite3_bind_int(ranked_, 1, group);
    sqlite3_bind_int(ranked_, 2, division);
    while (sqlite3_step(ranked_) == SQLITE_ROW) {
      const bool has_performance = sqlite3_column_type(ranked_, 0) != SQLITE_NULL;
      const std::string performance =
          has_performance ? ringbook::PerformanceText(Variant(sqlite3_column_double(ranked_, 0)))
                          : std::string();
      const bool ranked = has_performance || sqlite3_column_int(ranked_, 6) > 0;
      unranked = unranked || !ranked;
      text += "\t" + (ranked ? std::to_string(++rank) : std::string("UR")) + "\t" + performance +
              "\t" + Text(ranked_, 1) + "\t" + Text(ranked_, 2) + "\t" +
              lookup.Text(ringbook::ILookup::kFightingStyle, sqlite3_column_int(ranked_, 3)) + "\t";
      const std::string ids = Text(ranked_, 7);
      if (!ids.empty()) {
        const std::string tidy = ringbook::Utility().TrimSeparators(
            ringbook::Utility().CollapseSeparators(ids, "|"), "|");
        std::size_t start = 0;
        while (start <= tidy.size() && !tidy.empty()) {
          std::size_t bar = tidy.find('|', start);
          if (bar == std::string::npos) bar = tidy.size();
          sqlite3_bind_int(title_, 1, std::stoi(tidy.substr(start, bar - start)));
          if (sqlite3_step(title_) == SQLITE_ROW) {
            const std::string name = Text(title_, 0);
            if (!name.empty()) text += name + (bar < tidy.size() ? ", " : "");
          }
          sqlite3_reset(title_);
          start = bar + 1;
        }
      }
      text += "\r\n";
    }
    sqlite3_reset(ranked_);
    return text;
  }

  std::string HistoryList(int id) {
    std::string text;
    sqlite3_bind_int(history_, 1, id);
    while (sqlite3_step(history_) == SQLITE_ROW) {
      for (int c = 0; c < 8; ++c) {
        text += '\t';
        text +=
            c == 1 ? ringbook::FormatDate(sqlite3_column_double(history_, c)) : Text(history_, c);
      }
      text += "\r\n";
    }
    sqlite3_reset(history_);
    return text;
  }

 private:
  void Read(CFighter& f, const ColumnRef& c, int i) {
    if (c.kind == 2) (f.*c.set16)(static_cast<int16_t>(sqlite3_column_int(item_, i)));
    if (c.kind == 4) (f.*c.set32)(sqlite3_column_int(item_, i));
    if (c.kind == 5) (f.*c.setf)(static_cast<float>(sqlite3_column_double(item_, i)));
  }

  sqlite3* db_ = nullptr;
  sqlite3_stmt* item_ = nullptr;
  sqlite3_stmt* insert_ = nullptr;
  sqlite3_stmt* update_profile_ = nullptr;
  sqlite3_stmt* update_career_ = nullptr;
  sqlite3_stmt* insert_history_ = nullptr;
  sqlite3_stmt* group_ = nullptr;
  sqlite3_stmt* ranked_ = nullptr;
  sqlite3_stmt* title_ = nullptr;
  sqlite3_stmt* history_ = nullptr;
};

// ---- Shared inputs ----

std::shared_ptr<CFighter> NewFighter(Lcg& rng) {
  auto f = std::make_shared<CFighter>();
  f->SetGroupID(std::to_string(kGroups + 1));  // outside every listed group
  f->SetFirstName(NameOf(rng));
  f->SetLastName(NameOf(rng));
  f->SetRating(static_cast<int16_t>(rng.Between(20, 99)));
  f->SetProficiency(static_cast<int16_t>(rng.Between(0, 100)));
  f->SetHp(static_cast<int16_t>(rng.Between(1, 99)));
  f->SetJ3(static_cast<float>(rng.Between(0, 400)) / 4);
  f->SetWon(rng.Between(0, 30));
  f->SetPerformance(Variant(rng.Between(0, 5000) / 100.0));
  return f;
}

std::shared_ptr<ringbook::CHistory> Fight(Lcg& rng) {
  auto h = std::make_shared<ringbook::CHistory>();
  h->SetDivision("Welterweight");
  h->SetFightDate(ringbook::DateFromParts(2020, 1 + rng.Between(0, 11), 1 + rng.Between(0, 27)));
  h->SetOpponent(NameOf(rng) + " " + NameOf(rng));
  h->SetWonLost("Won");
  h->SetDecision("UD");
  h->SetLastRound(12);
  h->SetScheduledRounds(12);
  return h;
}

// A fighter other than the one with the long history.
int32_t SomeFighter(Lcg& rng, int count) {
  return 2 + static_cast<int32_t>(rng.Next() % static_cast<uint32_t>(count - 1));
}

// Makes `f` fighter `id` of the world, in the group and division he was
// made in, so that profile saves leave the lists as they were.
void BecomeFighter(CFighter& f, int32_t id) {
  const Place place = PlaceOf(id);
  f.SetID(id);
  f.SetGroupID(std::to_string(place.group));
  f.SetDivision(static_cast<int16_t>(place.division));
}

// ---- Benchmarks, each for both sides ----

template <class Side>
void BM_Item(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  Side side(count);
  Lcg rng(7);
  for (auto _ : state) {
    Measured([&] { benchmark::DoNotOptimize(side.Item(SomeFighter(rng, count))); });
  }
}

template <class Side>
void BM_AddRecord(benchmark::State& state) {
  Side side(static_cast<int>(state.range(0)));
  Lcg rng(11);
  for (auto _ : state) {
    state.PauseTiming();
    auto f = NewFighter(rng);
    state.ResumeTiming();
    Measured([&] { side.Add(f); });
  }
}

// A profile save (the fighter keeps his place) or a career save with a new
// fight, of a fighter picked at random.
template <class Side, bool Career>
void BM_UpdatePartialRecord(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  Side side(count);
  Lcg rng(Career ? 17 : 13);
  auto f = NewFighter(rng);
  for (auto _ : state) {
    if constexpr (Career) {
      f->SetID(SomeFighter(rng, count));
      f->SetWon(f->Won() + 1);
      f->SetHistory(Fight(rng));
      Measured([&] { side.UpdateCareer(f); });
    } else {
      BecomeFighter(*f, SomeFighter(rng, count));
      f->SetRating(static_cast<int16_t>(rng.Between(20, 99)));
      Measured([&] { side.UpdateProfile(f); });
    }
  }
}

template <class Side, const Place& List>
void BM_FillList(benchmark::State& state) {
  Side side(static_cast<int>(state.range(0)));
  auto list = std::make_shared<VectorList>();
  for (auto _ : state) {
    Measured([&] { side.FillList(list, List.group, List.division); });
    benchmark::DoNotOptimize(list->ListCount());
  }
  state.counters["items"] = list->ListCount();
}

template <class Side>
void BM_GetRankingList(benchmark::State& state) {
  Side side(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Measured([&] { benchmark::DoNotOptimize(side.RankingList(kListed.group, kListed.division)); });
  }
}

template <class Side>
void BM_GetHistoryList(benchmark::State& state) {
  Side side(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Measured([&] { benchmark::DoNotOptimize(side.HistoryList(kHistoryFighter)); });
  }
}

// Each benchmark as "BM_<name>" for the library and "BM_<name>_Direct"
// beside it, at both world sizes.
template <class Function>
void Register(const std::string& name, Function library, Function direct) {
  for (const auto& [suffix, function] : {std::pair{"", library}, std::pair{"_Direct", direct}}) {
    benchmark::RegisterBenchmark((name + suffix).c_str(), function)
        ->Arg(1000)
        ->Arg(100000)
        ->Unit(benchmark::kMicrosecond);
  }
}

const bool kRegistered = [] {
  Register("BM_Item", BM_Item<Library>, BM_Item<Direct>);
  Register("BM_AddRecord", BM_AddRecord<Library>, BM_AddRecord<Direct>);
  Register("BM_UpdatePartialRecord_Profile", BM_UpdatePartialRecord<Library, false>,
           BM_UpdatePartialRecord<Direct, false>);
  Register("BM_UpdatePartialRecord_CareerWithFight", BM_UpdatePartialRecord<Library, true>,
           BM_UpdatePartialRecord<Direct, true>);
  Register("BM_FillList", BM_FillList<Library, kListed>, BM_FillList<Direct, kListed>);
  Register("BM_FillList_Small", BM_FillList<Library, kSmall>, BM_FillList<Direct, kSmall>);
  Register("BM_GetRankingList", BM_GetRankingList<Library>, BM_GetRankingList<Direct>);
  Register("BM_GetHistoryList", BM_GetHistoryList<Library>, BM_GetHistoryList<Direct>);
  return true;
}();

}  // namespace
