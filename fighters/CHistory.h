#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/Export.h"
#include "core/Object.h"

namespace ringbook {

/// The result of one fight, which the host hangs on a fighter
/// (`CFighter::SetHistory`) before saving his career section; the fighter
/// collection then adds it as one row of his fight history. A plain value:
/// every property is stored as given, with no side effect.
class RINGBOOK_EXPORT CHistory : public Object {
 public:
  /// Copies `Decision`, `Division`, `FightDate`, `LastRound`, `Opponent`,
  /// `ScheduledRounds`, `WonLost` and `Notes`, in that order, into `History`.
  /// An empty reference is left empty; nothing is created.
  void Clone(const std::shared_ptr<CHistory>& History) const;

  /// How the fight was decided, as text.
  const std::string& Decision() const { return decision_; }
  void SetDecision(const std::string& value) { decision_ = value; }

  /// The weight division of the fight, as text.
  const std::string& Division() const { return division_; }
  void SetDivision(const std::string& value) { division_ = value; }

  /// The date of the fight (an Automation date).
  double FightDate() const { return fight_date_; }
  void SetFightDate(double value) { fight_date_ = value; }

  /// The round in which the fight ended.
  int16_t LastRound() const { return last_round_; }
  void SetLastRound(int16_t value) { last_round_ = value; }

  /// The opponent's name.
  const std::string& Opponent() const { return opponent_; }
  void SetOpponent(const std::string& value) { opponent_ = value; }

  int16_t ScheduledRounds() const { return scheduled_rounds_; }
  void SetScheduledRounds(int16_t value) { scheduled_rounds_ = value; }

  /// The outcome for this fighter, as text.
  const std::string& WonLost() const { return won_lost_; }
  void SetWonLost(const std::string& value) { won_lost_ = value; }

  /// Free notes.
  const std::string& Notes() const { return notes_; }
  void SetNotes(const std::string& value) { notes_ = value; }

 private:
  std::string decision_;
  std::string division_;
  double fight_date_ = 0;
  int16_t last_round_ = 0;
  std::string opponent_;
  int16_t scheduled_rounds_ = 0;
  std::string won_lost_;
  std::string notes_;
};

}  // namespace ringbook
