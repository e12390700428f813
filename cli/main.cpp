// ringbook: the command-line face of the library.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/Context.h"
#include "cli/Errors.h"
#include "core/Error.h"

namespace {

int Fail(int code, const std::string& message) {
  std::fprintf(stderr, "ringbook: %s\n", message.c_str());
  return code;
}

// A library error's text, with the number when the text alone does not say
// what went wrong.
std::string Describe(const ringbook::Error& e) {
  if (!e.Description().empty()) return e.Description();
  return "error " + std::to_string(e.Number());
}

// CLI11 reports a word that names no command, and a missing command, as a
// missing requirement; say which command is missing or which word is wrong.
std::string ParseMessage(CLI::App& app, const CLI::ParseError& e) {
  if (!dynamic_cast<const CLI::RequiredError*>(&e)) return e.what();
  std::vector<CLI::App*> chain = {&app};
  while (!chain.back()->get_subcommands().empty()) {
    chain.push_back(chain.back()->get_subcommands().front());
  }
  CLI::App* deepest = chain.back();
  if (deepest->get_require_subcommand_min() == 0) return e.what();
  std::string path = "ringbook";
  for (std::size_t i = 1; i < chain.size(); ++i) path += " " + chain[i]->get_name();
  for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
    const std::vector<std::string> left = (*it)->remaining();
    if (!left.empty()) {
      return "'" + left.front() + "' is not a command of '" + path + "' (see " + path + " --help)";
    }
  }
  std::string names;
  for (const CLI::App* sub : deepest->get_subcommands([](CLI::App*) { return true; })) {
    names += (names.empty() ? "" : ", ") + sub->get_name();
  }
  return "'" + path + "' needs a command: " + names;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace ringbook::cli;
  CLI::App app{"ringbook: the data and rules engine of the boxing game, from a terminal",
               "ringbook"};
  app.require_subcommand(1);
  // Global options may follow the command: `ringbook fighter list --json`.
  app.fallthrough();
  Context::Get().AddGlobalOptions(app);
  AddInitCommand(app);
  AddRecordCommands(app);
  AddFighterCommands(app);
  AddRankingCommands(app);
  AddFileCommands(app);
  AddPreviewCommand(app);
  AddVersionCommand(app);
  AddStreamCommands(app);
  try {
    app.parse(argc, argv);
    // A refusal the library showed but the command did not look for.
    Context::Get().ThrowIfStopped();
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForAllHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForVersion& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    return Fail(kExitUsage, ParseMessage(app, e));
  } catch (const UsageError& e) {
    return Fail(kExitUsage, e.what());
  } catch (const CommandError& e) {
    return Fail(kExitFailure, e.what());
  } catch (const ringbook::Error& e) {
    return Fail(kExitFailure, Describe(e));
  } catch (const nlohmann::json::exception& e) {
    return Fail(kExitFailure, std::string("JSON: ") + e.what());
  } catch (const std::exception& e) {
    return Fail(kExitFailure, e.what());
  }
  return 0;
}
