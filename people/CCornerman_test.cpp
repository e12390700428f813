#include "people/CCornerman.h"

#include <gtest/gtest.h>

namespace ringbook {
namespace {

TEST(CCornermanTest, NameHasNoStrayBlank) {
  CCornerman man;
  EXPECT_EQ(man.Name(), "");
  man.SetLastName("  Duffy ");
  EXPECT_EQ(man.Name(), "Duffy");
  man.SetFirstName(" Pat");
  EXPECT_EQ(man.Name(), "Pat Duffy");
  man.SetLastName("");
  EXPECT_EQ(man.Name(), "Pat");
  man.SetFirstName("   ");
  EXPECT_EQ(man.Name(), "");
  // The nickname never shows in the name.
  man.SetNickName("Doc");
  EXPECT_EQ(man.Name(), "");
}

TEST(CCornermanTest, CloneCopiesEveryField) {
  CCornerman source;
  source.SetID(40);
  source.SetFirstName("Pat");
  source.SetLastName("Duffy");
  source.SetNickName("Doc");
  source.SetCloseCuts(1);
  source.SetDiscipline(2);
  source.SetEra(3);
  source.SetMotivate(4);
  source.SetReduceSwelling(5);
  source.SetSpecialty(6);
  source.SetStrategy(7);
  source.SetTrainingOffense(8);
  source.SetTrainingDefense(9);
  source.SetTrainingAverage(-10);

  CCornerman target;
  target.SetFirstName("Old");
  source.Clone(target);
  EXPECT_EQ(target.ID(), 40);
  EXPECT_EQ(target.Name(), "Pat Duffy");
  EXPECT_EQ(target.NickName(), "Doc");
  EXPECT_EQ(target.CloseCuts(), 1);
  EXPECT_EQ(target.Discipline(), 2);
  EXPECT_EQ(target.Era(), 3);
  EXPECT_EQ(target.Motivate(), 4);
  EXPECT_EQ(target.ReduceSwelling(), 5);
  EXPECT_EQ(target.Specialty(), 6);
  EXPECT_EQ(target.Strategy(), 7);
  EXPECT_EQ(target.TrainingOffense(), 8);
  EXPECT_EQ(target.TrainingDefense(), 9);
  EXPECT_EQ(target.TrainingAverage(), -10);
}

}  // namespace
}  // namespace ringbook
