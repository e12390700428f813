#include "store/Transaction.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "store/Database.h"
#include "store/NGroups.h"
#include "store/Recordset.h"
#include "support/GameDatabaseFixture.h"
#include "support/Raised.h"

namespace ringbook {
namespace {

using test::Raised;

class TransactionTest : public test::GameDatabaseFixture {
 protected:
  static void AddGroup(const std::string& name) {
    auto group = std::make_shared<CGroup>();
    group->SetName(name);
    NGroups().AddRecord(group, false);
  }
  // Read from the file by a connection of the test's own.
  std::string Groups() const {
    return SqlText(
        "SELECT group_concat(Name, ',') FROM (SELECT Name FROM \"Groups\" ORDER BY GroupID)");
  }
};

TEST_F(TransactionTest, CollectionsOpenedInsideCommitTogether) {
  Transaction transaction(Path());
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
    Transaction transaction(Path());
    AddGroup("Dropped");
  }
  EXPECT_EQ(Groups(), "Kept");

  Transaction transaction(Path());
  AddGroup("Undone");
  transaction.Rollback();
  EXPECT_FALSE(transaction.IsOpen());
  EXPECT_EQ(Groups(), "Kept");
  // Ended is ended: neither can be called again.
  EXPECT_EQ(Raised([&] { transaction.Commit(); }).Number(), dberr::kEngine);
  EXPECT_EQ(Raised([&] { transaction.Rollback(); }).Number(), dberr::kEngine);
}

TEST_F(TransactionTest, OneTransactionPerFileAndThread) {
  Transaction first(Path());
  const Error e = Raised([&] { Transaction second(Path()); });
  EXPECT_EQ(e.Number(), dberr::kEngine);
  EXPECT_NE(e.Description().find(Path()), std::string::npos) << e.Description();
  // The refused one disturbed nothing: the first still works and commits.
  AddGroup("World");
  first.Commit();
  EXPECT_EQ(Groups(), "World");
  // Once ended, the file takes a new transaction, and later opens get
  // connections of their own again.
  Transaction next(Path());
  AddGroup("Undone");
}

TEST_F(TransactionTest, EarlierConnectionsWaitAndFailAsLocked) {
  auto earlier = Database::Open(Path());
  auto rows = earlier->OpenRecordset("Groups");
  Transaction transaction(Path());
  rows->AddNew();
  rows->SetField("Name", "Outside");
  EXPECT_EQ(Raised([&] { rows->Update(); }).Number(), dberr::kFileInUse);
}

}  // namespace
}  // namespace ringbook
