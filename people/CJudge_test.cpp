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
  judge.SetFirstName("");
  EXPECT_EQ(judge.Name(), " Lee");
  judge.SetLastName("   ");
  EXPECT_EQ(judge.Name(), " ");
}

TEST(CJudgeTest, RecordIsWrittenWithTheCurrentMarkerAnd32BitBiasAndClonesWhole) {
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
  CJudge cloned;
  cloned.SetFirstName("Old");
  loaded.Clone(cloned);
  EXPECT_EQ(cloned.Name(), "Ann Lee");
  cloned.SaveToFile(dir.File("again.bin"));
  EXPECT_EQ(ReadFileBytes(dir.File("again.bin")), expected);
}

TEST(CJudgeTest, TheMarkerDecidesTheBiasThatFollowsTheEra) {
  TempDir dir;
  struct Case {
    int32_t marker;
    Bytes bias;
    int32_t expected_bias;
  };
  const Case cases[] = {
      {1000001, Bytes(), 2},  // no bias: the current one stays
      {1000002, Bytes().Int(-3), -3},
      {1000003, Bytes().Lng(-100000), -100000},
      {1000009, Bytes().Lng(-100000), -100000},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.marker);
    Bytes b;
    b.Lng(c.marker).Lng(8).Str("Bo").Str("Cox").Int(1);
    const std::size_t end = b.Get().size() + c.bias.Get().size();
    std::vector<uint8_t> bytes = b.Get();
    bytes.insert(bytes.end(), c.bias.Get().begin(), c.bias.Get().end());
    // Whatever follows belongs to the next record, not to the bias.
    bytes.push_back(0x7F);
    WriteFileBytes(dir.File("old.bin"), bytes);
    CStream in;
    in.SetFilename(dir.File("old.bin"));
    in.OpenStream(false);
    CJudge judge;
    judge.SetBias(2);
    judge.ReadFromStream(in);
    EXPECT_EQ(in.SeekTo(), static_cast<int32_t>(end) + 1);
    EXPECT_EQ(in.ReadByte(), 0x7F);
    in.CloseStream();
    EXPECT_EQ(judge.Bias(), c.expected_bias);
    EXPECT_EQ(judge.ID(), 8);
    EXPECT_EQ(judge.Name(), "Bo Cox");
    EXPECT_EQ(judge.Era(), 1);
    // Saved again under the current marker.
    judge.SaveToFile(dir.File("new.bin"));
    EXPECT_EQ(ReadFileBytes(dir.File("new.bin")),
              Bytes().Lng(1000003).Lng(8).Str("Bo").Str("Cox").Int(1).Lng(c.expected_bias).Get());
  }
}

}  // namespace
}  // namespace ringbook
