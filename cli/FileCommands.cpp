// `ringbook card|tournament|options show|export|import|new`, and
// `ringbook tournament bracket`: the game's save files, readable and as JSON.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cli/BracketSvg.h"
#include "cli/Commands.h"
#include "cli/Context.h"
#include "cli/Errors.h"
#include "cli/JsonCodec.h"
#include "cli/Output.h"
#include "cli/RecordFields.h"
#include "cli/Records.h"
#include "cli/SaveFiles.h"
#include "core/CStream.h"
#include "core/DateTime.h"
#include "core/Error.h"
#include "core/HostServices.h"
#include "fighters/NFighters.h"
#include "schedule/CLevel.h"
#include "store/NLocations.h"

namespace ringbook::cli {
namespace {

namespace fs = std::filesystem;

// The first record marker of each kind of file.
constexpr int32_t kFileMarker = 1000001;
constexpr int32_t kOldestOptionsMarker = 1000001;
constexpr int32_t kNewestOptionsMarker = 1000004;

// Reads `path` with `read`, refusing a file that is missing, that does not
// start with a marker from `low` to `high`, that ends before its record does,
// or (when `whole`) that holds more than its record.
void ReadChecked(const std::string& path, const char* noun, int32_t low, int32_t high, bool whole,
                 const std::function<void(CStream&)>& read) {
  std::error_code ec;
  const fs::path file(path);
  if (!fs::exists(file, ec)) throw CommandError("no such file: '" + path + "'");
  if (fs::is_directory(file, ec)) throw CommandError("'" + path + "' is a folder, not a " + noun);
  const auto size = static_cast<int64_t>(fs::file_size(file, ec));
  {
    std::ifstream in(file, std::ios::binary);
    unsigned char b[4] = {};
    in.read(reinterpret_cast<char*>(b), 4);
    const int32_t marker = static_cast<int32_t>(
        static_cast<uint32_t>(b[0]) | (static_cast<uint32_t>(b[1]) << 8) |
        (static_cast<uint32_t>(b[2]) << 16) | (static_cast<uint32_t>(b[3]) << 24));
    if (!in || marker < low || marker > high) {
      const bool vowel = std::string("aeiou").find(noun[0]) != std::string::npos;
      throw CommandError("'" + path + "' is not " + (vowel ? "an " : "a ") + noun + " file");
    }
  }
  ClearLastError();
  CStream stream;
  stream.SetFilename(path);
  stream.OpenStream(false);
  read(stream);
  const int64_t end = stream.SeekTo() - 1;
  stream.CloseStream();
  const ErrorInfo& error = LastError();
  if (error.Number == errnum::kStreamEof) {
    ClearLastError();
    throw CommandError("'" + path + "' is damaged: the " + std::string(noun) +
                       " ends before its record does");
  }
  if (error.Number != 0) {
    const std::string text = error.Description;
    ClearLastError();
    throw CommandError("cannot read '" + path + "': " + text);
  }
  if (whole && end != size) {
    throw CommandError("'" + path + "' is damaged: " + std::to_string(size - end) +
                       " bytes follow the " + noun + "'s record");
  }
}

void RefuseOverwrite(const std::string& path, bool force) {
  std::error_code ec;
  if (!force && fs::exists(fs::path(path), ec)) {
    throw CommandError("'" + path + "' exists (use --force to replace it)");
  }
}

std::string Date(double date) {
  return FormatDateTime(date);
}

// A figure the library works out that may overflow on odd data.
Json Figure(const std::function<Json()>& work) {
  try {
    return work();
  } catch (const Error& e) {
    return Json("(" + e.Description() + ")");
  }
}

std::string PersonText(const std::string& name, int32_t id) {
  std::string trimmed = name;
  while (!trimmed.empty() && trimmed.front() == ' ') trimmed.erase(trimmed.begin());
  while (!trimmed.empty() && trimmed.back() == ' ') trimmed.pop_back();
  if (trimmed.empty() && id == 0) return "(none)";
  return trimmed + " (ID " + std::to_string(id) + ")";
}

// The options as people read them: officials by name, the style's own
// defaults only.
Json OptionsView(const COptions& o) {
  Json full = OptionsToJson(o);
  Json out = Json::object();
  for (const auto& [name, value] : full.items()) {
    if (name == "Referee" || name == "Announcer") {
      out[name] = PersonText(value["Name"].get<std::string>(), value["ID"].get<int32_t>());
    } else if (name == "Location") {
      out[name] = PersonText(o.Location() ? o.Location()->Name() : std::string(),
                             value["ID"].get<int32_t>());
    } else if (name == "Judges") {
      std::string names;
      for (const Json& j : value) {
        names += (names.empty() ? "" : ", ") +
                 PersonText(j["Name"].get<std::string>(), j["ID"].get<int32_t>());
      }
      out[name] = names;
    } else if (name == "SchedulerDefaultRepeats") {
      if (o.Style() == eosScheduler) out[name] = value;
    } else if (name == "TournamentDefaultLevels" || name == "TournamentDefaultRounds") {
      if (o.Style() == eosTournament) out[name] = value;
    } else if (name.rfind("FightCard", 0) == 0) {
      if (o.Style() == eosFightCard) out[name] = value;
    } else {
      out[name] = value;
    }
  }
  return out;
}

// One bout as a row: both corners, the odds and favourite, the rules.
std::vector<Json> BoutRow(CBout& bout) {
  std::vector<Json> row;
  for (int16_t i = 1; i <= 2; ++i) {
    row.push_back(bout.FighterName(i));
    row.push_back(bout.FighterID(i));
    row.push_back(Figure([&] { return Json(bout.TotalRating(i).ToLong()); }));
  }
  const bool open = bout.FighterName(1).empty() && bout.FighterName(2).empty();
  row.push_back(open ? Json() : Figure([&] { return Json(bout.OddsForFight()); }));
  row.push_back(open ? Json() : Json(bout.FighterName(bout.OddsFavorite())));
  std::shared_ptr<COptions> options = bout.Options();
  row.push_back(options ? Json(options->Rounds()) : Json());
  row.push_back(options && options->Referee()
                    ? Json(PersonText(options->Referee()->Name(), options->Referee()->ID()))
                    : Json());
  return row;
}

const std::vector<std::string> kBoutColumns = {"Fighter 1", "ID",     "Total", "Fighter 2",
                                               "ID",        "Total",  "Odds",  "Favourite",
                                               "Rounds",    "Referee"};

void PrintSection(const std::string& title) {
  if (Context::Get().Format() == OutputFormat::Table) std::printf("\n%s\n", title.c_str());
}

void ShowCard(CFightCard& card) {
  Context& ctx = Context::Get();
  if (ctx.Json()) {
    PrintJson(CardToJson(card));
    return;
  }
  Json head = Json::object();
  head["Name"] = card.Name();
  head["Date"] = Date(card.FightDate());
  head["Era"] = card.Era();
  head["Location"] = card.Location() ? PersonText(card.Location()->Name(), card.Location()->ID())
                                     : std::string("(none)");
  head["Rating"] = Figure([&] { return Json(card.Rating()); });
  PrintObject(head, ctx.Format());
  PrintSection("Bouts");
  Table table;
  table.columns = {"Bout"};
  table.columns.insert(table.columns.end(), kBoutColumns.begin(), kBoutColumns.end());
  for (int16_t i = 1; i <= CFightCard::kBouts; ++i) {
    std::shared_ptr<CBout> bout = card.Bout(i);
    std::vector<Json> row = {i};
    if (bout) {
      std::vector<Json> cells = BoutRow(*bout);
      row.insert(row.end(), cells.begin(), cells.end());
    }
    table.rows.push_back(std::move(row));
  }
  PrintTable(table, ctx.Format());
}

void ShowTournament(CTournament& tournament) {
  Context& ctx = Context::Get();
  if (ctx.Json()) {
    PrintJson(TournamentToJson(tournament));
    return;
  }
  Json head = Json::object();
  head["Name"] = tournament.Name();
  head["Levels"] = tournament.Levels();
  if (auto o = tournament.Options()) {
    head["Options"] = "style " + std::to_string(o->Style()) + ", " + std::to_string(o->Rounds()) +
                      " rounds, referee " +
                      (o->Referee() ? PersonText(o->Referee()->Name(), o->Referee()->ID())
                                    : std::string("(none)"));
  }
  PrintObject(head, ctx.Format());
  PrintSection("Bouts, first round first");
  Table table;
  table.columns = {"Level", "Brackets", "Rounds", "Bout", "Shown"};
  table.columns.insert(table.columns.end(), kBoutColumns.begin(), kBoutColumns.end() - 2);
  for (int16_t l = tournament.Levels(); l >= 1; --l) {
    std::shared_ptr<CLevel> level = tournament.Level(l);
    for (int16_t b = 1; b <= level->BoutCount(); ++b) {
      std::vector<Json> row = {l, level->Brackets(), level->Rounds(), b,
                               level->DisplayFight(b) ? "yes" : "no"};
      std::vector<Json> cells = BoutRow(*level->Bout(b));
      row.insert(row.end(), cells.begin(), cells.end() - 2);
      table.rows.push_back(std::move(row));
    }
  }
  PrintTable(table, ctx.Format());
}

void ShowOptions(const COptions& options) {
  Context& ctx = Context::Get();
  if (ctx.Json()) {
    PrintJson(OptionsDocument(options));
    return;
  }
  PrintObject(OptionsView(options), ctx.Format());
}

// The bout at position `text` ("2:14,9": position 2, fighter 14 against
// fighter 9) filled from the fighters' records.
void PlaceBout(CFightCard& card, NFighters& fighters, const std::string& text) {
  int position = 0, first = 0, second = 0, used = 0;
  if (std::sscanf(text.c_str(), "%d:%d,%d%n", &position, &first, &second, &used) != 3 ||
      static_cast<std::size_t>(used) != text.size() || position < 1 ||
      position > CFightCard::kBouts) {
    throw UsageError("--bout '" + text + "': expected POSITION:FIGHTER,FIGHTER (position 1 to 4)");
  }
  CBout bout;
  const int ids[2] = {first, second};
  for (int16_t i = 1; i <= 2; ++i) {
    std::shared_ptr<CFighter> f = FindRecord<CFighter>(fighters, ids[i - 1], "fighter");
    bout.SetFighterID(i, f->ID());
    bout.SetFighterFirstName(i, f->FirstName());
    bout.SetFighterLastName(i, f->LastName());
    bout.SetRating(i, f->Rating());
    bout.SetDrawPower(i, f->DrawPower());
    bout.SetStyle(i, f->Style());
    bout.SetConditioning(i, f->Conditioning());
    bout.SetTraining(i, f->Training());
    bout.SetTrainerID(i, f->TrainerID());
    bout.SetCutManID(i, f->CutManID());
  }
  card.Add(bout, static_cast<EBoutType>(position));
}

// ---- The three kinds of file ----

struct FileKind {
  const char* word;  // the command: "card"
  const char* noun;  // "fight card"
  std::function<Json(const std::string&)> export_json;
  std::function<void(const Json&, const std::string&)> import_json;
  std::function<void(const std::string&)> show;
};

const FileKind kCard{"card", "fight card",
                     [](const std::string& path) { return CardToJson(*LoadCard(path)); },
                     [](const Json& json, const std::string& out) {
                       CFightCard card;
                       CardFromJson(card, json);
                       SaveRecord(card, out);
                     },
                     [](const std::string& path) { ShowCard(*LoadCard(path)); }};

const FileKind kTournament{
    "tournament", "tournament",
    [](const std::string& path) { return TournamentToJson(*LoadTournament(path)); },
    [](const Json& json, const std::string& out) {
      CTournament tournament;
      TournamentFromJson(tournament, json);
      SaveRecord(tournament, out);
    },
    [](const std::string& path) { ShowTournament(*LoadTournament(path)); }};

const FileKind kOptions{"options", "options",
                        [](const std::string& path) { return OptionsDocument(*LoadOptions(path)); },
                        [](const Json& json, const std::string& out) {
                          CheckKind(json, kOptionsKind);
                          SaveRecord(*OptionsFromJson(json, "options"), out);
                        },
                        [](const std::string& path) { ShowOptions(*LoadOptions(path)); }};

// The file a command names: its FILE argument, or for options the data
// folder's file of --style.
struct FileArg {
  std::string path;
  int16_t style = -1;
  std::string Resolve(const char* word) const {
    if (!path.empty()) return path;
    if (style >= 0) {
      Context::Get().Install();
      if (style > 2) throw UsageError("style " + std::to_string(style) + " has no options file");
      return Settings().OptionsFolder(style) + Settings().OptionsFileName(style);
    }
    throw UsageError(std::string("name the ") + word + " file");
  }
};

void AddFileArg(CLI::App& cmd, FileArg& arg, const FileKind& kind) {
  auto* file = cmd.add_option("file", arg.path, std::string("The ") + kind.noun + " file");
  if (&kind == &kOptions) {
    auto* style = cmd.add_option("--style", arg.style,
                                 "Instead of a file, the options file of style 0, 1 or 2 in the "
                                 "data folder");
    style->excludes(file);
  } else {
    file->required();
  }
}

void AddKind(CLI::App& app, const FileKind& kind, const std::string& description) {
  auto* cmd = app.add_subcommand(kind.word, description);
  cmd->require_subcommand(1);

  auto show_arg = std::make_shared<FileArg>();
  auto* show = cmd->add_subcommand("show", std::string("Show a ") + kind.noun + " file");
  AddFileArg(*show, *show_arg, kind);
  show->callback([&kind, show_arg] {
    Context::Get().Install();
    kind.show(show_arg->Resolve(kind.word));
  });

  struct ExportArgs {
    FileArg file;
    std::string out;
  };
  auto export_args = std::make_shared<ExportArgs>();
  auto* exp = cmd->add_subcommand("export", std::string("Write a ") + kind.noun + " file as JSON");
  AddFileArg(*exp, export_args->file, kind);
  exp->add_option("-o,--output", export_args->out, "JSON file (default: standard output)")
      ->type_name("FILE");
  exp->callback([&kind, export_args] {
    Context::Get().Install();
    const Json json = kind.export_json(export_args->file.Resolve(kind.word));
    WriteTextFile(export_args->out,
                  json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
  });

  struct ImportArgs {
    std::string json;
    std::string out;
    bool force = false;
  };
  auto import_args = std::make_shared<ImportArgs>();
  auto* imp = cmd->add_subcommand(
      "import", std::string("Write a ") + kind.noun + " file from its JSON (as export writes it)");
  imp->add_option("json", import_args->json, "JSON file ('-' for standard input)")->required();
  imp->add_option("-o,--output", import_args->out,
                  std::string("The ") + kind.noun + " file to write")
      ->required()
      ->type_name("FILE");
  imp->add_flag("--force", import_args->force, "Replace the file when it exists");
  imp->callback([&kind, import_args] {
    Context::Get().Install();
    const Json json = ReadJsonFile(import_args->json);
    RefuseOverwrite(import_args->out, import_args->force);
    kind.import_json(json, import_args->out);
    if (!Context::Get().Json()) std::printf("wrote %s\n", import_args->out.c_str());
  });
}

void AddCardNew(CLI::App& app) {
  struct Args {
    std::string file;
    std::string name;
    std::string date;
    int16_t era = 0;
    int32_t location = 0;
    std::vector<std::string> bouts;
    bool force = false;
    CLI::Option* era_option = nullptr;
  };
  auto args = std::make_shared<Args>();
  auto* cmd = app.get_subcommand("card")->add_subcommand(
      "new", "Write a new fight card: four bouts under the single-fight options, dated now");
  cmd->add_option("file", args->file, "The fight card file to write")->required();
  cmd->add_option("--name", args->name, "The card's name");
  cmd->add_option("--date", args->date, "Date and time (yyyy-mm-dd [hh:mm[:ss]])");
  args->era_option = cmd->add_option("--era", args->era, "Era");
  cmd->add_option("--location", args->location, "Location ID of the game database");
  cmd->add_option("--bout", args->bouts,
                  "POSITION:FIGHTER,FIGHTER: fill a bout from two fighters of the game database")
      ->type_name("P:ID,ID");
  cmd->add_flag("--force", args->force, "Replace the file when it exists");
  cmd->callback([args] {
    Context& ctx = Context::Get();
    ctx.Install();
    RefuseOverwrite(args->file, args->force);
    CFightCard card;
    if (!args->name.empty()) card.SetName(args->name);
    if (!args->date.empty()) {
      card.SetFightDate(ParseValue(FieldKind::Date, args->date, "--date").get<double>());
    }
    if (args->era_option->count() > 0) card.SetEra(args->era);
    if (args->location != 0 || !args->bouts.empty()) ctx.RequireDatabase();
    if (args->location != 0) {
      NLocations locations;
      auto location = std::make_shared<CLocation>();
      FindRecord<CLocation>(locations, args->location, "location")->Clone(*location);
      card.SetLocation(location);
    }
    if (!args->bouts.empty()) {
      NFighters fighters;
      for (const std::string& b : args->bouts) PlaceBout(card, fighters, b);
    }
    SaveRecord(card, args->file);
    if (ctx.Json()) {
      PrintJson(CardToJson(card));
    } else {
      std::printf("wrote %s\n", args->file.c_str());
    }
  });
}

void AddTournamentNew(CLI::App& app) {
  struct Args {
    std::string file;
    std::string name;
    int16_t levels = 0;
    bool force = false;
  };
  auto args = std::make_shared<Args>();
  auto* cmd = app.get_subcommand("tournament")
                  ->add_subcommand("new",
                                   "Write a new tournament with the levels and rounds of the "
                                   "tournament options");
  cmd->add_option("file", args->file, "The tournament file to write")->required();
  cmd->add_option("--name", args->name, "The tournament's name");
  cmd->add_option("--levels", args->levels, "Number of levels, 2 to 4")->check(CLI::Range(2, 4));
  cmd->add_flag("--force", args->force, "Replace the file when it exists");
  cmd->callback([args] {
    Context& ctx = Context::Get();
    ctx.Install();
    RefuseOverwrite(args->file, args->force);
    CTournament tournament;
    if (!args->name.empty()) tournament.SetName(args->name);
    if (args->levels != 0) tournament.SetLevels(args->levels);
    SaveRecord(tournament, args->file);
    if (ctx.Json()) {
      PrintJson(TournamentToJson(tournament));
    } else {
      std::printf("wrote %s\n", args->file.c_str());
    }
  });
}

void AddBracket(CLI::App& app) {
  struct Args {
    std::string file;
    std::string out;
  };
  auto args = std::make_shared<Args>();
  auto* cmd = app.get_subcommand("tournament")
                  ->add_subcommand("bracket", "Draw a tournament's bracket as an SVG picture");
  cmd->add_option("file", args->file, "The tournament file")->required();
  cmd->add_option("-o,--output", args->out,
                  "SVG file (default: the tournament file with .svg; '-' for standard output)")
      ->type_name("FILE");
  cmd->callback([args] {
    Context::Get().Install();
    std::shared_ptr<CTournament> tournament = LoadTournament(args->file);
    const std::string out =
        args->out.empty() ? fs::path(args->file).replace_extension(".svg").string() : args->out;
    WriteTextFile(out, BracketSvg(*tournament));
    if (out != "-") std::printf("wrote %s\n", out.c_str());
  });
}

}  // namespace

std::shared_ptr<CFightCard> LoadCard(const std::string& path) {
  auto card = std::make_shared<CFightCard>();
  ReadChecked(path, "fight card", kFileMarker, kFileMarker, true,
              [&](CStream& s) { card->ReadFromStream(s); });
  return card;
}

std::shared_ptr<CTournament> LoadTournament(const std::string& path) {
  auto tournament = std::make_shared<CTournament>();
  ReadChecked(path, "tournament", kFileMarker, kFileMarker, true,
              [&](CStream& s) { tournament->ReadFromStream(s); });
  return tournament;
}

std::shared_ptr<COptions> LoadOptions(const std::string& path) {
  auto options = std::make_shared<COptions>();
  ReadChecked(path, "options", kOldestOptionsMarker, kNewestOptionsMarker, false,
              [&](CStream& s) { options->Load(&s); });
  return options;
}

void SaveRecord(StreamRecord& record, const std::string& path) {
  ClearLastError();
  record.SaveToFile(path);
  const ErrorInfo& error = LastError();
  if (error.Number != 0) {
    const std::string text = error.Description;
    ClearLastError();
    throw CommandError("cannot write '" + path + "': " + text);
  }
}

void AddFileCommands(CLI::App& app) {
  AddKind(app, kCard, "Fight card files: show, export to JSON, import from JSON, new");
  AddKind(app, kTournament,
          "Tournament files: show, export to JSON, import from JSON, new, bracket picture");
  AddKind(app, kOptions, "Options files: show, export to JSON, import from JSON");
  AddCardNew(app);
  AddTournamentNew(app);
  AddBracket(app);
}

}  // namespace ringbook::cli
