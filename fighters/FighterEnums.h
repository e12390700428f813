#pragma once

#include <cstdint>

namespace ringbook {

/// Which ranking `NFighters::RankingsRS` and `NFighters::GetRankingList`
/// give: by titles held, then performance points ("qryRankedFightersByTitles"),
/// or by performance points alone ("qryRankedFighters").
enum ESortRankings : int32_t {
  SortByTitlePerfPoints = 0,
  SortByPerfPoints = 1,
};

}  // namespace ringbook
