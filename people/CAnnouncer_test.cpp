#include "people/CAnnouncer.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;
using test::TempDir;

TEST(CAnnouncerTest, EmptyNamesGiveASingleBlank) {
  CAnnouncer announcer;
  announcer.SetFirstName("");
  announcer.SetLastName("");
  EXPECT_EQ(announcer.Name(), " ");
  announcer.SetFirstName(" Joe");
  EXPECT_EQ(announcer.Name(), "Joe ");
}

TEST(CAnnouncerTest, CloneCopiesIdNamesAndEra) {
  CAnnouncer source;
  source.SetID(6);
  source.SetFirstName("Joe");
  source.SetLastName("Bell");
  source.SetEra(2);
  CAnnouncer target;
  source.Clone(target);
  EXPECT_EQ(target.ID(), 6);
  EXPECT_EQ(target.Name(), "Joe Bell");
  EXPECT_EQ(target.Era(), 2);
}

TEST(CAnnouncerTest, RecordIsByteExactAndReadsBackWithTheNameRebuilt) {
  TempDir dir;
  CAnnouncer saved;
  saved.SetID(6);
  saved.SetFirstName("Ren\xC3\xA9");  // "René": the é is one byte in the file
  saved.SetLastName(" Bell");
  saved.SetEra(-1);
  saved.SaveToFile(dir.File("ann.bin"));
  EXPECT_EQ(ReadFileBytes(dir.File("ann.bin")),
            Bytes().Lng(1000001).Lng(6).Str("Ren\xE9").Str(" Bell").Int(-1).Get());

  CAnnouncer loaded;
  loaded.LoadFromFile(dir.File("ann.bin"));
  EXPECT_EQ(loaded.ID(), 6);
  EXPECT_EQ(loaded.FirstName(), "Ren\xC3\xA9");
  EXPECT_EQ(loaded.LastName(), " Bell");
  EXPECT_EQ(loaded.Name(), "Ren\xC3\xA9 Bell");
  EXPECT_EQ(loaded.Era(), -1);
}

}  // namespace
}  // namespace ringbook
