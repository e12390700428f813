#pragma once

namespace CLI {
class App;
}

namespace ringbook::cli {

/// Each group of verbs registers its subcommands on the tool's app; the
/// callbacks throw `ringbook::Error`, `UsageError`, `CommandError` or
/// `CLI::Error`, which `main` reports as one line on standard error.
void AddVersionCommand(CLI::App& app);
void AddStreamCommands(CLI::App& app);
void AddInitCommand(CLI::App& app);
void AddRecordCommands(CLI::App& app);
void AddFighterCommands(CLI::App& app);
void AddRankingCommands(CLI::App& app);
void AddFileCommands(CLI::App& app);
void AddPreviewCommand(CLI::App& app);

}  // namespace ringbook::cli
