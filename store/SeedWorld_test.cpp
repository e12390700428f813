#include "store/SeedWorld.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "core/DefaultSettings.h"
#include "core/HostServices.h"
#include "store/Database.h"
#include "store/DefaultData.h"
#include "store/GameDatabase.h"
#include "store/NAnnouncers.h"
#include "store/NCornermen.h"
#include "store/NGroups.h"
#include "store/NJudges.h"
#include "store/NLocations.h"
#include "store/NReferees.h"
#include "store/NTitles.h"
#include "store/Recordset.h"
#include "support/ListBoxDouble.h"
#include "support/Raised.h"
#include "support/SqlFile.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::ExecSql;
using test::ListBoxDouble;
using test::QuerySql;
using Texts = std::vector<std::string>;

constexpr const char* kTables[] = {"Locations", "Announcers", "Judges", "Referees",
                                   "Cornermen", "Groups",     "Titles"};

// Field `field` of row `row` of `block`, straight from the string table.
std::string Entry(DefaultDataBlock block, int row, int field) {
  return DefaultDataString(DefaultDataEntryNumber(block, row, field));
}
int Number(DefaultDataBlock block, int row, int field) {
  return std::stoi(Entry(block, row, field));
}
int Count(DefaultDataBlock block) {
  return std::stoi(DefaultDataString(DefaultDataCountEntry(block)));
}

template <class T>
std::vector<T> Sorted(std::vector<T> values) {
  std::sort(values.begin(), values.end());
  return values;
}

using test::Raised;

class SeedWorldTest : public ::testing::Test {
 protected:
  void TearDown() override { SetSettings(nullptr); }

  // Points the thread's settings at the world, for reading it back through
  // the collections.
  void Open() { SetSettings(std::make_shared<DefaultSettings>(path_, dir_.Path().string())); }

  int Rows(const std::string& table) const {
    return std::stoi(QuerySql(path_, "SELECT count(*) FROM \"" + table + "\""));
  }
  // Every row of every seeded table, as one text: for "nothing changed".
  std::string Contents() const {
    std::string all;
    auto database = Database::Open(path_);
    for (const char* table : kTables) {
      auto rows = database->OpenRecordset(table, RecordsetType::Table);
      all += std::string(table) + ":";
      if (rows->RecordCount() <= 0) continue;
      for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
        for (const std::string& field : rows->FieldNames())
          all += rows->Field(field).ToText() + ",";
        all += "\n";
      }
    }
    return all;
  }

  test::TempDir dir_;
  std::string path_ = dir_.File("world.db");
};

TEST_F(SeedWorldTest, CreatesTheWorldWithEveryDefaultRow) {
  std::vector<std::pair<int32_t, int32_t>> calls;
  const SeedReport seeded =
      SeedGameWorld(path_, [&](int32_t done, int32_t total) { calls.emplace_back(done, total); });

  EXPECT_TRUE(seeded.Created);
  EXPECT_EQ(seeded.Total(), 400);
  // What the report says, what the file holds and what the data has.
  const std::pair<int32_t, int> reported[] = {
      {seeded.Locations, Count(DefaultDataBlock::Locations)},
      {seeded.Announcers, Count(DefaultDataBlock::Announcers)},
      {seeded.Judges, Count(DefaultDataBlock::Judges)},
      {seeded.Referees, Count(DefaultDataBlock::Referees)},
      {seeded.Cornermen, Count(DefaultDataBlock::Cornermen)},
      {seeded.Groups, 1},
      {seeded.Titles, 17}};
  for (std::size_t i = 0; i < std::size(kTables); ++i) {
    EXPECT_EQ(reported[i].first, reported[i].second) << kTables[i];
    EXPECT_EQ(Rows(kTables[i]), reported[i].second) << kTables[i];
  }
  EXPECT_EQ(Rows("Fighters"), 0);

  // Progress: 0 first, then one call per row, the total always the same.
  ASSERT_EQ(calls.size(), 401u);
  for (std::size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(calls[i], std::make_pair(static_cast<int32_t>(i), int32_t{400})) << i;
  }
}

