#include "people/CJudge.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;

TEST(CJudgeTest, RecordIsWrittenWithTheCurrentMarkerAnd32BitBiasAndClonesWhole) {
  test::TempDir dir;
  CJudge judge;
  judge.SetID(5);
  judge.SetFirstName("  Ann ");
  EXPECT_EQ(judge.Name(), "Ann ");  // the blank stays without a last name
  judge.SetLastName(" Lee");
  judge.SetEra(-2);
  judge.SetBias(70000);
  judge.SaveToFile(dir.File("judge.bin"));
  const auto expected =
      Bytes().Lng(1000003).Lng(5).Str("  Ann ").Str(" Lee").Int(-2).Lng(70000).Get();
  EXPECT_EQ(ReadFileBytes(dir.File("judge.bin")), expected);

  CJudge loaded;
  loaded.LoadFromFile(dir.File("judge.bin"));
  CJudge cloned;
  cloned.SetFirstName("Old");
  loaded.Clone(cloned);
  EXPECT_EQ(cloned.Name(), "Ann Lee");
  cloned.SaveToFile(dir.File("again.bin"));
  EXPECT_EQ(ReadFileBytes(dir.File("again.bin")), expected);
}

TEST(CJudgeTest, TheMarkerDecidesTheBiasThatFollowsTheEra) {
  test::TempDir dir;
  struct Case {
    int32_t marker;
    Bytes bias_bytes;
    int32_t bias;
  };
  const Case cases[] = {
      {1000001, Bytes(), 2},  // no bias: the current one stays
      {1000002, Bytes().Int(-3), -3},
      {1000003, Bytes().Lng(-100000), -100000},
      {1000009, Bytes().Lng(-100000), -100000},
  };
  for (const auto& [marker, bias_bytes, bias] : cases) {
    SCOPED_TRACE(marker);
    Bytes bytes = Bytes().Lng(marker).Lng(8).Str("Bo").Str("Cox").Int(1);
    for (uint8_t b : bias_bytes.Get()) bytes.Byte(b);
    const auto end = static_cast<int32_t>(bytes.Get().size());
    bytes.Byte(0x7F);  // what follows belongs to the next record, not to the bias
    test::WriteFileBytes(dir.File("old.bin"), bytes.Get());
    CStream in;
    in.SetFilename(dir.File("old.bin"));
    in.OpenStream(false);
    CJudge judge;
    judge.SetBias(2);
    judge.ReadFromStream(in);
    EXPECT_EQ(in.SeekTo(), end + 1);
    EXPECT_EQ(in.ReadByte(), 0x7F);
    in.CloseStream();
    // Saved again under the current marker.
    judge.SaveToFile(dir.File("new.bin"));
    EXPECT_EQ(ReadFileBytes(dir.File("new.bin")),
              Bytes().Lng(1000003).Lng(8).Str("Bo").Str("Cox").Int(1).Lng(bias).Get());
  }
}

}  // namespace
}  // namespace ringbook
