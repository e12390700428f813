#include "store/Database.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <type_traits>
#include <vector>

#include "store/GameDatabase.h"
#include "store/QueryDef.h"
#include "store/Recordset.h"
#include "support/Raised.h"
#include "support/SqlFile.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::ExecSql;
using test::QuerySql;
using test::Raised;
using Keys = std::vector<int64_t>;
using Texts = std::vector<std::string>;

bool Mentions(const Error& e, const std::string& what) {
  return e.Description().find(what) != std::string::npos;
}

// The bookmark of every row, or the text of `field` when one is named.
template <class T = int64_t>
std::vector<T> Walk(Recordset& rs, const std::string& field = "") {
  std::vector<T> out;
  if (rs.RecordCount() <= 0) return out;
  for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
    if constexpr (std::is_same_v<T, int64_t>) {
      out.push_back(rs.Bookmark());
    } else {
      out.push_back(rs.Field(field).ToText());
    }
  }
  return out;
}

// Sets one field of the judge of `key` through `rs`.
void Change(Recordset& rs, int64_t key, const std::string& field, const std::string& value) {
  rs.FindFirst("JudgeID = " + std::to_string(key));
  rs.Edit();
  rs.SetField(field, Variant(value));
  rs.Update();
}

// Adds a judge of that last name through `rs`; returns its key.
int64_t Add(Recordset& rs, const std::string& last) {
  rs.AddNew();
  rs.SetField("LastName", Variant(last));
  rs.Update();
  return rs.LastModified();
}

class DatabaseTest : public ::testing::Test {
 protected:
  void SetUp() override { CreateGameDatabase(path_); }

  int64_t AddJudge(const std::string& first, const std::string& last, int era = 0) {
    ExecSql(path_, "INSERT INTO Judges (FirstName, LastName, Era) VALUES ('" + first + "', '" +
                       last + "', " + std::to_string(era) + ")");
    return std::stoll(QuerySql(path_, "SELECT max(JudgeID) FROM Judges"));
  }

  // A recordset on a connection of its own; the recordset keeps it open.
  std::shared_ptr<Recordset> Judges() const {
    return Database::Open(path_)->OpenRecordset("qryJudges");
  }

  test::TempDir dir_;
  std::string path_ = dir_.File("world.db");
};

