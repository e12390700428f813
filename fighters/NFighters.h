#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/Enums.h"
#include "core/Export.h"
#include "core/Variant.h"
#include "fighters/CFighter.h"
#include "fighters/FighterEnums.h"
#include "store/NTitles.h"
#include "store/QueryDef.h"
#include "store/RecordCollection.h"
#include "store/Recordset.h"

namespace ringbook {

/// The fighters of the game database ("qryFighters") as `CFighter` records,
/// with their fight histories, rankings and the fighter lists of one group
/// and division.
///
/// It follows the common collection protocol (`RecordCollection`): `AddRecord`,
/// `UpdateRecord`, `RemoveRecord`, `BindTo` and `SetItem` behave as there,
/// with the message "Stop in NFighters.UpdateRecord". What sets it apart:
/// `Item` gives an empty fighter for an unknown ID; a Null in a number
/// column fails with invalid use of Null (94) rather than type mismatch;
/// a fighter can be written one section at a time (`UpdatePartialRecord`);
/// and the bound list (any list control) follows adds and updates by the
/// fighter's place in the group query "qryFightersByGroupAndDivision".
/// Through the common interface (`Records()`), `FillList`'s filter is the
/// group, listed for division 0.
///
/// Nothing is caught except the fight-history write of
/// `UpdatePartialRecord`: every other failure of the database, the list
/// control or a conversion reaches the caller, and the operation stops
/// where it failed.
class RINGBOOK_EXPORT NFighters : public RecordCollection<NFighters, CFighter> {
 public:
  /// Opens the game database named by the thread's settings, "qryFighters"
  /// in it, and the group query for group 1, division 0 and the
  /// proficiency bounds the thread's lookup object gives for filter 0.
  /// Fails with the database's error.
  NFighters();
  /// Closes the group query and its rows, then the fighter rows and the
  /// connection.
  ~NFighters() override;

  /// The fighter whose "FighterID" is `ID`; a new, empty fighter (ID 0)
  /// when there is none. Fails with 94 when a number column of the row is
  /// Null, and with 13 when "GroupID" or another number column holds text
  /// that is not a number.
  std::shared_ptr<CFighter> Item(int32_t ID);

  /// Writes one section of `Fighter` into his row: `ersProfile` the
  /// profile columns ("GroupID" to "PicturePath"), `ersCareer` the career
  /// columns ("Rank" to "NumTitles"), `ersAll` both; any other value writes
  /// nothing. With `ersCareer` and a `History` set on the fighter, his
  /// fight history also gains that fight; when the database refuses that
  /// row, the message "Stop/Error <number> in
  /// NFighters.pvtUpdateFightHistories" is shown and the career columns are
  /// written all the same. The bound list is left as it is.
  ///
  /// Returns nullptr in every case. When the fighter's row is missing, shows
  /// "Stop in NFighters.UpdatePartialRecord" and writes nothing.
  std::shared_ptr<CFighter> UpdatePartialRecord(std::shared_ptr<CFighter> Fighter,
                                                ERecordSection RecordSection);

  // ---- Fight histories ----

  /// The fight history of fighter `ID` ("qryFighterHistories": the latest
  /// fight first), as an updatable recordset with the query's columns. The
  /// recordset holds its own reference to the connection: it stays usable
  /// after this collection is gone. The caller owns it.
  std::shared_ptr<Recordset> HistoriesRS(int32_t ID);

  /// The fight history of fighter `ID` as text, one line per fight in the
  /// query's order: a tab, then "Division", "Date", "Opponent",
  /// "WonLostDraw", "Decision", "LastRound", "ScheduledRounds" and "Notes"
  /// separated by tabs, then CR LF. Dates show as "yyyy-mm-dd"; a Null shows
  /// as nothing between its tabs. "" when he has fought no fight.
  std::string GetHistoryList(int32_t ID);

  /// Deletes every fight of fighter `ID`. Always returns false, whatever
  /// was deleted.
  bool RemoveFightHistories(int32_t ID);

