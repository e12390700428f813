#include "fighters/CHistory.h"

namespace ringbook {

void CHistory::Clone(const std::shared_ptr<CHistory>& History) const {
  if (!History) return;
  History->SetDecision(decision_);
  History->SetDivision(division_);
  History->SetFightDate(fight_date_);
  History->SetLastRound(last_round_);
  History->SetOpponent(opponent_);
  History->SetScheduledRounds(scheduled_rounds_);
  History->SetWonLost(won_lost_);
  History->SetNotes(notes_);
}

}  // namespace ringbook
