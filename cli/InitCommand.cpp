// `ringbook init`: a new game world, seeded with the default data.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <string>

#include "cli/Commands.h"
#include "cli/Context.h"
#include "cli/Errors.h"
#include "cli/Output.h"
#include "core/HostServices.h"
#include "options/COptions.h"
#include "store/SeedWorld.h"

namespace ringbook::cli {
namespace {

void MakeFolder(const std::filesystem::path& folder) {
  if (folder.empty()) return;
  std::error_code ec;
  std::filesystem::create_directories(folder, ec);
  if (ec) throw CommandError("cannot create the folder '" + folder.string() + "': " + ec.message());
}

void RunInit() {
  Context& ctx = Context::Get();
  ctx.Install();
  const std::string path = ctx.DatabasePath();
  MakeFolder(std::filesystem::path(path).parent_path());
  MakeFolder(std::filesystem::path(ctx.DataFolder()));

  SeedReport report;
  {
    ProgressBar bar("Seeding " + path);
    report = SeedGameWorld(path, [&bar](int32_t done, int32_t total) { bar.Update(done, total); });
  }

  // The options files of the styles that keep one: new options take style 0
  // and the first style given after it, each writing its file with the
  // style's defaults (officials from the new world) unless it is there.
  Json files = Json::array();
  for (int16_t style = 0; style <= 2; ++style) {
    COptions options;
    if (style != 0) options.SetStyle(style);
    const std::string file = Settings().OptionsFolder(style) + Settings().OptionsFileName(style);
    if (std::filesystem::exists(std::filesystem::path(file))) files.push_back(file);
  }
  ctx.ThrowIfStopped();

  Json rows = {{"locations", report.Locations}, {"announcers", report.Announcers},
               {"judges", report.Judges},       {"referees", report.Referees},
               {"cornermen", report.Cornermen}, {"groups", report.Groups},
               {"titles", report.Titles}};
  if (ctx.Json()) {
    PrintJson({{"database", path},
               {"created", report.Created},
               {"rows", rows},
               {"data_folder", ctx.DataFolder()},
               {"options_files", files}});
    return;
  }
  std::printf("%s game database %s\n", report.Created ? "Created" : "Seeded", path.c_str());
  std::string counts;
  for (const auto& [name, count] : rows.items()) {
    counts += (counts.empty() ? "" : ", ") + name + " " + std::to_string(count.get<int>());
  }
  std::printf("  %s\n", counts.c_str());
  std::printf("Options files in %s (%zu)\n", ctx.DataFolder().c_str(), files.size());
}

}  // namespace

void AddInitCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand(
      "init",
      "Create a game world: a new database seeded with the default venues, officials, "
      "cornermen, the group \"World\" and the world titles, and the options files");
  cmd->callback(RunInit);
}

}  // namespace ringbook::cli
