// `ringbook preview`: two fighters of the game world through the pre-fight
// chain with seeded dice, their ratings before and after, the odds, and a
// short sample of punches and knock-out checks. The same seed prints the
// same preview.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "cards/CBout.h"
#include "cli/Commands.h"
#include "cli/Context.h"
#include "cli/Errors.h"
#include "cli/Output.h"
#include "cli/RecordFields.h"
#include "cli/Records.h"
#include "cli/SaveFiles.h"
#include "core/HostServices.h"
#include "core/SeededDice.h"
#include "engine/CFighterInFight.h"
#include "fighters/NFighters.h"
#include "options/COptions.h"
#include "store/NCornermen.h"

namespace ringbook::cli {
namespace {

struct Corner {
  int32_t fighter = 0;
  int32_t trainer = -1;  // -1: the fighter's own
  int32_t cut_man = -1;
  int32_t condition = 0;
  int16_t career = 2;
  int16_t training = 0;
};

struct Args {
  Corner corners[2];
  uint64_t seed = 0;
  CLI::Option* seed_option = nullptr;
  std::string options_file;
  bool skip_training = false;
  int samples = 12;
};

// The ratings the chain can move: the fighter's profile numbers, apart from
// his links to group and staff.
bool IsRating(const Field<CFighter>& f) {
  if (f.section != kProfileSection || !f.set) return false;
  if (f.kind != FieldKind::Int16 && f.kind != FieldKind::Float) return false;
  return f.name != "Division" && f.name != "Style" && f.name != "ActiveRetired" &&
         f.name != "Sex" && f.name != "SkinColor" && f.name != "Proficiency";
}

std::string PunchName(int type) {
  if (type == 0) return "-";
  for (const PunchRating& p : kPunchRatings) {
    if (p.type == type) return std::to_string(type) + " " + p.name;
  }
  return std::to_string(type);
}

std::shared_ptr<CCornerman> Cornerman(NCornermen& cornermen, int32_t id, const char* role) {
  if (id == 0) return std::make_shared<CCornerman>();
  return FindRecord<CCornerman>(cornermen, id, role);
}

std::string PersonText(const std::string& name, int32_t id) {
  return id == 0 ? std::string("(none)") : name + " (ID " + std::to_string(id) + ")";
}

void RunPreview(const Args& args) {
  Context& ctx = Context::Get();
  ctx.RequireDatabase();
  const uint64_t seed =
      args.seed_option->count() > 0 ? args.seed : SeededDice::SeedFromEnvironment();
  SetDice(std::make_shared<SeededDice>(seed));

  NFighters fighters;
  NCornermen cornermen;
  std::shared_ptr<COptions> options =
      args.options_file.empty() ? std::make_shared<COptions>() : LoadOptions(args.options_file);

  CFighterInFight in_fight[2];
  std::shared_ptr<CFighter> stored[2];
  for (int i = 0; i < 2; ++i) {
    const Corner& c = args.corners[i];
    stored[i] = FindRecord<CFighter>(fighters, c.fighter, "fighter");
    // The chain changes the record it is given: it works on a copy.
    auto copy = std::make_shared<CFighter>();
    stored[i]->Clone(*copy);
    in_fight[i].SetFR(copy);
    in_fight[i].SetTrainer(
        Cornerman(cornermen, c.trainer >= 0 ? c.trainer : stored[i]->TrainerID(), "cornerman"));
    in_fight[i].SetCutMan(
        Cornerman(cornermen, c.cut_man >= 0 ? c.cut_man : stored[i]->CutManID(), "cornerman"));
    in_fight[i].SetCondition(c.condition);
    in_fight[i].SetCareer(c.career);
    in_fight[i].SetTraining(c.training);
  }
  if (stored[0]->ID() == stored[1]->ID()) throw UsageError("a fighter cannot fight himself");

  in_fight[0].MakePrefightAdjustments(in_fight[1], *options, args.skip_training);
  in_fight[1].MakePrefightAdjustments(in_fight[0], *options, args.skip_training);

  CBout bout;
  for (int16_t i = 1; i <= 2; ++i) {
    const CFighter& f = *in_fight[i - 1].FR();
    bout.SetFighterID(i, f.ID());
    bout.SetFighterFirstName(i, f.FirstName());
    bout.SetFighterLastName(i, f.LastName());
    bout.SetRating(i, f.Rating());
    bout.SetDrawPower(i, f.DrawPower());
    bout.SetStyle(i, f.Style());
  }
  const std::string odds = bout.OddsForFight();
  const int16_t favourite = bout.OddsFavorite();

  // The sample: punches drawn in turn, then knock-out checks in turn.
  Json punches[2] = {Json::array(), Json::array()};
  Json knockouts[2] = {Json::array(), Json::array()};
  for (int k = 0; k < args.samples; ++k) {
    for (int i = 0; i < 2; ++i) punches[i].push_back(in_fight[i].PunchType(false));
  }
  for (int k = 0; k < args.samples / 2; ++k) {
    for (int i = 0; i < 2; ++i) knockouts[i].push_back(in_fight[i].IsKnockedout());
  }

  Json ratings = Json::array();
  Table table{{"", stored[0]->Name(), "after", stored[1]->Name(), "after"}, {}};
  for (const Field<CFighter>& f : FighterFields()) {
    if (!IsRating(f)) continue;
    std::vector<Json> row = {f.name};
    Json entry = {{"Rating", f.name}};
    bool moved = false;
    for (int i = 0; i < 2; ++i) {
      const Json before = f.get(*stored[i]);
      const Json after = f.get(*in_fight[i].FR());
      row.push_back(before);
      row.push_back(after);
      entry["Before" + std::to_string(i + 1)] = before;
      entry["After" + std::to_string(i + 1)] = after;
      moved = moved || before != after;
    }
    if (moved) row[0] = f.name + " *";
    table.rows.push_back(std::move(row));
    ratings.push_back(std::move(entry));
  }

  if (ctx.Json()) {
    Json out = Json::object();
    out["Seed"] = seed;
    Json corners = Json::array();
    for (int i = 0; i < 2; ++i) {
      corners.push_back({{"Fighter", stored[i]->ID()},
                         {"Name", stored[i]->Name()},
                         {"Trainer", in_fight[i].Trainer()->ID()},
                         {"CutMan", in_fight[i].CutMan()->ID()},
                         {"Punches", punches[i]},
                         {"KnockedOut", knockouts[i]}});
    }
    out["Corners"] = corners;
    out["Referee"] = options->Referee() ? options->Referee()->ID() : 0;
    out["AdjWeightClass"] = options->AdjWeightClass();
    out["Ratings"] = ratings;
    out["Odds"] = odds;
    out["Favourite"] = favourite;
    out["Description"] = bout.Description(ensFullName, true);
    PrintJson(out);
    return;
  }

  std::printf("Bout preview, seed %llu\n", static_cast<unsigned long long>(seed));
  for (int i = 0; i < 2; ++i) {
    std::printf("  Corner %d: %s, trainer %s, cut man %s\n", i + 1,
                PersonText(stored[i]->Name(), stored[i]->ID()).c_str(),
                PersonText(in_fight[i].Trainer()->Name(), in_fight[i].Trainer()->ID()).c_str(),
                PersonText(in_fight[i].CutMan()->Name(), in_fight[i].CutMan()->ID()).c_str());
  }
  if (auto referee = options->Referee()) {
    std::printf("  Referee: %s, stoppage %d; weight-class adjustment %s\n",
                PersonText(referee->Name(), referee->ID()).c_str(), referee->Stoppage(),
                options->AdjWeightClass() ? "on" : "off");
  }
  std::printf("\nRatings before and after the pre-fight chain (* moved)\n%s",
              TableText(table).c_str());
  std::printf("\n%s\nOdds %s, favourite %s\n", bout.Description(ensFullName, true).c_str(),
              odds.c_str(), bout.FighterName(favourite).c_str());
  std::printf("\nSample of %d punches each (type and rating; - for none)\n", args.samples);
  for (int i = 0; i < 2; ++i) {
    std::string line;
    for (const Json& p : punches[i]) line += (line.empty() ? "" : ", ") + PunchName(p.get<int>());
    std::printf("  %s: %s\n", stored[i]->Name().c_str(), line.c_str());
  }
  std::printf("Knock-out checks (as if each landed a punch)\n");
  for (int i = 0; i < 2; ++i) {
    std::string line;
    for (const Json& k : knockouts[i])
      line += (line.empty() ? "" : " ") + std::string(k.get<bool>() ? "KO" : "-");
    std::printf("  %s: %s\n", stored[i]->Name().c_str(), line.c_str());
  }
}

}  // namespace

void AddPreviewCommand(CLI::App& app) {
  auto args = std::make_shared<Args>();
  auto* cmd = app.add_subcommand(
      "preview",
      "Preview a bout between two fighters: the pre-fight chain with seeded dice, ratings before "
      "and after, odds, and a sample of punches and knock-out checks");
  cmd->add_option("fighter1", args->corners[0].fighter, "Fighter ID of corner 1")->required();
  cmd->add_option("fighter2", args->corners[1].fighter, "Fighter ID of corner 2")->required();
  args->seed_option = cmd->add_option("--seed", args->seed,
                                      "Seed of the dice (default: $RINGBOOK_SEED, else the clock)");
  cmd->add_option("--options", args->options_file,
                  "Options file of the bout (default: the single-fight options)")
      ->type_name("FILE");
  for (int i = 0; i < 2; ++i) {
    Corner& c = args->corners[i];
    const std::string n = std::to_string(i + 1);
    const std::string group = "Corner " + n;
    cmd->add_option("--trainer" + n, c.trainer, "Trainer ID (default: the fighter's; 0 none)")
        ->group(group);
    cmd->add_option("--cutman" + n, c.cut_man, "Cut man ID (default: the fighter's; 0 none)")
        ->group(group);
    cmd->add_option("--condition" + n, c.condition,
                    "Condition on arrival: 0 normal, 1 sharp, 2 soft, 3 poor, 4 drained")
        ->group(group);
    cmd->add_option("--career" + n, c.career,
                    "Career stage: 0 novice, 1 rising, 2 prime (default), 3 veteran, 4 faded")
        ->group(group);
    cmd->add_option("--training" + n, c.training,
                    "Training camp: 0 balanced, 1 offense, 2 defense, 3 hard camp")
        ->group(group);
  }
  cmd->add_flag("--skip-training", args->skip_training, "Leave the training camp out");
  cmd->add_option("--samples", args->samples, "Punches drawn per fighter (default 12)")
      ->check(CLI::Range(0, 1000));
  cmd->callback([args] { RunPreview(*args); });
}

}  // namespace ringbook::cli
