#include <memory>

#include "core/HostServices.h"
#include "fighters/NFighters.h"
#include "fighters/PerformanceText.h"
#include "store/NTitles.h"

namespace ringbook {
namespace {

constexpr const char* kRankedQuery = "qryRankedFighters";
constexpr const char* kRankedByTitlesQuery = "qryRankedFightersByTitles";

std::string FieldText(Recordset& rows, const char* column) {
  return ColumnText(rows.Field(column));
}

std::string LookupText(Recordset& rows, int32_t category, const char* column) {
  return Lookup().Text(category, rows.Field(column).ToLong());
}

// The line of a fighter list for the current row.
std::string ListLine(Recordset& rows, bool ShowRating, bool DisplayRankings) {
  if (DisplayRankings) {
    return "\t" + PerformanceText(rows.Field("Performance")) + "\t" + FieldText(rows, "Name") +
           "\t" + FieldText(rows, "Rating") + "\t" +
           LookupText(rows, ILookup::kFightingStyle, "Style") + "\t" +
           LookupText(rows, ILookup::kActiveRetired, "ActiveRetired");
  }
  std::string line = FieldText(rows, "Name");
  if (ShowRating) {
    const Variant rating = rows.Field("Rating");
    const bool two_digits = !rating.IsNull() && (rating.ToDouble() < 0 || rating.ToDouble() > 9);
    // One-digit ratings are padded with two blanks so that they line up
    // with two-digit ones.
    line += two_digits ? "\t" : "\t  ";
    line += rating.ToText();
  }
  return line;
}

// The ID texts of a "TitleIDs" value, tidied by the text utility so that
// single "|" separate them and none is at either end.
std::vector<std::string> TitleKeys(const std::string& title_ids) {
  IUtility& utility = Utility();
  const std::string tidy = utility.TrimSeparators(utility.CollapseSeparators(title_ids, "|"), "|");
  std::vector<std::string> keys;
  if (tidy.empty()) return keys;
  std::size_t start = 0;
  for (;;) {
    const std::size_t bar = tidy.find('|', start);
    keys.push_back(tidy.substr(start, bar - start));
    if (bar == std::string::npos) break;
    start = bar + 1;
  }
  return keys;
}

}  // namespace

std::shared_ptr<Recordset> NFighters::OpenForGroup(const char* query, int32_t GroupFilter,
                                                   int16_t DivisionFilter, RecordsetType type) {
  std::shared_ptr<QueryDef> definition = DatabaseConnection()->QueryDefs(query);
  definition->SetParameter("Enter GroupID", Variant(GroupFilter));
  definition->SetParameter("Enter Division", Variant(DivisionFilter));
  return definition->OpenRecordset(type);
}

std::shared_ptr<Recordset> NFighters::OpenRankings(int32_t GroupFilter, int16_t DivisionFilter,
                                                   ESortRankings SortByTitle, RecordsetType type) {
  switch (SortByTitle) {
    case SortByTitlePerfPoints:
      return OpenForGroup(kRankedByTitlesQuery, GroupFilter, DivisionFilter, type);
    case SortByPerfPoints:
      return OpenForGroup(kRankedQuery, GroupFilter, DivisionFilter, type);
    default:
      return nullptr;
  }
}

void NFighters::FillList(const Variant& ListControl, int32_t GroupFilter, int16_t DivisionFilter,
                         bool ShowRating, int16_t ProficiencyFilter, bool DisplayRankings) {
  if (!BindForFill(ListControl)) return;
  std::shared_ptr<Recordset> rows;
  if (DisplayRankings) {
    rows = OpenForGroup(kRankedQuery, GroupFilter, DivisionFilter, RecordsetType::Snapshot);
  } else {
    // These parameters stay set: later list updates place fighters by them.
    const ProficiencyBounds bounds = Lookup().Proficiency(ProficiencyFilter);
    group_query_->SetParameter("Enter GroupID", Variant(GroupFilter));
    group_query_->SetParameter("Enter Division", Variant(DivisionFilter));
    group_query_->SetParameter("Enter Low Proficiency", Variant(bounds.Low));
    group_query_->SetParameter("Enter High Proficiency", Variant(bounds.High));
    group_rows_ = group_query_->OpenRecordset(RecordsetType::Snapshot);
    rows = group_rows_;
  }

  const std::shared_ptr<IListControl> list = BoundList();
  list->Clear();
  // A list box keeps the key in ItemData; other controls in ItemTag. (Adds,
  // updates and removes always look in ItemData.)
  const bool list_box = list->IsListBox();
  if (rows->RecordCount() > 0) {
    rows->MoveFirst();
    while (!rows->Eof()) {
      list->AddItem(ListLine(*rows, ShowRating, DisplayRankings));
      const Variant key = rows->Field("FighterID");
      if (list_box) {
        list->SetItemData(list->NewIndex(), key.ToLong());
      } else {
        list->SetItemTag(list->NewIndex(), key);
      }
      rows->MoveNext();
    }
  }
  list->Refresh();
}

std::shared_ptr<Recordset> NFighters::RankingsRS(int32_t GroupFilter, int16_t DivisionFilter,
                                                 ESortRankings SortByTitle) {
  return OpenRankings(GroupFilter, DivisionFilter, SortByTitle, RecordsetType::Dynaset);
}

std::string NFighters::GetRankingList(int32_t GroupFilter, int16_t DivisionFilter,
                                      ESortRankings SortByTitle) {
  // The rows of `RankingsRS`, read once in one pass.
  std::shared_ptr<Recordset> rows =
      OpenRankings(GroupFilter, DivisionFilter, SortByTitle, RecordsetType::Snapshot);
  if (!rows) throw Error::ObjectNotSet();
  std::string text;
  // The rank shown: a running count, which becomes the text "UR" at the
  // first unranked fighter. Counting on from "UR" is a type mismatch: the
  // query must give every unranked fighter after the ranked ones.
  Variant rank(int32_t{0});

  if (rows->RecordCount() > 0) {
    rows->MoveFirst();
    while (!rows->Eof()) {
      const std::string performance = PerformanceText(rows->Field("Performance"));
      const Variant num_titles = rows->Field("NumTitles");
      const bool ranked =
          !performance.empty() || (SortByTitle == SortByTitlePerfPoints && !num_titles.IsNull() &&
                                   num_titles.ToDouble() > 0);
      rank = ranked ? Variant(rank.ToLong() + 1) : Variant("UR");

      text += "\t" + rank.ToString() + "\t" + performance + "\t" + FieldText(*rows, "Name") + "\t" +
              FieldText(*rows, "Rating") + "\t" +
              LookupText(*rows, ILookup::kFightingStyle, "Style") + "\t";

      const std::string title_ids = FieldText(*rows, "TitleIDs");
      if (!title_ids.empty()) {
        const std::vector<std::string> keys = TitleKeys(title_ids);
        for (std::size_t i = 0; i < keys.size(); ++i) {
          if (!titles_) titles_ = std::make_unique<NTitles>();
          const std::string name = titles_->Item(Variant(keys[i]).ToLong())->Name();
          if (name.empty()) continue;
          text += name;
          if (i + 1 < keys.size()) text += ", ";
        }
      }
      text += "\r\n";
      rows->MoveNext();
    }
  }
  return text;
}

}  // namespace ringbook
