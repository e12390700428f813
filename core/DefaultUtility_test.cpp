#include "core/DefaultUtility.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "core/Error.h"
#include "support/Raised.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

namespace fs = std::filesystem;

void SetContents(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

std::string Contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

TEST(DefaultUtilityTest, ReplaceFilePutsTheTemporaryInPlaceAndLeavesNoneBehind) {
  test::TempDir dir;
  const std::string target = dir.File("card.crd");
  SetContents(target, "an older and much longer card");
  SetContents(target + ".tmp", "new card");
  DefaultUtility utility;
  utility.ReplaceFile(target, target + ".tmp");
  EXPECT_EQ(Contents(target), "new card");
  EXPECT_FALSE(fs::exists(target + ".tmp"));

  // A target that did not exist yet.
  SetContents(dir.File("fresh.tmp"), "x");
  utility.ReplaceFile(dir.File("fresh"), dir.File("fresh.tmp"));
  EXPECT_EQ(Contents(dir.File("fresh")), "x");
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), fs::directory_iterator()), 2);
}

TEST(DefaultUtilityTest, ReplaceFileWithoutATemporaryFailsAndKeepsTheTarget) {
  test::TempDir dir;
  const std::string target = dir.File("card.crd");
  SetContents(target, "old");
  DefaultUtility utility;
  const Error e = test::Raised([&] { utility.ReplaceFile(target, target + ".tmp"); });
  EXPECT_EQ(e.Number(), static_cast<int32_t>(0x80040204u));
  EXPECT_EQ(e.Source(), "Utility:ReplaceFile");
  EXPECT_EQ(e.Description().rfind("Write Error: ", 0), 0u);
  EXPECT_EQ(Contents(target), "old");
}

TEST(DefaultUtilityTest, FileChecks) {
  test::TempDir dir;
  DefaultUtility utility;
  SetContents(dir.File("face.jpg"), "jpg");
  EXPECT_TRUE(utility.FileExists(dir.File("face.jpg")));
  EXPECT_TRUE(utility.FileExists(dir.Path().string()));
  EXPECT_FALSE(utility.FileExists(dir.File("none.jpg")));
  EXPECT_FALSE(utility.FileExists(""));
  std::string picture = dir.File("face.jpg");
  EXPECT_TRUE(utility.CheckPicturePath(picture));
  std::string folder = dir.Path().string();
  EXPECT_FALSE(utility.CheckPicturePath(folder));
}

TEST(DefaultUtilityTest, SeparatorOperations) {
  DefaultUtility u;
  EXPECT_EQ(u.CollapseSeparators("a,,,b,,c", ","), "a,b,c");
  EXPECT_EQ(u.CollapseSeparators(",,a,,", ","), ",a,");
  EXPECT_EQ(u.CollapseSeparators("a\t\t\t\tb", "\t\t"), "a\t\tb");
  EXPECT_EQ(u.CollapseSeparators("a  b", ""), "a  b");
  EXPECT_EQ(u.TrimSeparators(",,a,,b,,", ","), "a,,b");
  EXPECT_EQ(u.TrimSeparators(",,,", ","), "");
  EXPECT_EQ(u.TrimSeparators("--a--", "--"), "a");
  EXPECT_EQ(u.TrimSeparators("-a-", "--"), "-a-");
  EXPECT_EQ(u.TrimSeparators("a", ""), "a");
}

}  // namespace
}  // namespace ringbook
