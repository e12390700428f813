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

TEST(CRefereeTest, CloneCopiesEverythingButTheRating) {
  const CReferee source = MakeReferee();
  CReferee target;
  target.SetRating(3);
  source.Clone(target);

  EXPECT_EQ(target.Rating(), 3);
  EXPECT_EQ(target.ID(), 31);
  EXPECT_EQ(target.FirstName(), " Max ");
  EXPECT_EQ(target.LastName(), "Stone");
  EXPECT_EQ(target.Name(), "Max Stone");
  EXPECT_EQ(target.Era(), 3);
  EXPECT_EQ(target.ActiveRetired(), 1);
  EXPECT_EQ(target.Fouls(), 2);
  EXPECT_EQ(target.Judgement(), -1);
  EXPECT_EQ(target.Stoppage(), 300);
}

TEST(CRefereeTest, RecordHoldsTenValuesInOrder) {
  TempDir dir;
  CReferee ref = MakeReferee();
  ref.SaveToFile(dir.File("ref.bin"));

  const auto expected = Bytes()
                            .Lng(1000001)
                            .Lng(31)
                            .Str(" Max ")
                            .Str("Stone")
                            .Int(3)    // Era
                            .Int(1)    // ActiveRetired
                            .Int(2)    // Fouls
                            .Int(-1)   // Judgement
                            .Int(7)    // Rating
                            .Int(300)  // Stoppage
                            .Get();
  EXPECT_EQ(ReadFileBytes(dir.File("ref.bin")), expected);
}

TEST(CRefereeTest, RecordReadsBackEveryFieldTheRatingIncluded) {
  TempDir dir;
  WriteFileBytes(dir.File("ref.bin"), Bytes()
                                          .Lng(77)  // the marker is not checked
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
