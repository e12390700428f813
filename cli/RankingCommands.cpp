// `ringbook rankings`: the ranking of one group and division, by titles and
// performance points or by performance points alone.
#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/Context.h"
#include "cli/Output.h"
#include "cli/RecordFields.h"
#include "cli/Records.h"
#include "fighters/FighterEnums.h"
#include "fighters/NFighters.h"
#include "store/NGroups.h"

namespace ringbook::cli {
namespace {

std::vector<std::string> SplitTabs(const std::string& line) {
  std::vector<std::string> cells;
  std::size_t start = 0;
  while (true) {
    const std::size_t tab = line.find('\t', start);
    cells.push_back(line.substr(start, tab == std::string::npos ? std::string::npos : tab - start));
    if (tab == std::string::npos) return cells;
    start = tab + 1;
  }
}

// The ranking text of the fighter collection: per fighter a tab, rank,
// performance, name, rating and style, each followed by a tab, then the
// titles held, then CR LF.
Table RankingTable(const std::string& text) {
  Table table{{"Rank", "Performance", "Name", "Rating", "Style", "Titles"}, {}};
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find("\r\n", start);
    if (end == std::string::npos) end = text.size();
    std::vector<std::string> cells = SplitTabs(text.substr(start, end - start));
    start = end + 2;
    std::vector<Json> row;
    for (std::size_t c = 1; c <= table.columns.size(); ++c) {
      const std::string cell = c < cells.size() ? cells[c] : std::string();
      row.push_back(c == 2 ? Json(cell) : WholeOrText(cell));
    }
    table.rows.push_back(std::move(row));
  }
  return table;
}

}  // namespace

void AddRankingCommands(CLI::App& app) {
  struct Args {
    int32_t group = 1;
    int16_t division = 0;
    std::string by = "titles";
  };
  auto args = std::make_shared<Args>();
  auto* cmd = app.add_subcommand(
      "rankings",
      "The ranking of a group and division: by titles held then performance points "
      "(--by titles), or by performance points (--by performance)");
  cmd->add_option("--group", args->group, "Group ID (default 1)");
  cmd->add_option("--division", args->division, "Division (default 0)");
  cmd->add_option("--by", args->by, "titles or performance (default titles)")
      ->check(CLI::IsMember({"titles", "performance"}));
  cmd->callback([args] {
    Context& ctx = Context::Get();
    ctx.RequireDatabase();
    {
      NGroups groups;
      FindRecord<CGroup>(groups, args->group, "group");
    }
    NFighters fighters;
    const ESortRankings order = args->by == "titles" ? SortByTitlePerfPoints : SortByPerfPoints;
    PrintTable(RankingTable(fighters.GetRankingList(args->group, args->division, order)),
               ctx.Format());
  });
}

}  // namespace ringbook::cli