TEST_F(SeedWorldTest, LocationsCarryTheirEraSiteRatingAndPriceIndex) {
  SeedGameWorld(path_);
  Open();
  NLocations locations;
  const int count = Count(DefaultDataBlock::Locations);
  for (int row = 1; row <= count; ++row) {
    SCOPED_TRACE("location " + std::to_string(row));
    auto location = locations.Item(row);
    EXPECT_EQ(location->ID(), row);
    EXPECT_EQ(location->Arena(), Entry(DefaultDataBlock::Locations, row, 1));
    EXPECT_EQ(location->City(), Entry(DefaultDataBlock::Locations, row, 2));
    EXPECT_EQ(location->Country(), Entry(DefaultDataBlock::Locations, row, 3));
    EXPECT_EQ(location->Era(), Number(DefaultDataBlock::Locations, row, 4));
    const int rating = Number(DefaultDataBlock::Locations, row, 5);
    EXPECT_EQ(location->SiteRating(), rating);
    // The rating to the nearest ten, halves up, in tens.
    EXPECT_EQ(location->PriceIndex(), std::lround(rating / 10.0));
  }
  // What the game expects of every venue.
  EXPECT_EQ(QuerySql(path_,
                     "SELECT count(*) FROM Locations WHERE Era NOT BETWEEN 1 AND 5 OR "
                     "SiteRating NOT BETWEEN 10 AND 70 OR PriceIndex NOT BETWEEN 1 AND 7"),
            "0");
}

TEST_F(SeedWorldTest, PeopleCarryTheirDocumentedColumns) {
  SeedGameWorld(path_);
  Open();

  NAnnouncers announcers;
  for (int row = 1; row <= Count(DefaultDataBlock::Announcers); ++row) {
    auto announcer = announcers.Item(row);
    EXPECT_EQ(announcer->FirstName(), Entry(DefaultDataBlock::Announcers, row, 1));
    EXPECT_EQ(announcer->LastName(), Entry(DefaultDataBlock::Announcers, row, 2));
    EXPECT_EQ(announcer->Era(), Number(DefaultDataBlock::Announcers, row, 3));
  }

  NJudges judges;
  int reserves = 0;
  for (int row = 1; row <= Count(DefaultDataBlock::Judges); ++row) {
    auto judge = judges.Item(row);
    const std::string last = Entry(DefaultDataBlock::Judges, row, 2);
    EXPECT_EQ(judge->FirstName(), Entry(DefaultDataBlock::Judges, row, 1));
    EXPECT_EQ(judge->LastName(), last);
    EXPECT_EQ(judge->Bias(), Number(DefaultDataBlock::Judges, row, 3));
    EXPECT_EQ(judge->Era(), 0);
    if (last == "1" || last == "2" || last == "3") ++reserves;
  }
  // The reserve judges keep the number in their last name.
  EXPECT_EQ(reserves, 3);

  // Judgement by fouls (rows) and stoppage (columns).
  constexpr int kJudgement[3][3] = {{0, 0, 1}, {0, 1, 1}, {1, 1, 2}};
  NReferees referees;
  for (int row = 1; row <= Count(DefaultDataBlock::Referees); ++row) {
    SCOPED_TRACE("referee " + std::to_string(row));
    auto referee = referees.Item(row);
    const int fouls = Number(DefaultDataBlock::Referees, row, 4);
    const int stoppage = Number(DefaultDataBlock::Referees, row, 5);
    EXPECT_EQ(referee->FirstName(), Entry(DefaultDataBlock::Referees, row, 1));
    EXPECT_EQ(referee->LastName(), Entry(DefaultDataBlock::Referees, row, 2));
    EXPECT_EQ(referee->ActiveRetired(), Number(DefaultDataBlock::Referees, row, 3));
    EXPECT_EQ(referee->Fouls(), fouls);
    EXPECT_EQ(referee->Stoppage(), stoppage);
    EXPECT_EQ(referee->Judgement(), kJudgement[fouls][stoppage]);
    EXPECT_EQ(referee->Rating(), fouls + stoppage + kJudgement[fouls][stoppage]);
    EXPECT_EQ(referee->Era(), 0);
  }
}

