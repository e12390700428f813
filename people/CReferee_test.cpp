#include "people/CReferee.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;
using test::TempDir;
using test::WriteFileBytes;

CReferee MakeReferee() {
  CReferee ref;
  ref.SetID(31);
  ref.SetFirstName(" Max ");
  ref.SetLastName("Stone");
  ref.SetEra(3);
  ref.SetActiveRetired(1);
  ref.SetFouls(2);
  ref.SetJudgement(-1);
  ref.SetRating(7);
  ref.SetStoppage(300);
  return ref;
}

TEST(CRefereeTest, NameKeepsTheBlankBetweenTrimmedParts) {
  CReferee ref;
  ref.SetFirstName(" Max ");
  EXPECT_EQ(ref.Name(), "Max ");
  ref.SetLastName("Stone ");
  EXPECT_EQ(ref.Name(), "Max Stone");
  ref.SetFirstName("");
  ref.SetLastName("");
  EXPECT_EQ(ref.Name(), " ");
}

TEST(CRefereeTest, RecordHoldsTenValuesInOrderAndCloneLeavesTheRatingOut) {
  TempDir dir;
  CReferee ref = MakeReferee();
  ref.SaveToFile(dir.File("ref.bin"));

  // Era, ActiveRetired, Fouls, Judgement, Rating and Stoppage after the names.
  Bytes record;
  record.Lng(1000001).Lng(31).Str(" Max ").Str("Stone");
  record.Int(3).Int(1).Int(2).Int(-1).Int(7).Int(300);
  const auto& expected = record.Get();
  EXPECT_EQ(ReadFileBytes(dir.File("ref.bin")), expected);

  // A clone carries everything but the rating.
  CReferee target;
  target.SetRating(3);
  ref.Clone(target);
  EXPECT_EQ(target.Rating(), 3);
  EXPECT_EQ(target.Name(), "Max Stone");
  target.SetRating(7);
  target.SaveToFile(dir.File("clone.bin"));
  EXPECT_EQ(ReadFileBytes(dir.File("clone.bin")), expected);
}

TEST(CRefereeTest, RecordReadsBackEveryFieldTheRatingIncluded) {
  TempDir dir;
  // The marker is not checked.
  Bytes record;
  record.Lng(77).Lng(-4).Str("Al").Str("Ray").Int(5).Int(0).Int(1).Int(2).Int(-9).Int(2);
  WriteFileBytes(dir.File("ref.bin"), record.Get());
  CReferee ref;
  ref.LoadFromFile(dir.File("ref.bin"));
  EXPECT_EQ(ref.ID(), -4);
  EXPECT_EQ(ref.Name(), "Al Ray");
  EXPECT_EQ(ref.Era(), 5);
  EXPECT_EQ(ref.ActiveRetired(), 0);
  EXPECT_EQ(ref.Fouls(), 1);
  EXPECT_EQ(ref.Judgement(), 2);
  EXPECT_EQ(ref.Rating(), -9);
  EXPECT_EQ(ref.Stoppage(), 2);
}

}  // namespace
}  // namespace ringbook
