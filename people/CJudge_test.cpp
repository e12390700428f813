#include "people/CJudge.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;
using test::TempDir;
using test::WriteFileBytes;

TEST(CJudgeTest, NameIsTrimmedPartsJoinedByOneBlankAlways) {
  CJudge judge;
  judge.SetFirstName("  Ann ");
  judge.SetLastName(" Lee  ");
  EXPECT_EQ(judge.Name(), "Ann Lee");
  EXPECT_EQ(judge.FirstName(), "  Ann ");
  EXPECT_EQ(judge.LastName(), " Lee  ");

  judge.SetFirstName("");
  EXPECT_EQ(judge.Name(), " Lee");
  judge.SetLastName("   ");
  EXPECT_EQ(judge.Name(), " ");
}

TEST(CJudgeTest, CloneCopiesEveryField) {
  CJudge source;
  source.SetID(12);
  source.SetFirstName("Ann");
  source.SetLastName("Lee");
  source.SetBias(-70000);
  source.SetEra(4);

  CJudge target;
  target.SetFirstName("Old");
  source.Clone(target);
  EXPECT_EQ(target.ID(), 12);
  EXPECT_EQ(target.FirstName(), "Ann");
  EXPECT_EQ(target.LastName(), "Lee");
  EXPECT_EQ(target.Name(), "Ann Lee");
  EXPECT_EQ(target.Bias(), -70000);
  EXPECT_EQ(target.Era(), 4);
}

TEST(CJudgeTest, RecordIsWrittenWithTheCurrentMarkerAnd32BitBias) {
  TempDir dir;
  CJudge judge;
  judge.SetID(5);
  judge.SetFirstName("Ann");
  judge.SetLastName("Lee");
  judge.SetEra(-2);
  judge.SetBias(70000);
  judge.SaveToFile(dir.File("judge.bin"));

  const auto expected = Bytes().Lng(1000003).Lng(5).Str("Ann").Str("Lee").Int(-2).Lng(70000).Get();
  EXPECT_EQ(ReadFileBytes(dir.File("judge.bin")), expected);

  CJudge loaded;
  loaded.LoadFromFile(dir.File("judge.bin"));
  EXPECT_EQ(loaded.ID(), 5);
  EXPECT_EQ(loaded.Name(), "Ann Lee");
  EXPECT_EQ(loaded.Era(), -2);
  EXPECT_EQ(loaded.Bias(), 70000);
}

TEST(CJudgeTest, Marker1000002CarriesA16BitBiasAndIsSavedAgainAsCurrent) {
  TempDir dir;
  // The 16-bit bias is followed by a stray byte that must not be read.
  WriteFileBytes(dir.File("old.bin"),
                 Bytes().Lng(1000002).Lng(8).Str("Bo").Str("Cox").Int(1).Int(-3).Byte(0x7F).Get());
  CStream in;
  in.SetFilename(dir.File("old.bin"));
  in.OpenStream(false);
  CJudge judge;
  judge.ReadFromStream(in);
  EXPECT_EQ(in.SeekTo(), 1 + 4 + 4 + 6 + 7 + 2 + 2);
  in.CloseStream();
  EXPECT_EQ(judge.Bias(), -3);
  EXPECT_EQ(judge.ID(), 8);
  EXPECT_EQ(judge.Name(), "Bo Cox");
  EXPECT_EQ(judge.Era(), 1);

  judge.SaveToFile(dir.File("new.bin"));
  EXPECT_EQ(ReadFileBytes(dir.File("new.bin")),
            Bytes().Lng(1000003).Lng(8).Str("Bo").Str("Cox").Int(1).Lng(-3).Get());
}

TEST(CJudgeTest, LaterMarkersCarryA32BitBias) {
  TempDir dir;
  WriteFileBytes(dir.File("j.bin"),
                 Bytes().Lng(1000009).Lng(1).Str("A").Str("B").Int(0).Lng(-100000).Get());
  CJudge judge;
  judge.LoadFromFile(dir.File("j.bin"));
  EXPECT_EQ(judge.Bias(), -100000);
}

TEST(CJudgeTest, OlderMarkerHasNoBiasAndKeepsTheCurrentOne) {
  TempDir dir;
  // Whatever follows an old record belongs to the next record, not to the bias.
  WriteFileBytes(dir.File("j.bin"),
                 Bytes().Lng(1000001).Lng(3).Str("Al").Str("Ray").Int(2).Lng(555).Get());
  CStream in;
  in.SetFilename(dir.File("j.bin"));
  in.OpenStream(false);
  CJudge judge;
  judge.SetBias(2);
  judge.ReadFromStream(in);
  EXPECT_EQ(in.SeekTo(), 1 + 4 + 4 + 6 + 7 + 2);
  EXPECT_EQ(in.ReadLng(), 555);
  in.CloseStream();
  EXPECT_EQ(judge.Bias(), 2);
  EXPECT_EQ(judge.ID(), 3);
  EXPECT_EQ(judge.Name(), "Al Ray");
  EXPECT_EQ(judge.Era(), 2);
}

}  // namespace
}  // namespace ringbook
