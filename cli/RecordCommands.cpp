// `ringbook location|group|judge|referee|announcer|cornerman|title
// list|show|add|edit|remove`: the seven simple collections, one table entry
// each and one implementation for all.
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/Context.h"
#include "cli/Errors.h"
#include "cli/FieldOptions.h"
#include "cli/MemoryList.h"
#include "cli/Output.h"
#include "cli/RecordFields.h"
#include "cli/Records.h"
#include "store/NAnnouncers.h"
#include "store/NCornermen.h"
#include "store/NGroups.h"
#include "store/NJudges.h"
#include "store/NLocations.h"
#include "store/NReferees.h"
#include "store/NTitles.h"

namespace ringbook::cli {
namespace {

/// One collection as the tool offers it.
template <class Collection, class Record>
struct Entity {
  const char* word;    // the command and the noun of messages: "judge"
  const char* plural;  // "judges"
  const char* query;   // the collection's stored query, walked for a full list
  const char* key;     // its key column
  const std::vector<Field<Record>>& fields;
};

template <class Collection>
constexpr bool kHasEraFilter = requires(Collection& c) {
  c.FillList(Variant(), int16_t{});
};
template <class Collection>
constexpr bool kHasSiteFilter = requires(Collection& c) {
  c.FillList(Variant(), int16_t{}, Variant());
};

struct ListFilter {
  int16_t era = 0;
  int32_t site_rating = 0;
  CLI::Option* era_option = nullptr;
  CLI::Option* site_option = nullptr;
  bool Given() const {
    return (era_option && era_option->count() > 0) || (site_option && site_option->count() > 0);
  }
};

/// The IDs a list shows: with a filter, those the collection's own list
/// fill gives; without, every row of its query.
template <class Collection>
std::vector<int32_t> ListedIds(Collection& collection, const ListFilter& filter, const char* query,
                               const char* key) {
  if (!filter.Given()) return AllIds(query, key);
  auto list = std::make_shared<MemoryList>();
  if constexpr (kHasSiteFilter<Collection>) {
    const Variant site =
        filter.site_option->count() > 0 ? Variant(filter.site_rating) : Variant(int32_t{1000});
    collection.FillList(Variant(list), filter.era, site);
  } else if constexpr (kHasEraFilter<Collection>) {
    collection.FillList(Variant(list), filter.era);
  }
  std::vector<int32_t> ids;
  for (const MemoryList::Item& item : list->Items()) ids.push_back(item.data);
  return ids;
}

template <class Record>
Table ListTable(const std::vector<Field<Record>>& fields) {
  Table table;
  for (const Field<Record>& f : fields) {
    if (f.listed) table.columns.push_back(f.name);
  }
  return table;
}

template <class Record>
std::vector<Json> ListRow(const Record& record, const std::vector<Field<Record>>& fields) {
  std::vector<Json> row;
  for (const Field<Record>& f : fields) {
    if (f.listed) row.push_back(f.get(record));
  }
  return row;
}

template <class Collection, class Record>
void AddEntity(CLI::App& app, const Entity<Collection, Record>& e) {
  const std::string word = e.word;
  auto* cmd = app.add_subcommand(word, std::string("List and edit the ") + e.plural);
  cmd->require_subcommand(1);
  Context& ctx = Context::Get();

  // list
  {
    auto* list = cmd->add_subcommand("list", std::string("List the ") + e.plural);
    auto filter = std::make_shared<ListFilter>();
    if constexpr (kHasEraFilter<Collection>) {
      filter->era_option =
          list->add_option("--era", filter->era, "Only this era, as the game's lists show them");
    }
    if constexpr (kHasSiteFilter<Collection>) {
      filter->site_option = list->add_option("--site-rating", filter->site_rating,
                                             "Only sites rated at most this (with --era)");
      filter->site_option->needs(filter->era_option);
    }
    list->callback([&e, filter, &ctx] {
      ctx.RequireDatabase();
      Collection collection;
      Table table = ListTable(e.fields);
      for (int32_t id : ListedIds(collection, *filter, e.query, e.key)) {
        table.rows.push_back(ListRow(*FindRecord<Record>(collection, id, e.word), e.fields));
      }
      PrintTable(table, ctx.Format());
    });
  }

  // show
  {
    auto* show = cmd->add_subcommand("show", std::string("Show one of the ") + e.plural);
    auto id = std::make_shared<int32_t>();
    show->add_option("id", *id, "ID")->required();
    show->callback([&e, id, &ctx] {
      ctx.RequireDatabase();
      Collection collection;
      PrintObject(ToJson(*FindRecord<Record>(collection, *id, e.word), e.fields), ctx.Format());
    });
  }

  // add
  {
    auto* add = cmd->add_subcommand("add", "Add a new " + word);
    auto values = std::make_shared<FieldOptions<Record>>(*add, e.fields);
    add->callback([&e, values, &ctx] {
      values->Values();  // bad values fail before the database is opened
      ctx.RequireDatabase();
      Collection collection;
      auto record = std::make_shared<Record>();
      values->Apply(*record);
      collection.AddRecord(record, false);
      ctx.ThrowIfStopped();
      ReportChange("added", e.word, ToJson(*record, e.fields), record->ID());
    });
  }

  // edit
  {
    auto* edit = cmd->add_subcommand("edit", "Change fields of a " + word);
    auto id = std::make_shared<int32_t>();
    edit->add_option("id", *id, "ID")->required();
    auto values = std::make_shared<FieldOptions<Record>>(*edit, e.fields);
    edit->callback([&e, id, values, &ctx] {
      if (!values->Any()) throw UsageError("give at least one field to change (see --help)");
      values->Values();
      ctx.RequireDatabase();
      Collection collection;
      std::shared_ptr<Record> record = FindRecord<Record>(collection, *id, e.word);
      values->Apply(*record);
      const bool written = collection.UpdateRecord(record, false) != nullptr;
      ctx.ThrowIfStopped();
      if (!written)
        throw CommandError(std::string("no ") + e.word + " with ID " + std::to_string(*id));
      ReportChange("updated", e.word, ToJson(*record, e.fields), record->ID());
    });
  }

  // remove
  {
    auto* remove = cmd->add_subcommand("remove", "Remove a " + word);
    auto id = std::make_shared<int32_t>();
    remove->add_option("id", *id, "ID")->required();
    remove->callback([&e, id, &ctx] {
      ctx.RequireDatabase();
      Collection collection;
      std::shared_ptr<Record> record = FindRecord<Record>(collection, *id, e.word);
      // The collection removes whatever row its find left current, so the
      // row is known to be there before it is asked.
      collection.RemoveRecord(*id, false);
      ctx.ThrowIfStopped();
      ReportChange("removed", e.word, ToJson(*record, e.fields), *id);
    });
  }
}

// The seven collections. References to the field tables stay valid for the
// program's life.
const Entity<NLocations, CLocation> kLocation{"location", "locations", "qryLocations", "LocationID",
                                              LocationFields()};
const Entity<NGroups, CGroup> kGroup{"group", "groups", "qryGroups", "GroupID", GroupFields()};
const Entity<NJudges, CJudge> kJudge{"judge", "judges", "qryJudges", "JudgeID", JudgeFields()};
const Entity<NReferees, CReferee> kReferee{"referee", "referees", "qryReferees", "RefereeID",
                                           RefereeFields()};
const Entity<NAnnouncers, CAnnouncer> kAnnouncer{"announcer", "announcers", "qryAnnouncers",
                                                 "AnnouncerID", AnnouncerFields()};
const Entity<NCornermen, CCornerman> kCornerman{"cornerman", "cornermen", "qryCornermen",
                                                "CornermanID", CornermanFields()};
const Entity<NTitles, CTitle> kTitle{"title", "titles", "qryTitles", "TitleId", TitleFields()};

}  // namespace

void AddRecordCommands(CLI::App& app) {
  AddEntity(app, kLocation);
  AddEntity(app, kGroup);
  AddEntity(app, kJudge);
  AddEntity(app, kReferee);
  AddEntity(app, kAnnouncer);
  AddEntity(app, kCornerman);
  AddEntity(app, kTitle);
}

}  // namespace ringbook::cli
