#include "people/CAnnouncer.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;

TEST(CAnnouncerTest, RecordIsByteExactAndReadsAndClonesWithTheNameRebuilt) {
  test::TempDir dir;
  CAnnouncer saved;
  EXPECT_EQ(saved.Name(), " ");  // the blank between the parts is always there
  saved.SetID(6);
  saved.SetFirstName("Ren\xC3\xA9");  // "René": the é is one byte in the file
  saved.SetLastName(" Bell  ");
  saved.SetEra(-1);
  saved.SaveToFile(dir.File("ann.bin"));
  const auto expected = Bytes().Lng(1000001).Lng(6).Str("Ren\xE9").Str(" Bell  ").Int(-1).Get();
  EXPECT_EQ(ReadFileBytes(dir.File("ann.bin")), expected);

  CAnnouncer loaded;
  loaded.LoadFromFile(dir.File("ann.bin"));
  CAnnouncer cloned;
  loaded.Clone(cloned);
  EXPECT_EQ(cloned.Name(), "Ren\xC3\xA9 Bell");
  cloned.SaveToFile(dir.File("again.bin"));
  EXPECT_EQ(ReadFileBytes(dir.File("again.bin")), expected);
}

}  // namespace
}  // namespace ringbook
