#include "store/NGroups.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/GameDatabaseFixture.h"
#include "support/ListBoxDouble.h"

namespace ringbook {
namespace {

using test::ListBoxDouble;
using Texts = std::vector<std::string>;

class NGroupsTest : public test::GameDatabaseFixture {
 protected:
  static std::shared_ptr<CGroup> Group(const std::string& name) {
    auto group = std::make_shared<CGroup>();
    group->SetName(name);
    return group;
  }
};

TEST_F(NGroupsTest, BindsAnyControlAndCountsEveryRow) {
  Sql("INSERT INTO \"Groups\" (Name) VALUES ('Amateurs'), ('Pros')");
  NGroups groups;
  auto combo = std::make_shared<ListBoxDouble>(false);
  groups.FillList(combo);
  EXPECT_EQ(combo->Texts(), (Texts{"Amateurs", "Pros"}));
  EXPECT_EQ(combo->Data(), (std::vector<int32_t>{1, 2}));

  auto added = groups.AddRecord(Group("Juniors"));
  EXPECT_EQ(combo->Texts(), (Texts{"Amateurs", "Juniors", "Pros"}));
  EXPECT_EQ(combo->ListIndex(), 1);

  added->SetName("Veterans");
  groups.UpdateRecord(added);
  EXPECT_EQ(combo->Texts(), (Texts{"Amateurs", "Pros", "Veterans"}));

  // The common FillList has no filter to pass on.
  groups.Records().FillList(Variant(combo), 7);
  EXPECT_EQ(combo->ListCount(), 3);
}

TEST_F(NGroupsTest, GroupListAndMissingRow) {
  NGroups groups;
  EXPECT_EQ(groups.GetGroupList(), "");
  groups.AddRecord(Group("b"));
  groups.AddRecord(Group("A"));
  EXPECT_EQ(groups.GetGroupList(), "A\r\nb\r\n");  // sorted without regard to case

  auto ghost = Group("ghost");
  ghost->SetID(42);
  EXPECT_EQ(groups.UpdateRecord(ghost), nullptr);
  EXPECT_EQ(Sink().Messages(), (Texts{"Stop in NGroups.UpdateRecord"}));
}

}  // namespace
}  // namespace ringbook
