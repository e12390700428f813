#include "people/CCornerman.h"

#include "core/Text.h"
#include "people/PersonName.h"

namespace ringbook {

void CCornerman::SetFirstName(const std::string& value) {
  first_name_ = value;
  BuildName();
}

void CCornerman::SetLastName(const std::string& value) {
  last_name_ = value;
  BuildName();
}

void CCornerman::BuildName() {
  // Unlike the officials, a cornerman with one name has no stray blank.
  name_ = text::Trim(people::JoinFirstLast(first_name_, last_name_));
}

void CCornerman::Clone(CCornerman& target) const {
  target.SetCloseCuts(close_cuts_);
  target.SetDiscipline(discipline_);
  target.SetEra(era_);
  target.SetFirstName(first_name_);
  target.SetID(id_);
  target.SetLastName(last_name_);
  target.SetMotivate(motivate_);
  target.SetNickName(nick_name_);
  target.SetReduceSwelling(reduce_swelling_);
  target.SetSpecialty(specialty_);
  target.SetStrategy(strategy_);
  target.SetTrainingOffense(training_offense_);
  target.SetTrainingDefense(training_defense_);
  target.SetTrainingAverage(training_average_);
}

}  // namespace ringbook
