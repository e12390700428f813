#include "options/Version.h"

#include <gtest/gtest.h>

namespace ringbook {
namespace {

TEST(VersionTest, ReportsTheComponentVersion) {
  const Version version;
  EXPECT_EQ(version.Major(), 1);
  EXPECT_EQ(version.Minor(), 0);
  EXPECT_EQ(version.Revision(), 83);
}

}  // namespace
}  // namespace ringbook
