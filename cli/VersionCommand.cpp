#include <CLI/CLI.hpp>
#include <cstdio>

#include "cli/Commands.h"
#include "core/VersionInfo.h"

namespace ringbook::cli {

void AddVersionCommand(CLI::App& app) {
  auto* cmd = app.add_subcommand("version", "Print the component's version");
  cmd->callback([] { std::printf("%s\n", ComponentVersion::Text().c_str()); });
}

}  // namespace ringbook::cli
