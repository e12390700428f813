#include "store/SeedWorld.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
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
#include "store/Recordset.h"
#include "support/Raised.h"
#include "support/SqlFile.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::ExecSql;
using test::QuerySql;
using test::Raised;

constexpr const char* kTables[] = {"Locations", "Announcers", "Judges", "Referees",
                                   "Cornermen", "Groups",     "Titles"};

// The rows of `block` from the data, with a field by number from 1.
struct Block {
  explicit Block(DefaultDataBlock block) : rows(DefaultDataRows(block)) {}
  int Count() const { return static_cast<int>(rows.size()); }
  const std::string& Text(int row, int field) const { return rows[row - 1][field - 1]; }
  int Number(int row, int field) const { return std::stoi(Text(row, field)); }
  std::vector<DefaultDataRow> rows;
};

std::string Field(const std::string& text) {
  return text;
}
std::string Field(long number) {
  return std::to_string(number);
}

// One stored row as `Stored` gives it: the fields joined by '|'.
template <class... A>
std::string Row(const A&... fields) {
  std::string joined;
  ((joined += (joined.empty() ? "" : "|") + Field(fields)), ...);
  return joined;
}

// What every row of `block` should be stored as, a line per row.
template <class Line>
std::string Expected(DefaultDataBlock block, Line line) {
  const Block data(block);
  std::string all;
  for (int row = 1; row <= data.Count(); ++row) all += (row > 1 ? "\n" : "") + line(row, data);
  return all;
}

class SeedWorldTest : public ::testing::Test {
 protected:
  // `columns` of every row of `table` in the order of its key (the first
  // column), '|' between the columns and a line per row; Null reads as "".
  std::string Stored(const std::string& table, const std::vector<std::string>& columns) const {
    std::string row;
    for (const std::string& column : columns) {
      row += (row.empty() ? "" : " || '|' || ") + ("ifnull(" + column + ", '')");
    }
    return QuerySql(path_, "SELECT group_concat(" + row + ", char(10)) FROM (SELECT * FROM \"" +
                               table + "\" ORDER BY " + columns[0] + ")");
  }

  void TearDown() override { SetSettings(nullptr); }

