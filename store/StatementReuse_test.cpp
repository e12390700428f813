// The stored queries' statements are prepared once per connection and
// reused: a run must still see what was written since the last one, and
// recordsets open on the same query at once, or kept after their database
// object is gone, must not share a statement.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "store/Database.h"
#include "store/GameDatabase.h"
#include "store/QueryDef.h"
#include "store/Recordset.h"
#include "support/SqlFile.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using Texts = std::vector<std::string>;

class StatementReuseTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CreateGameDatabase(path_);
    // Fighter 1 has fights A, B, C and fighter 2 fights X, Y (the latest
    // first in the query).
    test::ExecSql(path_,
                  "INSERT INTO FightHistories (FighterID, \"Date\", Opponent) VALUES "
                  "(1, 3, 'A'), (1, 2, 'B'), (1, 1, 'C'), (2, 2, 'X'), (2, 1, 'Y')");
    db_ = Database::Open(path_);
  }

  std::shared_ptr<Recordset> Histories(int32_t fighter, RecordsetType type) {
    std::shared_ptr<QueryDef> query = db_->QueryDefs("qryFighterHistories");
    query->SetParameter("Enter FighterID", Variant(fighter));
    return query->OpenRecordset(type);
  }

  static Texts Opponents(Recordset& rows) {
    Texts names;
    if (rows.RecordCount() > 0) {
      for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext())
        names.push_back(rows.Field("Opponent").ToText());
    }
    return names;
  }

  void AddFight(int32_t fighter, double date, const std::string& opponent) {
    auto table = db_->OpenRecordset("FightHistories");
    table->AddNew();
    table->SetField("FighterID", Variant(fighter));
    table->SetField("Date", Variant::FromDate(date));
    table->SetField("Opponent", Variant(opponent));
    table->Update();
  }

  test::TempDir dir_;
  std::string path_ = dir_.File("world.db");
  std::shared_ptr<Database> db_;
};

TEST_F(StatementReuseTest, ARunAgainSeesTheWritesMadeSinceTheLastOne) {
  for (const RecordsetType type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
    SCOPED_TRACE(static_cast<int>(type));
    const Texts before = Opponents(*Histories(1, type));
    // A run left on its first row hands its statements back as they are.
    auto left = Histories(1, type);
    left->MoveFirst();
    left.reset();
    AddFight(1, before.size() + 10, "New " + std::to_string(before.size()));
    Texts expected = {"New " + std::to_string(before.size())};
    expected.insert(expected.end(), before.begin(), before.end());
    EXPECT_EQ(Opponents(*Histories(1, type)), expected);
  }
}

TEST_F(StatementReuseTest, RecordsetsOpenOnOneQueryAtOnceKeepTheirOwnRows) {
  auto first = Histories(1, RecordsetType::Dynaset);
  auto second = Histories(2, RecordsetType::Dynaset);
  first->MoveFirst();
  second->MoveFirst();
  EXPECT_EQ(first->Field("Opponent").ToText(), "A");
  EXPECT_EQ(second->Field("Opponent").ToText(), "X");
  // A third run of the query while both are open, and one of them closed
  // in between, changes neither of the others.
  EXPECT_EQ(Opponents(*Histories(2, RecordsetType::Snapshot)), (Texts{"X", "Y"}));
  second->Close();
  EXPECT_EQ(Opponents(*Histories(2, RecordsetType::Dynaset)), (Texts{"X", "Y"}));
  first->MoveNext();
  EXPECT_EQ(first->Field("Opponent").ToText(), "B");
  first->Requery();
  EXPECT_EQ(Opponents(*first), (Texts{"A", "B", "C"}));
}

TEST_F(StatementReuseTest, ARecordsetOutlivesItsDatabaseObject) {
  auto rows = Histories(2, RecordsetType::Dynaset);
  db_->Close();
  db_.reset();
  rows->MoveFirst();
  rows->Edit();
  rows->SetField("Opponent", Variant("Z"));
  rows->Update();
  rows->Requery();
  EXPECT_EQ(Opponents(*rows), (Texts{"Z", "Y"}));
  rows.reset();
  db_ = Database::Open(path_);
  EXPECT_EQ(Opponents(*Histories(2, RecordsetType::Snapshot)), (Texts{"Z", "Y"}));
}

}  // namespace
}  // namespace ringbook
