#include "people/CReferee.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/TempDir.h"

namespace ringbook {
namespace {

using test::Bytes;
using test::ReadFileBytes;

TEST(CRefereeTest, RecordHoldsTenValuesInOrderAndCloneLeavesTheRatingOut) {
  test::TempDir dir;
  CReferee ref;
  ref.SetFirstName(" Max ");
  EXPECT_EQ(ref.Name(), "Max ");  // the blank stays without a last name
  ref.SetID(31);
  ref.SetLastName("Stone");
  ref.SetEra(3);
  ref.SetActiveRetired(1);
  ref.SetFouls(2);
  ref.SetJudgement(-1);
  ref.SetRating(7);
  ref.SetStoppage(300);
  ref.SaveToFile(dir.File("ref.bin"));
  // Era, ActiveRetired, Fouls, Judgement, Rating and Stoppage after the names.
  Bytes record;
  record.Lng(1000001).Lng(31).Str(" Max ").Str("Stone").Int(3).Int(1).Int(2).Int(-1).Int(7).Int(
      300);
  EXPECT_EQ(ReadFileBytes(dir.File("ref.bin")), record.Get());

  CReferee target;
  target.SetRating(3);
  ref.Clone(target);
  EXPECT_EQ(target.Rating(), 3);
  EXPECT_EQ(target.Name(), "Max Stone");
  target.SetRating(7);
  target.SaveToFile(dir.File("clone.bin"));
  EXPECT_EQ(ReadFileBytes(dir.File("clone.bin")), record.Get());
}

TEST(CRefereeTest, RecordReadsBackEveryFieldTheRatingIncludedWithoutCheckingTheMarker) {
  test::TempDir dir;
  const auto record =
      Bytes().Lng(77).Lng(-4).Str("Al").Str("Ray").Int(5).Int(0).Int(1).Int(2).Int(-9).Int(2).Get();
  test::WriteFileBytes(dir.File("ref.bin"), record);
  CReferee ref;
  ref.LoadFromFile(dir.File("ref.bin"));
  EXPECT_EQ(ref.Name(), "Al Ray");
  ref.SaveToFile(dir.File("again.bin"));  // every field but the marker, as read
  EXPECT_EQ(ReadFileBytes(dir.File("again.bin")), Bytes()
                                                      .Lng(1000001)
                                                      .Lng(-4)
                                                      .Str("Al")
                                                      .Str("Ray")
                                                      .Int(5)
                                                      .Int(0)
                                                      .Int(1)
                                                      .Int(2)
                                                      .Int(-9)
                                                      .Int(2)
                                                      .Get());
}

}  // namespace
}  // namespace ringbook