  int Rows(const std::string& table, const std::string& path = "") const {
    return std::stoi(
        QuerySql(path.empty() ? path_ : path, "SELECT count(*) FROM \"" + table + "\""));
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

TEST_F(SeedWorldTest, CreatesTheWorldWithEveryDefaultRowByTheGameRules) {
  std::vector<std::pair<int32_t, int32_t>> calls;
  const SeedReport seeded =
      SeedGameWorld(path_, [&](int32_t done, int32_t total) { calls.emplace_back(done, total); });
  EXPECT_TRUE(seeded.Created);
  EXPECT_EQ(seeded.Total(), 400);
  EXPECT_EQ(std::vector<int32_t>({seeded.Locations, seeded.Announcers, seeded.Judges,
                                  seeded.Referees, seeded.Cornermen, seeded.Groups, seeded.Titles}),
            std::vector<int32_t>({137, 13, 117, 36, 79, 1, 17}));
  EXPECT_EQ(Rows("Fighters"), 0);
  // 0 first, then one call per row, the total always the same.
  ASSERT_EQ(calls.size(), 401u);
  for (std::size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(calls[i], std::make_pair(static_cast<int32_t>(i), int32_t{400})) << i;
  }

  // Every table holds exactly the rows of the data, keyed by row number.
  // The rating to the nearest ten, halves up, in tens.
  EXPECT_EQ(Stored("Locations",
                   {"LocationID", "Arena", "City", "Country", "Era", "SiteRating", "PriceIndex"}),
            Expected(DefaultDataBlock::Locations, [](int row, const Block& d) {
              return Row(row, d.Text(row, 1), d.Text(row, 2), d.Text(row, 3), d.Number(row, 4),
                         d.Number(row, 5), std::lround(d.Number(row, 5) / 10.0));
            }));
  EXPECT_EQ(QuerySql(path_,
                     "SELECT count(*) FROM Locations WHERE Era NOT BETWEEN 1 AND 5 OR "
                     "SiteRating NOT BETWEEN 10 AND 70 OR PriceIndex NOT BETWEEN 1 AND 7"),
            "0");
  EXPECT_EQ(Stored("Announcers", {"AnnouncerID", "FirstName", "LastName", "Era"}),
            Expected(DefaultDataBlock::Announcers, [](int row, const Block& d) {
              return Row(row, d.Text(row, 1), d.Text(row, 2), d.Number(row, 3));
            }));
  // Officials and staff belong to every era: 0.
  EXPECT_EQ(Stored("Judges", {"JudgeID", "FirstName", "LastName", "Bias", "Era"}),
            Expected(DefaultDataBlock::Judges, [](int row, const Block& d) {
              return Row(row, d.Text(row, 1), d.Text(row, 2), d.Number(row, 3), "0");
            }));
  // The reserve judges keep the number in their last name.
  EXPECT_EQ(QuerySql(path_, "SELECT count(*) FROM Judges WHERE LastName IN ('1', '2', '3')"), "3");

  // Judgement by fouls (rows) and stoppage (columns); the rating is the sum.
  constexpr int kJudgement[3][3] = {{0, 0, 1}, {0, 1, 1}, {1, 1, 2}};
  EXPECT_EQ(Stored("Referees", {"RefereeID", "FirstName", "LastName", "ActiveRetired", "Fouls",
                                "Stoppage", "Judgement", "Rating", "Era"}),
            Expected(DefaultDataBlock::Referees, [&](int row, const Block& d) {
              const int fouls = d.Number(row, 4);
              const int stoppage = d.Number(row, 5);
              const int judgement = kJudgement[fouls][stoppage];
              return Row(row, d.Text(row, 1), d.Text(row, 2), d.Number(row, 3), fouls, stoppage,
                         judgement, fouls + stoppage + judgement, "0");
            }));

  // Cornermen: full skill in their own trade (0 trainer, 1 cut man, 2 both),
  // half in the other.
  std::set<int> specialties;
  EXPECT_EQ(
      Stored("Cornermen", {"CornermanID", "FirstName", "LastName", "Specialty", "Discipline",
                           "Motivate", "Strategy", "CloseCuts", "ReduceSwelling", "TrainingOffense",
                           "TrainingDefense", "TrainingAverage", "NickName", "Era"}),
      Expected(DefaultDataBlock::Cornermen, [&](int row, const Block& d) {
        const int specialty = *specialties.insert(d.Number(row, 3)).first;
        const int skill = d.Number(row, 5);
        const int trains = specialty != 1 ? skill : skill / 2;
        const int cuts = specialty != 0 ? skill : skill / 2;
        return Row(row, d.Text(row, 1), d.Text(row, 2), specialty, d.Number(row, 4),
                   d.Number(row, 6), trains, cuts, cuts, "0", "0", "0", "", "0");
      }));
  EXPECT_EQ(specialties, (std::set<int>{0, 1, 2}));  // every branch above was taken

  EXPECT_EQ(Stored("Groups", {"GroupID", "Name"}), "1|World");
  std::string titles;
  for (std::size_t i = 0; i < kStandardDivisions.size(); ++i) {  // lightest first
    titles += (i ? "\n" : "") + Row(static_cast<long>(i + 1),
                                    "World " + std::string(kStandardDivisions[i]) + " Title");
  }
  EXPECT_EQ(Stored("Titles", {"TitleId", "Name"}), titles);
  EXPECT_EQ(titles.find("1|World Minimumweight Title\n"), 0u);
  EXPECT_NE(titles.find("\n17|World Heavyweight Title"), std::string::npos);
}

TEST_F(SeedWorldTest, ARowInAnySeededTableRefusesTheSeedingAndChangesNothing) {
  SeedGameWorld(path_);
  const std::string before = Contents();
  int calls = 0;
  const Error e = Raised([&] { SeedGameWorld(path_, [&](int32_t, int32_t) { ++calls; }); });
  EXPECT_EQ(e.Number(), dberr::kDatabaseExists);
  EXPECT_EQ(e.Description(),
            "The game database '" + path_ + "' already holds rows; seeding would duplicate them.");
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(Contents(), before);

  for (const std::string table : kTables) {
    SCOPED_TRACE(table);
    const std::string path = dir_.File(table + ".db");
    CreateGameDatabase(path);
    const std::string column = table == "Groups" || table == "Titles" ? "Name" : "Era";
    ExecSql(path, "INSERT INTO \"" + table + "\" (" + column + ") VALUES (1)");
    EXPECT_EQ(Raised([&] { SeedGameWorld(path); }).Number(), dberr::kDatabaseExists);
    for (const char* other : kTables) EXPECT_EQ(Rows(other, path), other == table ? 1 : 0) << other;
  }
}

TEST_F(SeedWorldTest, AFailureHalfwayLeavesNothingSeeded) {
  CreateGameDatabase(path_);
  // The engine refuses one cornerman, after every location, announcer,
  // judge and referee went in.
  ExecSql(path_, "CREATE TRIGGER NoCornerman BEFORE INSERT ON Cornermen WHEN NEW.LastName = '" +
                     Block(DefaultDataBlock::Cornermen).Text(40, 2) +
                     "' BEGIN SELECT RAISE(ABORT, 'refused'); END");
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

TEST_F(SeedWorldTest, TheCallersSettingsArePutBackAndAFailedSeedRemovesTheFileItCreated) {
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

  // Also after a refusal, and after a failure while rows are written.
  EXPECT_THROW(SeedGameWorld(path_), Error);
  EXPECT_EQ(CurrentSettings(), own);
  struct Stop : std::runtime_error {
    Stop() : std::runtime_error("stop") {}
  };
  const std::string other = dir_.File("other.db");
  EXPECT_THROW(SeedGameWorld(other,
                             [](int32_t done, int32_t) {
                               if (done == 200) throw Stop();
                             }),
               Stop);
  EXPECT_EQ(CurrentSettings(), own);
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
    EXPECT_FALSE(std::filesystem::exists(other + suffix)) << suffix;
  }
  // A file that is not a game database is refused and left as it was.
  const std::string notes = dir_.File("notes.txt");
  std::ofstream(notes) << "a shopping list, not a game world";
  EXPECT_EQ(Raised([&] { SeedGameWorld(notes); }).Number(), dberr::kUnrecognizedFormat);
  EXPECT_EQ(std::filesystem::file_size(notes), 33u);

  // A thread that never had a settings object has none afterwards either.
  SetSettings(nullptr);
  SeedGameWorld(other);
  EXPECT_EQ(CurrentSettings(), nullptr);
}

}  // namespace
}  // namespace ringbook
