#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"
#include "core/Object.h"

namespace ringbook {

/// A member of a fighter's corner: a trainer or a cut man, with the skill
/// ratings that the fight engine reads. A plain value built and stored by
/// `NCornermen`. Every rating is a 16-bit value, stored as given.
class RINGBOOK_EXPORT CCornerman : public Object {
 public:
  /// Copies every field, the `ID` included (through `SetID`), into `target`.
  void Clone(CCornerman& target) const;

  /// Skill at closing cuts.
  int16_t CloseCuts() const { return close_cuts_; }
  void SetCloseCuts(int16_t value) { close_cuts_ = value; }

  /// Discipline the cornerman instils.
  int16_t Discipline() const { return discipline_; }
  void SetDiscipline(int16_t value) { discipline_ = value; }

  int16_t Era() const { return era_; }
  void SetEra(int16_t value) { era_ = value; }

  /// Stored as given; setting it rebuilds `Name`.
  const std::string& FirstName() const { return first_name_; }
  void SetFirstName(const std::string& value);

  /// Key of the row ("CornermanID"); 0 when not stored.
  int32_t ID() const { return id_; }
  /// Component-internal: used by the collection and by `Clone`.
  void SetID(int32_t value) { id_ = value; }

  /// Stored as given; setting it rebuilds `Name`.
  const std::string& LastName() const { return last_name_; }
  void SetLastName(const std::string& value);

  /// Skill at motivating the fighter.
  int16_t Motivate() const { return motivate_; }
  void SetMotivate(int16_t value) { motivate_ = value; }

  /// The trimmed first name, one blank and the trimmed last name, trimmed
  /// once more: with only one of the names there is no stray blank, and with
  /// neither the name is empty.
  const std::string& Name() const { return name_; }

  /// Stored as given; not part of `Name`.
  const std::string& NickName() const { return nick_name_; }
  void SetNickName(const std::string& value) { nick_name_ = value; }

  /// Skill at reducing swelling.
  int16_t ReduceSwelling() const { return reduce_swelling_; }
  void SetReduceSwelling(int16_t value) { reduce_swelling_ = value; }

  /// Code of the cornerman's specialty (the display-text object names it).
  int16_t Specialty() const { return specialty_; }
  void SetSpecialty(int16_t value) { specialty_ = value; }

  /// Skill at fight strategy.
  int16_t Strategy() const { return strategy_; }
  void SetStrategy(int16_t value) { strategy_ = value; }

  int16_t TrainingOffense() const { return training_offense_; }
  void SetTrainingOffense(int16_t value) { training_offense_ = value; }
  int16_t TrainingDefense() const { return training_defense_; }
  void SetTrainingDefense(int16_t value) { training_defense_ = value; }
  int16_t TrainingAverage() const { return training_average_; }
  void SetTrainingAverage(int16_t value) { training_average_ = value; }

 private:
  void BuildName();

  int16_t close_cuts_ = 0;
  int16_t discipline_ = 0;
  int16_t era_ = 0;
  std::string first_name_;
  int32_t id_ = 0;
  std::string last_name_;
  int16_t motivate_ = 0;
  std::string name_;
  std::string nick_name_;
  int16_t reduce_swelling_ = 0;
  int16_t specialty_ = 0;
  int16_t strategy_ = 0;
  int16_t training_offense_ = 0;
  int16_t training_defense_ = 0;
  int16_t training_average_ = 0;
};

}  // namespace ringbook
