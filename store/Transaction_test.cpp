#include "store/Transaction.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "core/DefaultSettings.h"
#include "core/HostServices.h"
#include "store/Database.h"
#include "store/GameDatabase.h"
#include "store/NGroups.h"
#include "store/Recordset.h"
#include "support/Raised.h"
#include "support/SqlFile.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::QuerySql;

using test::Raised;

class TransactionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = dir_.File("world.db");
    CreateGameDatabase(path_);
    SetSettings(std::make_shared<DefaultSettings>(path_, dir_.Path().string()));
  }
  void TearDown() override { SetSettings(nullptr); }

  void AddGroup(const std::string& name) {
    NGroups groups;
    auto group = std::make_shared<CGroup>();
    group->SetName(name);
    groups.AddRecord(group, false);
  }
  // Read from the file by a connection of the test's own.
  std::string Groups() const {
    return QuerySql(path_,
                    "SELECT group_concat(Name, ',') FROM (SELECT Name FROM \"Groups\" "
                    "ORDER BY GroupID)");
  }

  test::TempDir dir_;
  std::string path_;
};

TEST_F(TransactionTest, CollectionsOpenedInsideCommitTogether) {
  Transaction transaction(path_);
  EXPECT_TRUE(transaction.IsOpen());
  AddGroup("World");
  AddGroup("Europe");
  // Another connection sees nothing before the commit...
  EXPECT_EQ(Groups(), "");
  // ...while the collections inside see each other's rows.
  NGroups inside;
  EXPECT_EQ(inside.GetGroupList(), "Europe\r\nWorld\r\n");

  transaction.Commit();
  EXPECT_FALSE(transaction.IsOpen());
  EXPECT_EQ(Groups(), "World,Europe");
  // A collection that joined the transaction keeps working afterwards.
  auto group = std::make_shared<CGroup>();
  group->SetName("Asia");
  inside.AddRecord(group, false);
  EXPECT_EQ(Groups(), "World,Europe,Asia");
}

TEST_F(TransactionTest, EndingWithoutCommitUndoesEverything) {
  AddGroup("Kept");
  {
    Transaction transaction(path_);
    AddGroup("Dropped");
  }
  EXPECT_EQ(Groups(), "Kept");

  Transaction transaction(path_);
  AddGroup("Undone");
  transaction.Rollback();
  EXPECT_FALSE(transaction.IsOpen());
  EXPECT_EQ(Groups(), "Kept");
  // Ended is ended: neither can be called again.
  EXPECT_EQ(Raised([&] { transaction.Commit(); }).Number(), dberr::kEngine);
  EXPECT_EQ(Raised([&] { transaction.Rollback(); }).Number(), dberr::kEngine);
}

TEST_F(TransactionTest, OneTransactionPerFileAndThread) {
  Transaction first(path_);
  const Error e = Raised([&] { Transaction second(path_); });
  EXPECT_EQ(e.Number(), dberr::kEngine);
  EXPECT_NE(e.Description().find(path_), std::string::npos) << e.Description();
  // The refused one disturbed nothing: the first still works and commits.
  AddGroup("World");
  first.Commit();
  EXPECT_EQ(Groups(), "World");
  // Once ended, the file takes a new transaction, and later opens get
  // connections of their own again.
  Transaction next(path_);
  AddGroup("Undone");
}

TEST_F(TransactionTest, EarlierConnectionsWaitAndFailAsLocked) {
  auto earlier = Database::Open(path_);
  auto rows = earlier->OpenRecordset("Groups");
  Transaction transaction(path_);
  rows->AddNew();
  rows->SetField("Name", "Outside");
  EXPECT_EQ(Raised([&] { rows->Update(); }).Number(), dberr::kFileInUse);
}

}  // namespace
}  // namespace ringbook
