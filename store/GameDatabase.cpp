#include "store/GameDatabase.h"

#include <sqlite3.h>

#include <filesystem>
#include <system_error>

#include "core/Error.h"
#include "core/Path.h"
#include "store/Database.h"
#include "store/SqliteBackend_impl.h"

namespace ringbook {
namespace {

// The tables. Keys are numbered by the database and never reused; texts
// compare without regard to case, as the game has always searched them.
constexpr const char* kTables = R"sql(
CREATE TABLE Locations (
  LocationID INTEGER PRIMARY KEY AUTOINCREMENT,
  Arena TEXT COLLATE NOCASE,
  City TEXT COLLATE NOCASE,
  Country TEXT COLLATE NOCASE,
  Era SMALLINT DEFAULT 0,
  PriceIndex INTEGER DEFAULT 0,
  SiteRating INTEGER DEFAULT 0
);
CREATE INDEX LocationsByArena ON Locations (Arena);

CREATE TABLE "Groups" (
  GroupID INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT COLLATE NOCASE
);
CREATE INDEX GroupsByName ON "Groups" (Name);

CREATE TABLE Judges (
  JudgeID INTEGER PRIMARY KEY AUTOINCREMENT,
  FirstName TEXT COLLATE NOCASE,
  LastName TEXT COLLATE NOCASE,
  Era SMALLINT DEFAULT 0,
  Bias INTEGER DEFAULT 0
);
CREATE INDEX JudgesByName ON Judges (LastName, FirstName);

CREATE TABLE Referees (
  RefereeID INTEGER PRIMARY KEY AUTOINCREMENT,
  FirstName TEXT COLLATE NOCASE,
  LastName TEXT COLLATE NOCASE,
  Era SMALLINT DEFAULT 0,
  ActiveRetired SMALLINT DEFAULT 0,
  Fouls SMALLINT DEFAULT 0,
  Judgement SMALLINT DEFAULT 0,
  Rating SMALLINT DEFAULT 0,
  Stoppage SMALLINT DEFAULT 0
);
CREATE INDEX RefereesByName ON Referees (LastName, FirstName);

CREATE TABLE Announcers (
  AnnouncerID INTEGER PRIMARY KEY AUTOINCREMENT,
  FirstName TEXT COLLATE NOCASE,
  LastName TEXT COLLATE NOCASE,
  Era SMALLINT DEFAULT 0
);
CREATE INDEX AnnouncersByName ON Announcers (LastName, FirstName);

CREATE TABLE Cornermen (
  CornermanID INTEGER PRIMARY KEY AUTOINCREMENT,
  FirstName TEXT COLLATE NOCASE,
  LastName TEXT COLLATE NOCASE,
  NickName TEXT COLLATE NOCASE,
  Era SMALLINT DEFAULT 0,
  Discipline SMALLINT DEFAULT 0,
  Motivate SMALLINT DEFAULT 0,
  CloseCuts SMALLINT DEFAULT 0,
  ReduceSwelling SMALLINT DEFAULT 0,
  Specialty SMALLINT DEFAULT 0,
  Strategy SMALLINT DEFAULT 0,
  TrainingOffense SMALLINT DEFAULT 0,
  TrainingDefense SMALLINT DEFAULT 0,
  TrainingAverage SMALLINT DEFAULT 0
);
CREATE INDEX CornermenByName ON Cornermen (LastName, FirstName);

CREATE TABLE Titles (
  TitleId INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT COLLATE NOCASE
);
CREATE INDEX TitlesByName ON Titles (Name);

CREATE TABLE Fighters (
  FighterID INTEGER PRIMARY KEY AUTOINCREMENT,
  GroupID INTEGER DEFAULT 0,
  FirstName TEXT COLLATE NOCASE,
  LastName TEXT COLLATE NOCASE,
  NickName TEXT COLLATE NOCASE,
  Division SMALLINT DEFAULT 0,
  Rating SMALLINT DEFAULT 0,
  Style SMALLINT DEFAULT 0,
  ActiveRetired SMALLINT DEFAULT 0,
  Sex SMALLINT DEFAULT 0,
  SouthPaw SMALLINT DEFAULT 0,
  SkinColor SMALLINT DEFAULT 0,
  Cfb SMALLINT DEFAULT 0,
  Cfs SMALLINT DEFAULT 0,
  Hp SMALLINT DEFAULT 0,
  Kdr1 SMALLINT DEFAULT 0,
  Kdr2 SMALLINT DEFAULT 0,
  Kor SMALLINT DEFAULT 0,
  Agg SMALLINT DEFAULT 0,
  Ki SMALLINT DEFAULT 0,
  Tko SMALLINT DEFAULT 0,
  E10 SMALLINT DEFAULT 0,
  Defn SMALLINT DEFAULT 0,
  Cuts SMALLINT DEFAULT 0,
  Fouls SMALLINT DEFAULT 0,
  Icor SMALLINT DEFAULT 0,
  FastSlow SMALLINT DEFAULT 0,
  Fi SMALLINT DEFAULT 0,
  Fo SMALLINT DEFAULT 0,
  Cu SMALLINT DEFAULT 0,
  Ko SMALLINT DEFAULT 0,
  Pl SMALLINT DEFAULT 0,
  Cp SMALLINT DEFAULT 0,
  Pm SMALLINT DEFAULT 0,
  Cl SMALLINT DEFAULT 0,
  Rm SMALLINT DEFAULT 0,
  J3 FLOAT DEFAULT 0,
  J2 FLOAT DEFAULT 0,
  H3 FLOAT DEFAULT 0,
  H2 FLOAT DEFAULT 0,
  Cr3 FLOAT DEFAULT 0,
  Cr2 FLOAT DEFAULT 0,
  Cb3 FLOAT DEFAULT 0,
  Cb2 FLOAT DEFAULT 0,
  U3 FLOAT DEFAULT 0,
  U2 FLOAT DEFAULT 0,
  Conditioning SMALLINT DEFAULT 0,
  Intellect SMALLINT DEFAULT 0,
  DrawPower SMALLINT DEFAULT 0,
  Proficiency SMALLINT DEFAULT 0,
  CutManID INTEGER DEFAULT 0,
  TrainerID INTEGER DEFAULT 0,
  PicturePath TEXT,
  Rank INTEGER DEFAULT 0,
  Won INTEGER DEFAULT 0,
  Lost INTEGER DEFAULT 0,
  Draw INTEGER DEFAULT 0,
  Kos INTEGER DEFAULT 0,
  Tkos INTEGER DEFAULT 0,
  HasPerformance BOOLEAN DEFAULT 0,
  Performance REAL,
  DisplayPerf FLOAT DEFAULT 0,
  KdsFor INTEGER DEFAULT 0,
  TotalPl INTEGER DEFAULT 0,
  TotalPm INTEGER DEFAULT 0,
  TotalCuts INTEGER DEFAULT 0,
  TotalRounds INTEGER DEFAULT 0,
  OpKdsFor INTEGER DEFAULT 0,
  OpTotalPl INTEGER DEFAULT 0,
  OpTotalPm INTEGER DEFAULT 0,
  OpTotalCuts INTEGER DEFAULT 0,
  TitleIDs TEXT,
  NumTitles INTEGER DEFAULT 0
);
CREATE INDEX FightersByGroup ON Fighters (GroupID, Division);
CREATE INDEX FightersByName ON Fighters (LastName, FirstName);

CREATE TABLE FightHistories (
  HistoryID INTEGER PRIMARY KEY AUTOINCREMENT,
  FighterID INTEGER NOT NULL,
  Division TEXT COLLATE NOCASE,
  "Date" DATETIME,
  Opponent TEXT COLLATE NOCASE,
  WonLostDraw TEXT COLLATE NOCASE,
  Decision TEXT COLLATE NOCASE,
  LastRound SMALLINT DEFAULT 0,
  ScheduledRounds SMALLINT DEFAULT 0,
  Notes TEXT
);
CREATE INDEX FightHistoriesByFighter ON FightHistories (FighterID);
)sql";

// The name of a person as the record classes compose it: the trimmed first
// name, one blank, the trimmed last name.
#define RB_PERSON_NAME "trim(ifnull(FirstName, '')) || ' ' || trim(ifnull(LastName, ''))"

// A fighter's display name as the record composes it: first name, nickname
// (when there is one) and last name, joined by blanks and trimmed.
#define RB_FIGHTER_NAME                                                                      \
  "trim(CASE WHEN ifnull(NickName, '') <> '' THEN ifnull(FirstName, '') || ' ' || NickName " \
  "|| ' ' || ifnull(LastName, '') ELSE ifnull(FirstName, '') || ' ' || ifnull(LastName, '') END)"

// The columns of a ranking: ranked fighters first, then the unranked ones,
// which the ranking text counts as "UR" only after every ranked fighter.
#define RB_RANKING_COLUMNS                                                                      \
  "SELECT Performance, " RB_FIGHTER_NAME                                                        \
  " AS Name, Rating, Style, ActiveRetired, FighterID, NumTitles, TitleIDs FROM Fighters WHERE " \
  "GroupID = ?1 AND Division = ?2 "

struct StoredQuery {
  const char* name;
  const char* sql;
  const char* parameters;  // separated by ';'
  const char* base_table;
  const char* key_column;
};

// The stored queries the collections open. The ORDER BY of each decides the
// positions of the collection's list items; the key comes last so that the
// order is total.
constexpr StoredQuery kQueries[] = {
    {"qryLocations",
     "SELECT LocationID, Arena, City, Country, Era, PriceIndex, SiteRating FROM Locations "
     "ORDER BY Arena, LocationID",
     "", "Locations", "LocationID"},
    {"qryGroups", "SELECT GroupID, Name FROM \"Groups\" ORDER BY Name, GroupID", "", "Groups",
     "GroupID"},
    {"qryJudges",
     "SELECT JudgeID, FirstName, LastName, Era, Bias, " RB_PERSON_NAME
     " AS Name FROM Judges ORDER BY LastName, FirstName, JudgeID",
     "", "Judges", "JudgeID"},
    {"qryReferees",
     "SELECT RefereeID, FirstName, LastName, Era, ActiveRetired, Fouls, Judgement, Rating, "
     "Stoppage, " RB_PERSON_NAME " AS Name FROM Referees ORDER BY LastName, FirstName, RefereeID",
     "", "Referees", "RefereeID"},
    {"qryAnnouncers",
     "SELECT AnnouncerID, FirstName, LastName, Era, " RB_PERSON_NAME
     " AS Name FROM Announcers ORDER BY LastName, FirstName, AnnouncerID",
     "", "Announcers", "AnnouncerID"},
    {"qryCornermen",
     "SELECT CornermanID, FirstName, LastName, NickName, Era, Discipline, Motivate, CloseCuts, "
     "ReduceSwelling, Specialty, Strategy, TrainingOffense, TrainingDefense, TrainingAverage, "
     "trim(" RB_PERSON_NAME ") AS Name FROM Cornermen ORDER BY LastName, FirstName, CornermanID",
     "", "Cornermen", "CornermanID"},
    {"qryTitles", "SELECT TitleId, Name FROM Titles ORDER BY Name, TitleId", "", "Titles",
     "TitleId"},
    {"qryFighters",
     "SELECT FighterID, GroupID, FirstName, LastName, NickName, Division, Rating, Style, "
     "ActiveRetired, Sex, SouthPaw, SkinColor, Cfb, Cfs, Hp, Kdr1, Kdr2, Kor, Agg, Ki, Tko, E10, "
     "Defn, Cuts, Fouls, Icor, FastSlow, Fi, Fo, Cu, Ko, Pl, Cp, Pm, Cl, Rm, J3, J2, H3, H2, Cr3, "
     "Cr2, Cb3, Cb2, U3, U2, Conditioning, Intellect, DrawPower, Proficiency, CutManID, "
     "TrainerID, PicturePath, Rank, Won, Lost, Draw, Kos, Tkos, HasPerformance, Performance, "
     "DisplayPerf, KdsFor, TotalPl, TotalPm, TotalCuts, TotalRounds, OpKdsFor, OpTotalPl, "
     "OpTotalPm, OpTotalCuts, TitleIDs, NumTitles, " RB_FIGHTER_NAME
     " AS Name FROM Fighters ORDER BY LastName, FirstName, FighterID",
     "", "Fighters", "FighterID"},
    // The fighters a list shows: one group and division, within a band of
    // proficiency, by name.
    {"qryFightersByGroupAndDivision",
     "SELECT FighterID, " RB_FIGHTER_NAME
     " AS Name, Rating, Proficiency FROM Fighters WHERE GroupID = ?1 AND Division = ?2 AND "
     "Proficiency BETWEEN ?3 AND ?4 ORDER BY LastName, FirstName, FighterID",
     "Enter GroupID;Enter Division;Enter Low Proficiency;Enter High Proficiency", "Fighters",
     "FighterID"},
    // By performance points, the most first; fighters without a performance
    // are unranked.
    {"qryRankedFighters",
     RB_RANKING_COLUMNS
     "ORDER BY Performance IS NULL, Performance DESC, LastName, FirstName, FighterID",
     "Enter GroupID;Enter Division", "Fighters", "FighterID"},
    // By the number of titles held, the most first, then by performance
    // points; fighters with neither are unranked.
    {"qryRankedFightersByTitles",
     RB_RANKING_COLUMNS
     "ORDER BY Performance IS NULL AND NOT ifnull(NumTitles, 0) > 0, "
     "CASE WHEN NumTitles > 0 THEN NumTitles ELSE 0 END DESC, Performance IS NULL, "
     "Performance DESC, LastName, FirstName, FighterID",
     "Enter GroupID;Enter Division", "Fighters", "FighterID"},
    // One fighter's fights, the latest first.
    {"qryFighterHistories",
     "SELECT Division, \"Date\", Opponent, WonLostDraw, Decision, LastRound, ScheduledRounds, "
     "Notes, FighterID, HistoryID FROM FightHistories WHERE FighterID = ?1 "
     "ORDER BY \"Date\" DESC, HistoryID DESC",
     "Enter FighterID", "FightHistories", "HistoryID"},
};

#undef RB_RANKING_COLUMNS
#undef RB_FIGHTER_NAME
#undef RB_PERSON_NAME

void Bind(sqlite3* db, sqlite3_stmt* stmt, int index, const char* text) {
  if (sqlite3_bind_text(stmt, index, text, -1, SQLITE_STATIC) != SQLITE_OK) {
    sqlite::Fail(db, sqlite3_errcode(db), "Storing a query");
  }
}

void WriteContents(sqlite3* db) {
  sqlite::Exec(db, std::string("CREATE TABLE ") + sqlite::kInfoTable +
                       " (Name TEXT PRIMARY KEY COLLATE NOCASE, Value);"
                       "CREATE TABLE " +
                       sqlite::kQueryTable +
                       " (Name TEXT PRIMARY KEY COLLATE NOCASE, SQL TEXT NOT NULL,"
                       " Parameters TEXT NOT NULL DEFAULT '', BaseTable TEXT NOT NULL,"
                       " KeyColumn TEXT NOT NULL);");
  sqlite::Exec(db, kTables);
  sqlite::Statement insert(db, std::string("INSERT INTO ") + sqlite::kQueryTable +
                                   " (Name, SQL, Parameters, BaseTable, KeyColumn)"
                                   " VALUES (?1, ?2, ?3, ?4, ?5)");
  for (const StoredQuery& q : kQueries) {
    Bind(db, insert.get(), 1, q.name);
    Bind(db, insert.get(), 2, q.sql);
    Bind(db, insert.get(), 3, q.parameters);
    Bind(db, insert.get(), 4, q.base_table);
    Bind(db, insert.get(), 5, q.key_column);
    insert.Step("Storing the query", q.name);
    insert.Reset();
  }
  const std::string version = std::to_string(kGameSchemaVersion);
  sqlite::Exec(db, std::string("INSERT INTO ") + sqlite::kInfoTable + " (Name, Value) VALUES ('" +
                       sqlite::kSchemaVersionName + "', " + version + ");" +
                       "PRAGMA user_version = " + version + ";");
}

void RemoveFiles(const std::string& path) {
  std::error_code ec;
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
    std::filesystem::remove(PathFromUtf8(path + suffix), ec);
  }
}

}  // namespace