TEST_F(DatabaseTest, OpenFailuresNameTheCauseAndChangeNothing) {
  const std::string missing = dir_.File("nowhere.db");
  const std::string garbage = dir_.File("garbage.db");
  const std::string empty = dir_.File("empty.db");
  std::ofstream(garbage, std::ios::binary) << std::string(4096, 'x');
  std::ofstream(empty).close();
  const auto version = [](int v) { return "PRAGMA user_version = " + std::to_string(v); };
  struct Case {
    std::string path;
    std::string sql;  // run on the game database first
    int number;
    std::vector<std::string> mentions;
  };
  const Case cases[] = {
      {missing, "", dberr::kFileNotFound, {missing}},
      {garbage, "", dberr::kUnrecognizedFormat, {garbage}},
      {empty, "", dberr::kUnrecognizedFormat, {"not a game database"}},
      {dir_.Path().string(), "", dberr::kInvalidPath, {}},
      {path_, version(kGameSchemaVersion + 1), dberr::kUnrecognizedFormat, {path_, "newer"}},
      // The header and the recorded version must agree.
      {path_,
       version(kGameSchemaVersion) +
           "; UPDATE DatabaseInfo SET Value = 7 WHERE Name = 'SchemaVersion'",
       dberr::kUnrecognizedFormat,
       {"damaged"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.path + " " + c.sql);
    if (!c.sql.empty()) ExecSql(path_, c.sql);
    const Error e = Raised([&] { Database::Open(c.path); });
    EXPECT_EQ(e.Number(), c.number);
    for (const std::string& what : c.mentions) EXPECT_TRUE(Mentions(e, what)) << e.Description();
  }
  EXPECT_FALSE(std::filesystem::exists(missing));
  EXPECT_EQ(std::filesystem::file_size(garbage), 4096u);
  EXPECT_EQ(std::filesystem::file_size(empty), 0u);
}

TEST_F(DatabaseTest, OpenReportsALockedDatabase) {
  // Another program keeps the file to itself: in exclusive locking mode a
  // connection holds its lock after its first write.
  sqlite3* holder = nullptr;
  ASSERT_EQ(sqlite3_open_v2(path_.c_str(), &holder, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(holder,
                         "PRAGMA locking_mode = EXCLUSIVE;"
                         "UPDATE DatabaseInfo SET Value = Value",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  Error e = Raised([&] { Database::Open(path_); });
  EXPECT_EQ(e.Number(), dberr::kFileInUse);
  EXPECT_TRUE(Mentions(e, path_));
  sqlite3_close(holder);
  EXPECT_NO_THROW(Database::Open(path_));
}

TEST_F(DatabaseTest, CreateGameDatabaseNeverWritesOverAFile) {
  const std::string before = QuerySql(path_, "SELECT count(*) FROM StoredQueries");
  Error e = Raised([&] { CreateGameDatabase(path_); });
  EXPECT_EQ(e.Number(), dberr::kDatabaseExists);
  EXPECT_TRUE(Mentions(e, path_));
  EXPECT_EQ(QuerySql(path_, "SELECT count(*) FROM StoredQueries"), before);

  const std::string orphan = dir_.File("no-such-folder/world.db");
  e = Raised([&] { CreateGameDatabase(orphan); });
  EXPECT_EQ(e.Number(), dberr::kInvalidPath);
  EXPECT_FALSE(std::filesystem::exists(dir_.Path() / "no-such-folder"));
}

TEST_F(DatabaseTest, QueriesAndTablesAreFoundWithoutRegardToCaseAndMissingOnesNamed) {
  auto db = Database::Open(path_);
  EXPECT_TRUE(db->QueryDefs("QRYTITLES")->OpenRecordset()->Eof());
  EXPECT_NO_THROW(db->OpenRecordset("fighthistories"));
  Error e = Raised([&] { db->QueryDefs("qryNothing"); });
  EXPECT_EQ(e.Number(), dberr::kItemNotFound);
  EXPECT_TRUE(Mentions(e, "qryNothing"));
  EXPECT_TRUE(Mentions(e, path_));

  e = Raised([&] { db->OpenRecordset("Nothing"); });
  EXPECT_EQ(e.Number(), dberr::kTableOrQueryNotFound);
  EXPECT_TRUE(Mentions(e, "Nothing"));
}

TEST_F(DatabaseTest, ParametersAreMatchedWithoutCaseAndBoundNotSpliced) {
  ExecSql(path_,
          "INSERT INTO StoredQueries (Name, SQL, Parameters, BaseTable, KeyColumn) VALUES "
          "('qryJudgesOfEra', 'SELECT JudgeID, LastName FROM Judges WHERE Era = ?1 AND "
          "LastName <> ?2 ORDER BY JudgeID', 'Enter Era; Enter Skipped Name', 'Judges', "
          "'JudgeID')");
  AddJudge("Ann", "Able", 1);
  AddJudge("Bob", "Baker", 2);
  AddJudge("Cy", "Cole", 1);

  auto db = Database::Open(path_);
  auto q = db->QueryDefs("qryjudgesofera");
  EXPECT_EQ(q->ParameterNames(), (Texts{"Enter Era", "Enter Skipped Name"}));

  Error e = Raised([&] { q->OpenRecordset(); });
  EXPECT_EQ(e.Number(), dberr::kTooFewParameters);

  q->SetParameter("ENTER ERA", int16_t{1});
  q->SetParameter("enter skipped name", "Cole");
  EXPECT_EQ(q->Parameter("Enter Era"), Variant(int16_t{1}));
  EXPECT_EQ(Walk<std::string>(*q->OpenRecordset(), "LastName"), (Texts{"Able"}));

  // A text that would change the query if spliced into it is only a value.
  q->SetParameter("Enter Era", "1 OR 1 = 1");
  EXPECT_EQ(q->OpenRecordset()->RecordCount(), 0);

  e = Raised([&] { q->SetParameter("Enter Nothing", 1); });
  EXPECT_EQ(e.Number(), dberr::kItemNotFound);
}

TEST_F(DatabaseTest, FieldsReadAsTheirTypes) {
  ExecSql(path_,
          "INSERT INTO Fighters (FighterID, FirstName, LastName, Division, J3, Performance,"
          " HasPerformance, GroupID) VALUES (5, 'Max', NULL, 7, 0.5, NULL, 1, 3000000000);"
          "INSERT INTO FightHistories (FighterID, \"Date\", Opponent) VALUES (5, 36526.5, 'Joe')");
  auto db = Database::Open(path_);
  auto rs = db->OpenRecordset("Fighters");
  rs->MoveFirst();
  EXPECT_EQ(rs->Field("firstname"), Variant("Max"));
  EXPECT_TRUE(rs->Field("LastName").IsNull());
  EXPECT_EQ(rs->Field("Division"), Variant(int32_t{7}));
  EXPECT_EQ(rs->Field("J3"), Variant(0.5));
  EXPECT_TRUE(rs->Field("Performance").IsNull());
  EXPECT_EQ(rs->Field("HasPerformance"), Variant(true));
  EXPECT_EQ(rs->Field("GroupID"), Variant(3000000000.0));  // beyond 32 bits
  Error e = Raised([&] { rs->Field("NoSuchField"); });
  EXPECT_EQ(e.Number(), dberr::kItemNotFound);

  auto histories = db->OpenRecordset("FightHistories");
  histories->MoveFirst();
  EXPECT_EQ(histories->Field("Date"), Variant::FromDate(36526.5));
}

TEST_F(DatabaseTest, FindFirstUnderstandsOnlyTheKeyCriterion) {
  const int64_t ann = AddJudge("Ann", "Able");
  const int64_t bob = AddJudge("Bob", "Baker");
  auto rs = Judges();

  rs->FindFirst("judgeid = " + std::to_string(bob));
  EXPECT_FALSE(rs->NoMatch());
  EXPECT_EQ(rs->Field("Name"), Variant("Bob Baker"));

  // No match keeps the position.
  rs->FindFirst("JudgeID = 999");
  EXPECT_TRUE(rs->NoMatch());
  EXPECT_EQ(rs->Bookmark(), bob);
  rs->FindFirst("  JudgeID=" + std::to_string(ann) + " ");
  EXPECT_EQ(rs->Bookmark(), ann);

  for (const char* bad : {"Era = 0", "JudgeID = 1 OR 1 = 1", "JudgeID = abc", "JudgeID",
                          "JudgeID = ", "JudgeID = 99999999999999999999"}) {
    Error e = Raised([&] { rs->FindFirst(bad); });
    EXPECT_EQ(e.Number(), dberr::kSyntaxInCriterion) << bad;
  }
  EXPECT_EQ(rs->Bookmark(), ann);
}

TEST_F(DatabaseTest, AddEditAndDeleteThroughARecordset) {
  auto rs = Judges();
  rs->AddNew();
  rs->SetField("firstname", "Ann");
  rs->SetField("LastName", "Able");
  rs->SetField("Bias", "3");  // converted to the column's type
  EXPECT_EQ(rs->Field("Bias"), Variant(int32_t{3}));
  rs->Update();
  const int64_t ann = rs->LastModified();
  rs->SetBookmark(ann);
  EXPECT_EQ(rs->Field("Name"), Variant("Ann Able"));
  EXPECT_EQ(rs->Field("Era"), Variant(int32_t{0}));  // the column's default

  rs->Edit();
  rs->SetField("Era", int16_t{2});
  rs->Update();
  EXPECT_EQ(rs->LastModified(), ann);
  EXPECT_EQ(QuerySql(path_, "SELECT Era FROM Judges"), "2");

  // The key and computed fields cannot be set; nothing can outside AddNew/Edit.
  EXPECT_EQ(Raised([&] { rs->SetField("Era", 1); }).Number(), dberr::kNoEditInProgress);
  rs->Edit();
  EXPECT_EQ(Raised([&] { rs->SetField("JudgeID", 9); }).Number(), dberr::kFieldNotUpdatable);
  EXPECT_EQ(Raised([&] { rs->SetField("Name", "x"); }).Number(), dberr::kFieldNotUpdatable);
  rs->CancelUpdate();

  rs->Delete();
  EXPECT_EQ(Raised([&] { rs->Field("Name"); }).Number(), dberr::kRecordDeleted);
  EXPECT_EQ(QuerySql(path_, "SELECT count(*) FROM Judges"), "0");
  EXPECT_EQ(rs->RecordCount(), 0);
}

TEST_F(DatabaseTest, FailedUpdateLeavesTheTableAsItWas) {
  const int64_t ann = AddJudge("Ann", "Able", 1);
  auto db = Database::Open(path_);
  auto rs = db->OpenRecordset("qryJudges");
  rs->FindFirst("JudgeID = " + std::to_string(ann));
  rs->Edit();
  rs->SetField("LastName", "Changed");
  EXPECT_EQ(Raised([&] { rs->SetField("Era", "not a number"); }).Number(), dberr::kConversion);
  EXPECT_EQ(Raised([&] { rs->SetField("Era", 70000); }).Number(), dberr::kNumericOverflow);

  // A constraint the engine enforces: a history row needs its fighter.
  auto histories = db->OpenRecordset("FightHistories");
  histories->AddNew();
  histories->SetField("Opponent", "Joe");
  EXPECT_EQ(Raised([&] { histories->Update(); }).Number(), dberr::kNullNotAllowed);
  EXPECT_EQ(QuerySql(path_, "SELECT count(*) FROM FightHistories"), "0");
  // The add is still pending and can be completed.
  histories->SetField("FighterID", 1);
  histories->Update();
  EXPECT_EQ(QuerySql(path_, "SELECT Opponent FROM FightHistories"), "Joe");
  EXPECT_EQ(QuerySql(path_, "SELECT LastName FROM Judges"), "Able");
}

TEST_F(DatabaseTest, KeysetKeepsItsOrderUntilRequery) {
  const int64_t b = AddJudge("B", "Baker");
  const int64_t d = AddJudge("D", "Dunn");
  auto rs = Judges();
  EXPECT_EQ(Walk(*rs), (Keys{b, d}));

  // Added through the recordset: at the end until the next requery.
  const int64_t a = Add(*rs, "Adams");
  // Changed so that it sorts first: keeps its place.
  Change(*rs, d, "LastName", "Aaron");
  EXPECT_EQ(Walk(*rs), (Keys{b, d, a}));

  rs->Requery();
  EXPECT_EQ(Walk(*rs), (Keys{d, a, b}));

  // Delete leaves the position on the deleted row; the next move goes on.
  rs->MoveFirst();
  rs->MoveNext();
  rs->Delete();
  EXPECT_EQ(Raised([&] { rs->Bookmark(); }).Number(), dberr::kRecordDeleted);
  rs->MoveNext();
  EXPECT_EQ(rs->Bookmark(), b);
  EXPECT_EQ(Walk(*rs), (Keys{d, b}));
}

TEST_F(DatabaseTest, LateKeysetIsTheOneOfTheRequery) {
  const int64_t b = AddJudge("B", "Baker");
  const int64_t d = AddJudge("D", "Dunn");
  auto rs = Judges();
  rs->Requery();  // the keyset is now due, not built

  // Meanwhile, through other connections and recordsets: a row is added,
  // one changes its sort position and, through this recordset, one is added.
  auto other = Judges();
  const int64_t foreign = Add(*other, "Aardvark");
  Change(*other, d, "LastName", "Abbot");

  const int64_t own = Add(*rs, "Cole");

  // Finding by key answers as the keyset of the requery would...
  rs->FindFirst("JudgeID = " + std::to_string(foreign));
  EXPECT_TRUE(rs->NoMatch());
  rs->FindFirst("JudgeID = " + std::to_string(own));
  EXPECT_FALSE(rs->NoMatch());
  // ...and so does the walk, while values are the current ones.
  EXPECT_EQ(Walk(*rs), (Keys{b, d, own}));
  EXPECT_EQ(Walk<std::string>(*rs, "LastName"), (Texts{"Baker", "Abbot", "Cole"}));
  // The database itself was not changed by building the keyset.
  EXPECT_EQ(QuerySql(path_, "SELECT count(*) FROM Judges"), "4");

  rs->Requery();
  EXPECT_EQ(Walk(*rs), (Keys{foreign, d, b, own}));
}

TEST_F(DatabaseTest, AWalkReadsCurrentValuesOfRowsChangedMeanwhile) {
  std::vector<int64_t> keys;
  for (const char* name : {"A", "B", "C", "D"}) keys.push_back(AddJudge(name, name));
  auto rs = Judges();
  rs->MoveFirst();
  EXPECT_EQ(rs->Field("LastName"), Variant("A"));

  // Through another connection, while the walk has read ahead: B changes
  // and C goes.
  auto other = Judges();
  Change(*other, keys[1], "FirstName", "Changed");
  other->FindFirst("JudgeID = " + std::to_string(keys[2]));
  other->Delete();

  rs->MoveNext();
  EXPECT_EQ(rs->Field("FirstName"), Variant("Changed"));
  rs->MoveNext();  // C keeps its place but can no longer be read
  EXPECT_EQ(Raised([&] { rs->Field("LastName"); }).Number(), dberr::kRecordDeleted);
  rs->MoveNext();
  EXPECT_EQ(rs->Field("LastName"), Variant("D"));
}

TEST_F(DatabaseTest, SnapshotHoldsTheRowsOfItsOpening) {
  const int64_t ann = AddJudge("Ann", "Able");
  auto db = Database::Open(path_);
  auto snap = db->QueryDefs("qryJudges")->OpenRecordset(RecordsetType::Snapshot);
  ExecSql(path_, "UPDATE Judges SET LastName = 'Zed'; INSERT INTO Judges (LastName) VALUES ('Y')");
  snap->FindFirst("JudgeID = " + std::to_string(ann));
  EXPECT_EQ(snap->Field("LastName"), Variant("Able"));
  EXPECT_EQ(snap->RecordCount(), 1);
  EXPECT_EQ(Raised([&] { snap->Edit(); }).Number(), dberr::kReadOnly);
  snap->Requery();
  EXPECT_EQ(Walk<std::string>(*snap, "LastName"), (Texts{"Y", "Zed"}));
}

}  // namespace
}  // namespace ringbook
