#pragma once

// The fields of the library's records, as the tool shows, sets and saves
// them. One table per record class, in the order the record's row lists its
// columns; the key first.
#include <vector>

#include "cli/Fields.h"
#include "fighters/CFighter.h"
#include "fighters/CHistory.h"
#include "people/CAnnouncer.h"
#include "people/CCornerman.h"
#include "people/CGroup.h"
#include "people/CJudge.h"
#include "people/CLocation.h"
#include "people/CReferee.h"
#include "people/CTitle.h"

namespace ringbook::cli {

/// The fighter's two parts, as `ERecordSection` numbers them.
inline constexpr int kProfileSection = 1;
inline constexpr int kCareerSection = 2;

const std::vector<Field<CLocation>>& LocationFields();
const std::vector<Field<CGroup>>& GroupFields();
const std::vector<Field<CJudge>>& JudgeFields();
const std::vector<Field<CReferee>>& RefereeFields();
const std::vector<Field<CAnnouncer>>& AnnouncerFields();
const std::vector<Field<CCornerman>>& CornermanFields();
const std::vector<Field<CTitle>>& TitleFields();
/// Every field of the fighter: the profile and the career section (their
/// `section`), then the figures the record works out (read-only).
const std::vector<Field<CFighter>>& FighterFields();
/// The result of one fight, as hung on a fighter before his career is saved.
const std::vector<Field<CHistory>>& HistoryFields();

/// The ten punch ratings in the order the punch draw walks them, with the
/// punch type each one gives.
struct PunchRating {
  const char* name;
  int type;
};
inline constexpr PunchRating kPunchRatings[] = {
    {"J3", 1},  {"J2", 6},  {"H3", 2},  {"H2", 7}, {"Cr3", 3},
    {"Cr2", 8}, {"Cb3", 4}, {"Cb2", 9}, {"U3", 5}, {"U2", 10},
};

}  // namespace ringbook::cli