void CreateGameDatabase(const std::string& path) {
  const std::filesystem::path file = PathFromUtf8(path);
  std::error_code ec;
  if (std::filesystem::exists(file, ec) || ec) {
    throw Error(
        dberr::kDatabaseExists, std::string(kComponentName),
        "The file '" + path + "' already exists; a new game database is not written over it.");
  }
  const std::filesystem::path folder = file.parent_path();
  if (!folder.empty() && !std::filesystem::is_directory(folder, ec)) {
    throw Error(dberr::kInvalidPath, std::string(kComponentName),
                "The folder of '" + path + "' does not exist.");
  }

  sqlite3* db = nullptr;
  const int rc =
      sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  if (rc != SQLITE_OK) {
    const std::string message = db ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
    sqlite3_close_v2(db);
    RemoveFiles(path);
    throw Error(dberr::kInvalidPath, std::string(kComponentName),
                "Could not create the game database '" + path + "': " + message + ".");
  }
  try {
    sqlite3_extended_result_codes(db, 1);
    // Write-ahead logging: every collection holds its own connection, and
    // readers and the writer then do not block each other.
    sqlite::Exec(db, "PRAGMA journal_mode = WAL");
    sqlite::Exec(db, "BEGIN");
    try {
      WriteContents(db);
      sqlite::Exec(db, "COMMIT");
    } catch (...) {
      sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
      throw;
    }
  } catch (...) {
    sqlite3_close_v2(db);
    RemoveFiles(path);
    throw;
  }
  sqlite3_close_v2(db);
}

}  // namespace ringbook
