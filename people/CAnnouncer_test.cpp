#include "people/CAnnouncer.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;
using test::TempDir;

TEST(CAnnouncerTest, NameKeepsTheBlankBetweenTrimmedParts) {
  CAnnouncer announcer;
  EXPECT_EQ(announcer.Name(), " ");
  announcer.SetFirstName(" Joe");
  EXPECT_EQ(announcer.Name(), "Joe ");
  announcer.SetLastName("Bell  ");
  EXPECT_EQ(announcer.Name(), "Joe Bell");
  EXPECT_EQ(announcer.LastName(), "Bell  ");
}

TEST(CAnnouncerTest, RecordIsByteExactAndReadsAndClonesWithTheNameRebuilt) {
  TempDir dir;
  CAnnouncer saved;
  saved.SetID(6);
  saved.SetFirstName("Ren\xC3\xA9");  // "René": the é is one byte in the file
  saved.SetLastName(" Bell");
  saved.SetEra(-1);
  saved.SaveToFile(dir.File("ann.bin"));
  const auto expected = Bytes().Lng(1000001).Lng(6).Str("Ren\xE9").Str(" Bell").Int(-1).Get();
  EXPECT_EQ(ReadFileBytes(dir.File("ann.bin")), expected);

  CAnnouncer loaded;
  loaded.LoadFromFile(dir.File("ann.bin"));
  EXPECT_EQ(loaded.Name(), "Ren\xC3\xA9 Bell");
  CAnnouncer cloned;
  loaded.Clone(cloned);
  EXPECT_EQ(cloned.Name(), "Ren\xC3\xA9 Bell");
  cloned.SaveToFile(dir.File("again.bin"));
  EXPECT_EQ(ReadFileBytes(dir.File("again.bin")), expected);
}

}  // namespace
}  // namespace ringbook
