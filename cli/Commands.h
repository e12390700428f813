#pragma once

namespace CLI {
class App;
}

namespace ringbook::cli {

/// Each group of verbs registers its subcommands on the tool's app; the
/// callbacks throw `ringbook::Error` or `CLI::Error`, which `main` reports.
void AddVersionCommand(CLI::App& app);
void AddStreamCommands(CLI::App& app);

}  // namespace ringbook::cli