TEST_F(SeedWorldTest, CornermenGetFullSkillInTheirOwnTradeAndHalfInTheOther) {
  SeedGameWorld(path_);
  Open();
  NCornermen cornermen;
  std::set<int> specialties;
  for (int row = 1; row <= Count(DefaultDataBlock::Cornermen); ++row) {
    SCOPED_TRACE("cornerman " + std::to_string(row));
    auto cornerman = cornermen.Item(row);
    const int specialty = Number(DefaultDataBlock::Cornermen, row, 3);
    const int skill = Number(DefaultDataBlock::Cornermen, row, 5);
    specialties.insert(specialty);
    EXPECT_EQ(cornerman->FirstName(), Entry(DefaultDataBlock::Cornermen, row, 1));
    EXPECT_EQ(cornerman->LastName(), Entry(DefaultDataBlock::Cornermen, row, 2));
    EXPECT_EQ(cornerman->Specialty(), specialty);
    EXPECT_EQ(cornerman->Discipline(), Number(DefaultDataBlock::Cornermen, row, 4));
    EXPECT_EQ(cornerman->Motivate(), Number(DefaultDataBlock::Cornermen, row, 6));
    const bool trains = specialty != 1;
    const bool cuts = specialty != 0;
    EXPECT_EQ(cornerman->Strategy(), trains ? skill : skill / 2);
    EXPECT_EQ(cornerman->CloseCuts(), cuts ? skill : skill / 2);
    EXPECT_EQ(cornerman->ReduceSwelling(), cuts ? skill : skill / 2);
    EXPECT_EQ(cornerman->TrainingOffense(), 0);
    EXPECT_EQ(cornerman->TrainingDefense(), 0);
    EXPECT_EQ(cornerman->TrainingAverage(), 0);
    EXPECT_EQ(cornerman->NickName(), "");
    EXPECT_EQ(cornerman->Era(), 0);
  }
  // The data has every kind of cornerman, so every branch above was taken.
  EXPECT_EQ(specialties, (std::set<int>{0, 1, 2}));
}

TEST_F(SeedWorldTest, OneGroupAndAWorldTitlePerDivisionLightestFirst) {
  SeedGameWorld(path_);
  Open();
  NGroups groups;
  EXPECT_EQ(groups.GetGroupList(), "World\r\n");
  EXPECT_EQ(groups.Item(1)->Name(), "World");

  NTitles titles;
  EXPECT_EQ(titles.Item(1)->Name(), "World Minimumweight Title");
  EXPECT_EQ(titles.Item(17)->Name(), "World Heavyweight Title");
  std::set<std::string> names;
  for (int id = 1; id <= 17; ++id) names.insert(titles.Item(id)->Name());
  EXPECT_EQ(names.size(), 17u);
}

TEST_F(SeedWorldTest, EraFiltersListExactlyTheSeededRowsOfAnEra) {
  SeedGameWorld(path_);
  Open();
  auto list = std::make_shared<ListBoxDouble>();

  NLocations locations;
  int listed = 0;
  for (int16_t era = 0; era <= 5; ++era) {
    SCOPED_TRACE("era " + std::to_string(era));
    Texts arenas;
    std::vector<int32_t> keys;
    Texts modest;  // the era's sites rated up to 40
    for (int row = 1; row <= Count(DefaultDataBlock::Locations); ++row) {
      if (Number(DefaultDataBlock::Locations, row, 4) != era) continue;
      arenas.push_back(Entry(DefaultDataBlock::Locations, row, 1));
      keys.push_back(row);
      if (Number(DefaultDataBlock::Locations, row, 5) <= 40) modest.push_back(arenas.back());
    }
    locations.FillList(list, era);
    EXPECT_EQ(Sorted(list->Texts()), Sorted(arenas));
    EXPECT_EQ(Sorted(list->Data()), keys);
    listed += list->ListCount();
    locations.FillList(Variant(), era, Variant(int32_t{40}));
    EXPECT_EQ(Sorted(list->Texts()), Sorted(modest));
  }
  EXPECT_EQ(listed, 137);

  // Officials and staff belong to every era: all of them show under era 0,
  // none under a period.
  NJudges judges;
  judges.FillList(list, 0);
  EXPECT_EQ(list->ListCount(), 117);
  judges.FillList(list, 3);
  EXPECT_EQ(list->ListCount(), 0);
  NReferees referees;
  referees.FillList(list, 0);
  EXPECT_EQ(list->ListCount(), 36);
  NCornermen cornermen;
  cornermen.FillList(list, 0);
  EXPECT_EQ(list->ListCount(), 79);
}

TEST_F(SeedWorldTest, ASecondSeedIsRefusedAndChangesNothing) {
  SeedGameWorld(path_);
  const std::string before = Contents();
  int calls = 0;
  const Error e = Raised([&] { SeedGameWorld(path_, [&](int32_t, int32_t) { ++calls; }); });
  EXPECT_EQ(e.Number(), dberr::kDatabaseExists);
  EXPECT_EQ(e.Description(),
            "The game database '" + path_ + "' already holds rows; seeding would duplicate them.");
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(Contents(), before);
  EXPECT_TRUE(std::filesystem::exists(path_));
}

