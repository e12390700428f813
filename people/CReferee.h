#pragma once

#include <cstdint>
#include <string>

#include "core/CStream.h"
#include "core/Export.h"
#include "core/Object.h"
#include "core/StreamRecord.h"

namespace ringbook {

/// A referee, rated for handling fouls, stoppages and judgement. A plain
/// value built and stored by `NReferees`; a bout or card saves one inside its
/// file. The pre-fight adjustments read its ratings.
class RINGBOOK_EXPORT CReferee : public Object, public StreamRecord {
 public:
  /// Whether the referee is active or retired.
  int16_t ActiveRetired() const { return active_retired_; }
  void SetActiveRetired(int16_t value) { active_retired_ = value; }

  /// Copies `ID` (through `SetID`), `FirstName`, `LastName`, `Era`,
  /// `ActiveRetired`, `Fouls`, `Judgement` and `Stoppage` into `target`, in
  /// that order. `Rating` is deliberately not copied: the target keeps its own.
  void Clone(CReferee& target) const;

  int16_t Era() const { return era_; }
  void SetEra(int16_t value) { era_ = value; }

  /// Stored as given; setting it rebuilds `Name`.
  const std::string& FirstName() const { return first_name_; }
  void SetFirstName(const std::string& value);

  /// Rating for handling fouls.
  int16_t Fouls() const { return fouls_; }
  void SetFouls(int16_t value) { fouls_ = value; }

  /// Key of the row ("RefereeID"); 0 when not stored.
  int32_t ID() const { return id_; }
  /// Component-internal: used by the collection, `Clone` and the stream.
  void SetID(int32_t value) { id_ = value; }

  /// Rating of judgement.
  int16_t Judgement() const { return judgement_; }
  void SetJudgement(int16_t value) { judgement_ = value; }

  /// Stored as given; setting it rebuilds `Name`.
  const std::string& LastName() const { return last_name_; }
  void SetLastName(const std::string& value);

  /// The trimmed first name, one blank and the trimmed last name; the blank
  /// is always there (a referee with neither name is named " ").
  const std::string& Name() const { return name_; }

  /// Overall rating.
  int16_t Rating() const { return rating_; }
  void SetRating(int16_t value) { rating_ = value; }

  /// Rating for stopping a fight in time.
  int16_t Stoppage() const { return stoppage_; }
  void SetStoppage(int16_t value) { stoppage_ = value; }

  /// Component-internal: the referee's record inside a saved file. Marker
  /// 1000001, `ID`, `FirstName`, `LastName`, then `Era`, `ActiveRetired`,
  /// `Fouls`, `Judgement`, `Rating` and `Stoppage` as 16-bit values. Reading
  /// takes the same ten values in the same order; the marker is not checked.
  void WriteToStream(CStream& stream) override;
  void ReadFromStream(CStream& stream) override;

 private:
  void BuildName();

  int16_t active_retired_ = 0;
  int16_t era_ = 0;
  std::string first_name_;
  int16_t fouls_ = 0;
  int32_t id_ = 0;
  int16_t judgement_ = 0;
  std::string last_name_;
  std::string name_ = " ";
  int16_t rating_ = 0;
  int16_t stoppage_ = 0;
};

}  // namespace ringbook
