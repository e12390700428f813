#include "people/CCornerman.h"

#include <gtest/gtest.h>

namespace ringbook {
namespace {

using C = CCornerman;
// The ten ratings, each getter at the index of its setter.
constexpr int16_t (C::*kRatings[])() const = {
    &C::CloseCuts,       &C::Discipline,     &C::Era,      &C::Motivate,
    &C::ReduceSwelling,  &C::Specialty,      &C::Strategy, &C::TrainingOffense,
    &C::TrainingDefense, &C::TrainingAverage};
constexpr void (C::*kSetRatings[])(int16_t) = {
    &C::SetCloseCuts,       &C::SetDiscipline,     &C::SetEra,      &C::SetMotivate,
    &C::SetReduceSwelling,  &C::SetSpecialty,      &C::SetStrategy, &C::SetTrainingOffense,
    &C::SetTrainingDefense, &C::SetTrainingAverage};

TEST(CCornermanTest, NameHasNoStrayBlank) {
  CCornerman man;
  EXPECT_EQ(man.Name(), "");
  man.SetLastName("  Duffy ");
  EXPECT_EQ(man.Name(), "Duffy");
  man.SetFirstName(" Pat");
  EXPECT_EQ(man.Name(), "Pat Duffy");
  man.SetLastName("");
  EXPECT_EQ(man.Name(), "Pat");
  man.SetNickName("Doc");  // never part of the name
  man.SetFirstName("   ");
  EXPECT_EQ(man.Name(), "");
}

TEST(CCornermanTest, CloneCopiesEveryField) {
  CCornerman source;
  source.SetID(40);
  source.SetFirstName("Pat");
  source.SetLastName("Duffy");
  source.SetNickName("Doc");
  for (int i = 0; i < 10; ++i)
    (source.*kSetRatings[i])(static_cast<int16_t>(i % 2 ? i + 1 : -i - 1));

  CCornerman target;
  target.SetFirstName("Old");
  source.Clone(target);
  EXPECT_EQ(target.ID(), 40);
  EXPECT_EQ(target.Name(), "Pat Duffy");
  EXPECT_EQ(target.NickName(), "Doc");
  for (int i = 0; i < 10; ++i) EXPECT_EQ((target.*kRatings[i])(), i % 2 ? i + 1 : -i - 1) << i;
}

}  // namespace
}  // namespace ringbook