TEST_F(SeedWorldTest, ARowInAnyOneSeededTableRefusesTheSeeding) {
  for (const char* table : kTables) {
    SCOPED_TRACE(table);
    const std::string path = dir_.File(std::string(table) + ".db");
    CreateGameDatabase(path);
    const std::string column =
        std::string(table) == "Groups" || std::string(table) == "Titles" ? "Name" : "Era";
    ExecSql(path, "INSERT INTO \"" + std::string(table) + "\" (" + column + ") VALUES (1)");
    EXPECT_EQ(Raised([&] { SeedGameWorld(path); }).Number(), dberr::kDatabaseExists);
    for (const char* other : kTables) {
      EXPECT_EQ(QuerySql(path, "SELECT count(*) FROM \"" + std::string(other) + "\""),
                std::string(other) == table ? "1" : "0")
          << other;
    }
  }
}

TEST_F(SeedWorldTest, AFailureHalfwayLeavesNothingSeeded) {
  CreateGameDatabase(path_);
  // The engine refuses one cornerman, after every location, announcer,
  // judge and referee went in.
  const std::string last_name = Entry(DefaultDataBlock::Cornermen, 40, 2);
  ExecSql(path_, "CREATE TRIGGER NoCornerman BEFORE INSERT ON Cornermen WHEN NEW.LastName = '" +
                     last_name + "' BEGIN SELECT RAISE(ABORT, 'refused'); END");
  int32_t reached = 0;
  EXPECT_THROW(SeedGameWorld(path_, [&](int32_t done, int32_t) { reached = done; }), Error);
  EXPECT_GT(reached, 137 + 13 + 117 + 36);
  for (const char* table : kTables) EXPECT_EQ(Rows(table), 0) << table;
  // The file that was there stays, and seeds once the obstacle is gone.
  ExecSql(path_, "DROP TRIGGER NoCornerman");
  const SeedReport seeded = SeedGameWorld(path_);
  EXPECT_FALSE(seeded.Created);
  EXPECT_EQ(seeded.Total(), 400);
  EXPECT_EQ(Rows("Cornermen"), 79);
}

TEST_F(SeedWorldTest, AFailedSeedRemovesTheFileItCreated) {
  struct Stop : std::runtime_error {
    Stop() : std::runtime_error("stop") {}
  };
  EXPECT_THROW(SeedGameWorld(path_,
                             [](int32_t done, int32_t) {
                               if (done == 200) throw Stop();
                             }),
               Stop);
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
    EXPECT_FALSE(std::filesystem::exists(path_ + suffix)) << suffix;
  }
  // A file that is not a game database is refused and left as it was.
  const std::string notes = dir_.File("notes.txt");
  std::ofstream(notes) << "a shopping list, not a game world";
  EXPECT_EQ(Raised([&] { SeedGameWorld(notes); }).Number(), dberr::kUnrecognizedFormat);
  EXPECT_EQ(std::filesystem::file_size(notes), 33u);
}

TEST_F(SeedWorldTest, TheCallersSettingsObjectIsPutBack) {
  auto own = std::make_shared<DefaultSettings>(dir_.File("elsewhere.db"), "/options/here");
  SetSettings(own);
  std::string seen_path;
  std::string seen_options;
  SeedGameWorld(path_, [&](int32_t done, int32_t) {
    if (done != 1) return;
    seen_path = Settings().DatabasePath();
    seen_options = Settings().OptionsFolder(0);
  });
  // While seeding, the settings name the world; the options stay the host's.
  EXPECT_EQ(seen_path, path_);
  EXPECT_EQ(seen_options, own->OptionsFolder(0));
  EXPECT_EQ(CurrentSettings(), own);

  // Also after a failure: here the refusal of a second seed, and a failure
  // while rows are being written.
  EXPECT_THROW(SeedGameWorld(path_), Error);
  EXPECT_EQ(CurrentSettings(), own);
  const std::string other = dir_.File("other.db");
  EXPECT_THROW(SeedGameWorld(other,
                             [](int32_t done, int32_t) {
                               if (done == 5)
                                 throw Error(errnum::kInvalidProcedureCall, "test", "stop");
                             }),
               Error);
  EXPECT_EQ(CurrentSettings(), own);

  // A thread that never had a settings object has none afterwards either.
  SetSettings(nullptr);
  SeedGameWorld(other);
  EXPECT_EQ(CurrentSettings(), nullptr);
}

}  // namespace
}  // namespace ringbook
