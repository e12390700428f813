#include "store/NGroups.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/GameDatabaseFixture.h"
#include "support/ListBoxDouble.h"

namespace ringbook {
namespace {

using Texts = std::vector<std::string>;

class NGroupsTest : public test::GameDatabaseFixture {};

TEST_F(NGroupsTest, BindsAnyControlAndCountsEveryRow) {
  Sql("INSERT INTO \"Groups\" (Name) VALUES ('Amateurs'), ('Pros')");
  NGroups groups;
  auto combo = std::make_shared<test::ListBoxDouble>(false);
  groups.FillList(combo);
  EXPECT_EQ(combo->Texts(), (Texts{"Amateurs", "Pros"}));
  EXPECT_EQ(combo->Data(), (std::vector<int32_t>{1, 2}));

  auto added = std::make_shared<CGroup>();
  added->SetName("Juniors");
  groups.AddRecord(added);
  EXPECT_EQ(combo->Texts(), (Texts{"Amateurs", "Juniors", "Pros"}));
  EXPECT_EQ(combo->ListIndex(), 1);

  added->SetName("Veterans");
  groups.UpdateRecord(added);
  EXPECT_EQ(combo->Texts(), (Texts{"Amateurs", "Pros", "Veterans"}));
}

}  // namespace
}  // namespace ringbook
