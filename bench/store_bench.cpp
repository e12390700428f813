// The record store through the judges collection, against the same work
// done straight on SQLite with statements prepared once, over game
// databases of 1,000 and 100,000 judges (names from syllables, seven eras).
// No list is bound for the single-record operations.
//
// Targets: each single-record operation (Item, AddRecord, UpdateRecord,
// RemoveRecord) within 3x of its direct twin, and within 1.5x of its own
// cost at 1,000 judges when there are 100,000. The two sides use files of
// the same contents with the same settings as the store: write-ahead log,
// synchronous = NORMAL, the file mapped into memory, one commit per write.
//
// The table keeps its size: a timed add is followed by an untimed remove of
// the same row, and a timed remove by an untimed add before it (those
// benchmarks time each call by hand).
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bench/BenchSupport.h"
#include "core/DefaultSettings.h"
#include "core/HostServices.h"
#include "core/IListControl.h"
#include "people/CJudge.h"
#include "store/GameDatabase.h"
#include "store/NJudges.h"

namespace {

namespace fs = std::filesystem;
using ringbook::CJudge;
using ringbook::NJudges;
using ringbook::Variant;
using namespace ringbook::bench;

constexpr int kEras = 7;
constexpr int kListedEra = 3;

// The query of the collection, as a new game database stores it.
constexpr const char* kJudgesQuery =
    "SELECT JudgeID, FirstName, LastName, Era, Bias, trim(ifnull(FirstName, '')) || ' ' || "
    "trim(ifnull(LastName, '')) AS Name FROM Judges ORDER BY LastName, FirstName, JudgeID";

// ---- The worlds ----

const fs::path& Worlds() {
  return Folder("store");
}

std::string NameOf(Lcg& rng) {
  static const char* const kSyllables[16] = {"ha", "ri", "mon", "ta",  "ke", "lo", "vin", "dra",
                                             "su", "el", "bo",  "rak", "ni", "ga", "tor", "pe"};
  return ringbook::bench::NameOf(rng, kSyllables);
}

// A new game database of `count` judges, for side `side` ("store" or
// "direct"), made once per process: every side works on a file of its own
// with the same rows.
std::string World(const char* side, int count) {
  static std::map<std::pair<std::string, int>, std::string> worlds;
  const auto id = std::make_pair(std::string(side), count);
  if (auto it = worlds.find(id); it != worlds.end()) return it->second;
  const std::string path =
      (Worlds() / (std::string(side) + "-" + std::to_string(count) + ".db")).string();
  ringbook::CreateGameDatabase(path);
  sqlite3* db = nullptr;
  sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  Exec(db, "BEGIN");
  sqlite3_stmt* insert =
      Prepare(db, "INSERT INTO Judges (FirstName, LastName, Era, Bias) VALUES (?1, ?2, ?3, ?4)");
  Lcg rng(static_cast<uint64_t>(count));
  for (int i = 0; i < count; ++i) {
    const std::string first = NameOf(rng), last = NameOf(rng);
    sqlite3_bind_text(insert, 1, first.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(insert, 2, last.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_int(insert, 3, i % kEras);
    sqlite3_bind_int(insert, 4, rng.Below(5));
    Step(db, insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  Exec(db, "COMMIT");
  sqlite3_close(db);
  worlds[id] = path;
  return path;
}

// Points the thread's settings at the store's world of `count` judges.
void UseStoreWorld(int count) {
  ringbook::SetSettings(
      std::make_shared<ringbook::DefaultSettings>(World("store", count), Worlds().string()));
}

// ---- The direct side ----

// The same work through one connection and statements prepared once.
class Direct {
 public:
  explicit Direct(int count) : db_(OpenDirect(World("direct", count))) {
    item_ = Prepare(
        db_, "SELECT JudgeID, FirstName, LastName, Era, Bias FROM Judges WHERE JudgeID = ?1");
    insert_ =
        Prepare(db_, "INSERT INTO Judges (FirstName, LastName, Era, Bias) VALUES (?1, ?2, ?3, ?4)");
    update_ = Prepare(db_,
                      "UPDATE Judges SET FirstName = ?1, LastName = ?2, Era = ?3, Bias = ?4 "
                      "WHERE JudgeID = ?5");
    delete_ = Prepare(db_, "DELETE FROM Judges WHERE JudgeID = ?1");
    query_ = Prepare(db_, kJudgesQuery);
  }
  ~Direct() {
    for (sqlite3_stmt* s : {item_, insert_, update_, delete_, query_}) sqlite3_finalize(s);
    sqlite3_close(db_);
  }
  Direct(const Direct&) = delete;
  Direct& operator=(const Direct&) = delete;

  std::shared_ptr<CJudge> Item(int32_t id) {
    auto judge = std::make_shared<CJudge>();
    sqlite3_bind_int(item_, 1, id);
    if (sqlite3_step(item_) == SQLITE_ROW) {
      judge->SetID(sqlite3_column_int(item_, 0));
      judge->SetFirstName(Text(item_, 1));
      judge->SetLastName(Text(item_, 2));
      judge->SetEra(static_cast<int16_t>(sqlite3_column_int(item_, 3)));
      judge->SetBias(sqlite3_column_int(item_, 4));
    }
    sqlite3_reset(item_);
    return judge;
  }

  void Add(CJudge& judge) {
    BindFields(insert_, judge);
    Step(db_, insert_);
    sqlite3_reset(insert_);
    judge.SetID(static_cast<int32_t>(sqlite3_last_insert_rowid(db_)));
  }

  void Update(const CJudge& judge) {
    BindFields(update_, judge);
    sqlite3_bind_int(update_, 5, judge.ID());
    Step(db_, update_);
    sqlite3_reset(update_);
  }

  void Remove(int32_t id) {
    sqlite3_bind_int(delete_, 1, id);
    Step(db_, delete_);
    sqlite3_reset(delete_);
  }

  // The collection's query, every row read, the judges of one era listed.
  void FillList(ringbook::IListControl& list, int era) {
    list.Clear();
    while (sqlite3_step(query_) == SQLITE_ROW) {
      if (sqlite3_column_int(query_, 3) != era) continue;
      list.AddItem(Text(query_, 5));
      list.SetItemData(list.NewIndex(), sqlite3_column_int(query_, 0));
    }
    sqlite3_reset(query_);
    list.Refresh();
  }

 private:
  static void BindFields(sqlite3_stmt* s, const CJudge& judge) {
    sqlite3_bind_text(s, 1, judge.FirstName().c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(s, 2, judge.LastName().c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_int(s, 3, judge.Era());
    sqlite3_bind_int(s, 4, judge.Bias());
  }

  sqlite3* db_ = nullptr;
  sqlite3_stmt* item_ = nullptr;
  sqlite3_stmt* insert_ = nullptr;
  sqlite3_stmt* update_ = nullptr;
  sqlite3_stmt* delete_ = nullptr;
  sqlite3_stmt* query_ = nullptr;
};

// ---- Shared inputs ----

// A judge with new values; `id` 0 for a new one.
std::shared_ptr<CJudge> NewJudge(Lcg& rng, int32_t id = 0) {
  auto judge = std::make_shared<CJudge>();
  judge->SetID(id);
  judge->SetFirstName(NameOf(rng));
  judge->SetLastName(NameOf(rng));
  judge->SetEra(static_cast<int16_t>(rng.Below(kEras)));
  judge->SetBias(rng.Below(5));
  return judge;
}

// One of the judges the world was made with (never removed).
int32_t SomeJudge(Lcg& rng, int count) {
  return 1 + rng.Below(count);
}

// Runs `work` and gives its wall time in seconds.
template <class Work>
double Timed(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  Measured(work);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// ---- Benchmarks ----

void BM_Item(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  UseStoreWorld(count);
  NJudges judges;
  Lcg rng(7);
  for (auto _ : state) {
    Measured([&] { benchmark::DoNotOptimize(judges.Item(SomeJudge(rng, count))); });
  }
}

void BM_Item_Direct(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  Direct direct(count);
  Lcg rng(7);
  for (auto _ : state) {
    Measured([&] { benchmark::DoNotOptimize(direct.Item(SomeJudge(rng, count))); });
  }
}

void BM_AddRecord(benchmark::State& state) {
  UseStoreWorld(static_cast<int>(state.range(0)));
  NJudges judges;
  Lcg rng(11);
  for (auto _ : state) {
    auto judge = NewJudge(rng);
    state.SetIterationTime(Timed([&] { judges.AddRecord(judge); }));
    judges.RemoveRecord(judge->ID());
  }
}

void BM_AddRecord_Direct(benchmark::State& state) {
  Direct direct(static_cast<int>(state.range(0)));
  Lcg rng(11);
  for (auto _ : state) {
    auto judge = NewJudge(rng);
    state.SetIterationTime(Timed([&] { direct.Add(*judge); }));
    direct.Remove(judge->ID());
  }
}

void BM_UpdateRecord(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  UseStoreWorld(count);
  NJudges judges;
  Lcg rng(13);
  for (auto _ : state) {
    auto judge = NewJudge(rng, SomeJudge(rng, count));
    Measured([&] { benchmark::DoNotOptimize(judges.UpdateRecord(judge)); });
  }
}

void BM_UpdateRecord_Direct(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  Direct direct(count);
  Lcg rng(13);
  for (auto _ : state) {
    auto judge = NewJudge(rng, SomeJudge(rng, count));
    Measured([&] { direct.Update(*judge); });
  }
}

void BM_RemoveRecord(benchmark::State& state) {
  UseStoreWorld(static_cast<int>(state.range(0)));
  NJudges judges;
  Lcg rng(17);
  for (auto _ : state) {
    auto judge = judges.AddRecord(NewJudge(rng));
    state.SetIterationTime(Timed([&] { judges.RemoveRecord(judge->ID()); }));
  }
}

void BM_RemoveRecord_Direct(benchmark::State& state) {
  Direct direct(static_cast<int>(state.range(0)));
  Lcg rng(17);
  for (auto _ : state) {
    auto judge = NewJudge(rng);
    direct.Add(*judge);
    state.SetIterationTime(Timed([&] { direct.Remove(judge->ID()); }));
  }
}

// The list of one era, filled again and again by the same collection (its
// keyset built by the first fill).
void BM_FillList(benchmark::State& state) {
  UseStoreWorld(static_cast<int>(state.range(0)));
  NJudges judges;
  auto list = std::make_shared<VectorList>();
  judges.BindTo(list);
  for (auto _ : state) {
    Measured([&] { judges.FillList(Variant(), kListedEra); });
    benchmark::DoNotOptimize(list->ListCount());
  }
  state.counters["items"] = list->ListCount();
}

// A collection opened and its list filled once, as a form does when it
// shows: opening the database and building the keyset included.
void BM_OpenAndFillList(benchmark::State& state) {
  UseStoreWorld(static_cast<int>(state.range(0)));
  auto list = std::make_shared<VectorList>();
  for (auto _ : state) {
    Measured([&] {
      NJudges judges;
      judges.FillList(list, kListedEra);
    });
    benchmark::DoNotOptimize(list->ListCount());
  }
  state.counters["items"] = list->ListCount();
}

void BM_FillList_Direct(benchmark::State& state) {
  Direct direct(static_cast<int>(state.range(0)));
  VectorList list;
  for (auto _ : state) {
    Measured([&] { direct.FillList(list, kListedEra); });
    benchmark::DoNotOptimize(list.ListCount());
  }
  state.counters["items"] = list.ListCount();
}

#define RB_STORE_BENCH(name) BENCHMARK(name)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond)
#define RB_STORE_BENCH_TIMED(name) RB_STORE_BENCH(name)->UseManualTime()
RB_STORE_BENCH(BM_Item);
RB_STORE_BENCH(BM_Item_Direct);
RB_STORE_BENCH_TIMED(BM_AddRecord);
RB_STORE_BENCH_TIMED(BM_AddRecord_Direct);
RB_STORE_BENCH(BM_UpdateRecord);
RB_STORE_BENCH(BM_UpdateRecord_Direct);
RB_STORE_BENCH_TIMED(BM_RemoveRecord);
RB_STORE_BENCH_TIMED(BM_RemoveRecord_Direct);
RB_STORE_BENCH(BM_FillList);
RB_STORE_BENCH(BM_OpenAndFillList);
RB_STORE_BENCH(BM_FillList_Direct);
#undef RB_STORE_BENCH_TIMED
#undef RB_STORE_BENCH

}  // namespace
