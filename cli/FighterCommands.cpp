// `ringbook fighter list|show|add|edit|record-bout|history|remove`: the
// fighter collection, written by section as the game writes it.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <set>
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
#include "core/DateTime.h"
#include "core/Enums.h"
#include "fighters/NFighters.h"

namespace ringbook::cli {
namespace {

constexpr const char* kWord = "fighter";

const std::vector<std::string> kListColumns = {"ID",     "Name",        "GroupID", "Division",
                                               "Rating", "Proficiency", "Record"};

std::vector<Json> ListRow(const CFighter& fighter) {
  std::vector<Json> row;
  for (const std::string& name : kListColumns)
    row.push_back(FindField(FighterFields(), name)->get(fighter));
  return row;
}

const char* SectionName(ERecordSection section) {
  switch (section) {
    case ersProfile:
      return "profile";
    case ersCareer:
      return "career";
    default:
      return "all";
  }
}

// The fighter's fields of `section` (both for ersAll), then the figures the
// record works out.
Json FighterJson(const CFighter& fighter, ERecordSection section) {
  Json out = Json::object();
  for (const Field<CFighter>& f : FighterFields()) {
    const bool wanted = f.key || !f.set || section == ersAll || f.section == section;
    if (wanted) out[f.name] = f.get(fighter);
  }
  return out;
}

// The titles he holds, as the record lists them: (ID, name) pairs, none when
// the record's list shows "None".
Json HeldTitles(const CFighter& fighter) {
  auto list = std::make_shared<MemoryList>();
  fighter.FillListWithTitles(Variant(list));
  Json out = Json::array();
  if (!list->Bold()) return out;
  for (const MemoryList::Item& item : list->Items()) {
    out.push_back({{"ID", item.data}, {"Name", item.text}});
  }
  return out;
}

ERecordSection ParseSection(const std::string& text) {
  if (text == "profile") return ersProfile;
  if (text == "career") return ersCareer;
  return ersAll;
}

void AddList(CLI::App& cmd) {
  struct Args {
    int32_t group = 1;
    int16_t division = 0;
    int16_t proficiency = 0;
    CLI::Option* group_option = nullptr;
    CLI::Option* division_option = nullptr;
    CLI::Option* proficiency_option = nullptr;
  };
  auto args = std::make_shared<Args>();
  auto* list = cmd.add_subcommand("list",
                                  "List fighters: every fighter, or those of one group and "
                                  "division as the game's fighter list shows them");
  args->group_option = list->add_option("--group", args->group, "Group ID (default 1)");
  args->division_option = list->add_option("--division", args->division, "Division (default 0)");
  args->proficiency_option =
      list->add_option("--proficiency", args->proficiency,
                       "Proficiency filter of the fighter list (default 0: all)");
  list->callback([args] {
    Context& ctx = Context::Get();
    ctx.RequireDatabase();
    NFighters fighters;
    std::vector<int32_t> ids;
    if (args->group_option->count() + args->division_option->count() +
            args->proficiency_option->count() ==
        0) {
      ids = AllIds("qryFighters", "FighterID");
    } else {
      auto items = std::make_shared<MemoryList>();
      fighters.FillList(Variant(items), args->group, args->division, false, args->proficiency);
      for (const MemoryList::Item& item : items->Items()) ids.push_back(item.data);
    }
    Table table{kListColumns, {}};
    for (int32_t id : ids)
      table.rows.push_back(ListRow(*FindRecord<CFighter>(fighters, id, kWord)));
    PrintTable(table, ctx.Format());
  });
}

void AddShow(CLI::App& cmd) {
  auto* show = cmd.add_subcommand("show", "Show a fighter");
  auto id = std::make_shared<int32_t>();
  auto section = std::make_shared<std::string>("all");
  show->add_option("id", *id, "Fighter ID")->required();
  show->add_option("--section", *section, "profile, career or all")
      ->check(CLI::IsMember({"profile", "career", "all"}));
  show->callback([id, section] {
    Context& ctx = Context::Get();
    ctx.RequireDatabase();
    NFighters fighters;
    std::shared_ptr<CFighter> fighter = FindRecord<CFighter>(fighters, *id, kWord);
    Json out = FighterJson(*fighter, ParseSection(*section));
    if (ParseSection(*section) != ersProfile) {
      Json titles = HeldTitles(*fighter);
      if (ctx.Json()) {
        out["Titles"] = titles;
      } else {
        std::string names;
        for (const Json& t : titles)
          names += (names.empty() ? "" : ", ") + t["Name"].get<std::string>();
        out["Titles"] = names.empty() ? "None" : names;
      }
    }
    PrintObject(out, ctx.Format());
  });
}

void AddAdd(CLI::App& cmd) {
  auto* add = cmd.add_subcommand("add",
                                 "Add fighters: from the field options, or from a JSON "
                                 "file holding one fighter or an array of them");
  auto from = std::make_shared<std::string>();
  add->add_option("--from-json", *from,
                  "JSON file ('-' for standard input); the field options apply on top")
      ->type_name("FILE");
  auto values = std::make_shared<FieldOptions<CFighter>>(*add, FighterFields());
  add->callback([from, values] {
    Context& ctx = Context::Get();
    std::vector<Json> inputs;
    if (!from->empty()) {
      Json doc = ReadJsonFile(*from);
      if (doc.is_array()) {
        for (Json& item : doc) inputs.push_back(std::move(item));
      } else {
        inputs.push_back(std::move(doc));
      }
    } else {
      inputs.push_back(Json::object());
    }
    // Every fighter is read and checked before the first is added.
    std::vector<std::shared_ptr<CFighter>> batch;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      auto fighter = std::make_shared<CFighter>();
      SetFromJson(*fighter, FighterFields(), inputs[i],
                  inputs.size() > 1 ? "fighter " + std::to_string(i + 1) : std::string("fighter"),
                  false);
      values->Apply(*fighter);
      batch.push_back(std::move(fighter));
    }
    ctx.RequireDatabase();
    NFighters fighters;
    Json added = Json::array();
    ProgressBar bar("Adding fighters");
    for (std::size_t i = 0; i < batch.size(); ++i) {
      fighters.AddRecord(batch[i], false);
      ctx.ThrowIfStopped();
      added.push_back(FighterJson(*batch[i], ersAll));
      if (batch.size() > 1) {
        bar.Update(static_cast<int64_t>(i + 1), static_cast<int64_t>(batch.size()));
      }
    }
    bar.Finish();
    if (ctx.Json()) {
      PrintJson(added.size() == 1 ? added[0] : added);
    } else {
      for (const Json& f : added) {
        std::printf("added fighter %d %s\n", f["ID"].get<int>(),
                    f["Name"].get<std::string>().c_str());
      }
    }
  });
}

void AddEdit(CLI::App& cmd) {
  auto* edit = cmd.add_subcommand(
      "edit", "Change a fighter's profile or career fields; only that section is written");
  auto id = std::make_shared<int32_t>();
  auto section = std::make_shared<std::string>();
  edit->add_option("id", *id, "Fighter ID")->required();
  edit->add_option("--section", *section,
                   "profile, career or all (default: the section of the fields given)")
      ->check(CLI::IsMember({"profile", "career", "all"}));
  auto values = std::make_shared<FieldOptions<CFighter>>(*edit, FighterFields());
  edit->callback([id, section, values] {
    if (!values->Any()) throw UsageError("give at least one field to change (see --help)");
    const std::set<int> given = values->Sections();
    ERecordSection target = given.size() > 1 ? ersAll : static_cast<ERecordSection>(*given.begin());
    if (!section->empty()) {
      target = ParseSection(*section);
      if (target != ersAll && (given.size() > 1 || *given.begin() != target)) {
        throw UsageError(std::string("a field given is not in the ") + SectionName(target) +
                         " section, and would not be written");
      }
    }
    values->Values();  // bad values fail before the database is opened
    Context& ctx = Context::Get();
    ctx.RequireDatabase();
    NFighters fighters;
    std::shared_ptr<CFighter> fighter = FindRecord<CFighter>(fighters, *id, kWord);
    values->Apply(*fighter);
    fighters.UpdatePartialRecord(fighter, target);
    ctx.ThrowIfStopped();
    if (ctx.Json()) {
      PrintJson(FighterJson(*FindRecord<CFighter>(fighters, *id, kWord), target));
    } else {
      std::printf("updated fighter %d (%s)\n", static_cast<int>(*id), SectionName(target));
    }
  });
}

void AddRecordBout(CLI::App& cmd) {
  auto* bout = cmd.add_subcommand(
      "record-bout",
      "Record a fought bout: add it to the fighter's history and write his career section "
      "(give his new career totals with the career options)");
  auto id = std::make_shared<int32_t>();
  bout->add_option("id", *id, "Fighter ID")->required();
  auto history = std::make_shared<FieldOptions<CHistory>>(*bout, HistoryFields(), "The bout");
  auto career = std::make_shared<FieldOptions<CFighter>>(
      *bout, FighterFields(), "Career after the bout", std::set<int>{kCareerSection});
  bout->callback([id, history, career] {
    if (!history->Any()) throw UsageError("describe the bout (at least --opponent; see --help)");
    history->Values();  // bad values fail before the database is opened
    career->Values();
    Context& ctx = Context::Get();
    ctx.RequireDatabase();
    NFighters fighters;
    std::shared_ptr<CFighter> fighter = FindRecord<CFighter>(fighters, *id, kWord);
    career->Apply(*fighter);
    auto fight = std::make_shared<CHistory>();
    // Today, when no date is given.
    const CivilDateTime today = DateToParts(NowDate());
    fight->SetFightDate(DateFromParts(today.Year, today.Month, today.Day));
    history->Apply(*fight);
    fighter->SetHistory(fight);
    fighters.UpdatePartialRecord(fighter, ersCareer);
    ctx.ThrowIfStopped();
    if (ctx.Json()) {
      PrintJson(ToJson(*fight, HistoryFields()));
    } else {
      std::printf("recorded bout of fighter %d against %s\n", static_cast<int>(*id),
                  fight->Opponent().c_str());
    }
  });
}

void AddHistory(CLI::App& cmd) {
  auto* history = cmd.add_subcommand("history", "List a fighter's fights, the latest first");
  auto id = std::make_shared<int32_t>();
  history->add_option("id", *id, "Fighter ID")->required();
  history->callback([id] {
    Context& ctx = Context::Get();
    ctx.RequireDatabase();
    NFighters fighters;
    FindRecord<CFighter>(fighters, *id, kWord);
    // One line per fight: a tab, then eight values separated by tabs.
    const std::string text = fighters.GetHistoryList(*id);
    Table table{{"Division", "Date", "Opponent", "WonLostDraw", "Decision", "LastRound",
                 "ScheduledRounds", "Notes"},
                {}};
    std::size_t start = 0;
    while (start < text.size()) {
      std::size_t end = text.find("\r\n", start);
      if (end == std::string::npos) end = text.size();
      std::string line = text.substr(start, end - start);
      start = end + 2;
      std::vector<Json> row;
      std::size_t pos = line.empty() || line[0] != '\t' ? 0 : 1;
      for (std::size_t c = 0; c < table.columns.size(); ++c) {
        const std::size_t tab = line.find('\t', pos);
        const std::string cell =
            line.substr(pos, tab == std::string::npos ? std::string::npos : tab - pos);
        pos = tab == std::string::npos ? line.size() : tab + 1;
        row.push_back(c == 5 || c == 6 ? WholeOrText(cell) : Json(cell));
      }
      table.rows.push_back(std::move(row));
    }
    PrintTable(table, ctx.Format());
  });
}

void AddRemove(CLI::App& cmd) {
  auto* remove = cmd.add_subcommand("remove", "Remove a fighter");
  auto id = std::make_shared<int32_t>();
  auto with_history = std::make_shared<bool>(false);
  remove->add_option("id", *id, "Fighter ID")->required();
  remove->add_flag("--with-history", *with_history, "Remove his fight history too");
  remove->callback([id, with_history] {
    Context& ctx = Context::Get();
    ctx.RequireDatabase();
    NFighters fighters;
    std::shared_ptr<CFighter> fighter = FindRecord<CFighter>(fighters, *id, kWord);
    // The collection removes whatever row its find left current, so the row
    // is known to be there before it is asked.
    fighters.RemoveRecord(*id, false);
    if (*with_history) fighters.RemoveFightHistories(*id);
    ctx.ThrowIfStopped();
    ReportChange("removed", kWord, FighterJson(*fighter, ersAll), *id);
  });
}

}  // namespace

void AddFighterCommands(CLI::App& app) {
  auto* cmd = app.add_subcommand("fighter", "List, show and edit fighters and their histories");
  cmd->require_subcommand(1);
  AddList(*cmd);
  AddShow(*cmd);
  AddAdd(*cmd);
  AddEdit(*cmd);
  AddRecordBout(*cmd);
  AddHistory(*cmd);
  AddRemove(*cmd);
}

}  // namespace ringbook::cli
