// ringbook: the command-line face of the library.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "cli/Commands.h"
#include "core/Error.h"

int main(int argc, char** argv) {
  CLI::App app{"ringbook: the data and rules engine of the boxing game, from a terminal"};
  app.require_subcommand(1);
  ringbook::cli::AddVersionCommand(app);
  ringbook::cli::AddStreamCommands(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return app.exit(e);
  } catch (const ringbook::Error& e) {
    std::fprintf(stderr, "ringbook: %s\n", e.Description().c_str());
    return 1;
  } catch (const std::exception& e) {
    std::fprintf(stderr, "ringbook: %s\n", e.what());
    return 1;
  }
  return 0;
}