  // ---- Rankings and lists ----

  /// Binds `ListControl` when it holds a control; then, when a list is
  /// bound, fills it with the fighters of group `GroupFilter` and division
  /// `DivisionFilter`. With `DisplayRankings` the rows are those of
  /// "qryRankedFighters", each line a tab, the performance ("#.00#"), name,
  /// rating, style text and active/retired text separated by tabs.
  /// Otherwise the rows are the group query's, within the proficiency
  /// bounds the lookup object gives for `ProficiencyFilter` (bounds that
  /// later list updates keep using), each line the name, or with
  /// `ShowRating` the name, a tab and the rating (two blanks before a
  /// rating from 0 to 9). Each item is tagged with its "FighterID": in
  /// `ItemData` for a list box, in `ItemTag` for any other control. With no
  /// list bound nothing is done, and the group query is left as it was.
  void FillList(const Variant& ListControl = Variant(), int32_t GroupFilter = 1,
                int16_t DivisionFilter = 0, bool ShowRating = false, int16_t ProficiencyFilter = 0,
                bool DisplayRankings = false);

  /// The ranking of group `GroupFilter` and division `DivisionFilter`:
  /// "qryRankedFightersByTitles" for `SortByTitlePerfPoints`,
  /// "qryRankedFighters" for `SortByPerfPoints`, as an updatable recordset
  /// that the caller owns; nullptr for any other `SortByTitle`.
  std::shared_ptr<Recordset> RankingsRS(int32_t GroupFilter = 1, int16_t DivisionFilter = 0,
                                        ESortRankings SortByTitle = SortByTitlePerfPoints);

  /// The ranking of `RankingsRS` as text, one line per fighter: a tab, his
  /// rank (1, 2, ... for ranked fighters, "UR" for unranked ones), the
  /// performance ("#.00#"), name, rating and style text, each followed by a
  /// tab, then the names of the titles he holds joined by ", ", then CR LF.
  /// A fighter is ranked when he has a performance or, in the ranking by
  /// titles, holds a title. Fails with object not set (91) for an unknown
  /// `SortByTitle`, and with type mismatch (13) when a ranked fighter comes
  /// after an unranked one.
  std::string GetRankingList(int32_t GroupFilter = 1, int16_t DivisionFilter = 0,
                             ESortRankings SortByTitle = SortByTitlePerfPoints);

 private:
  friend class RecordCollection<NFighters, CFighter>;

  /// The bound list follows one change: adds and updates insert the
  /// fighter's `Name` at his place in the group query (for his group and
  /// division, with the current proficiency bounds); other kinds as in
  /// every collection.
  void pvtUpdateList(EUpdateListbox kind, const CFighter& fighter, bool select);
  /// Adds the fighter's `History` to "FightHistories" for `ersCareer`.
  void pvtUpdateFightHistories(const CFighter& fighter, ERecordSection section);
  /// Opens "qryFighterHistories" for fighter `ID`.
  std::shared_ptr<Recordset> OpenHistories(int32_t ID, RecordsetType type);
  /// Opens a stored query of the connection with its group and division.
  std::shared_ptr<Recordset> OpenForGroup(const char* query, int32_t GroupFilter,
                                          int16_t DivisionFilter, RecordsetType type);
  /// The ranking query that `SortByTitle` selects; nullptr for none.
  std::shared_ptr<Recordset> OpenRankings(int32_t GroupFilter, int16_t DivisionFilter,
                                          ESortRankings SortByTitle, RecordsetType type);

  std::shared_ptr<Recordset> group_rows_;
  std::shared_ptr<QueryDef> group_query_;
  // Kept from first use to the end, so that saving a fight or naming the
  // titles of a ranking does not open them anew each time: the table
  // "FightHistories" that fights are added to, and the title collection.
  std::shared_ptr<Recordset> histories_;
  std::unique_ptr<NTitles> titles_;
};

}  // namespace ringbook
