#include "cli/Context.h"

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

#include "cli/Errors.h"
#include "core/DefaultSettings.h"
#include "core/HostServices.h"

namespace ringbook::cli {
namespace {

std::string Env(const char* name) {
  const char* v = std::getenv(name);
  return v ? std::string(v) : std::string();
}

// The library shows a message only when it refuses an operation ("Stop in
// ..."); the tool keeps it and fails the command with it.
class KeptMessages : public IMessageSink {
 public:
  void Show(const std::string& text) override { messages_.push_back(text); }
  std::vector<std::string> Take() { return std::exchange(messages_, {}); }

 private:
  std::vector<std::string> messages_;
};

std::shared_ptr<KeptMessages>& Sink() {
  static std::shared_ptr<KeptMessages> sink = std::make_shared<KeptMessages>();
  return sink;
}

}  // namespace

Context& Context::Get() {
  static Context context;
  return context;
}

void Context::AddGlobalOptions(CLI::App& app) {
  app.add_option("--db", db_,
                 "Game database (default: $RINGBOOK_DB, or ringbook.db in the data folder)")
      ->type_name("PATH");
  app.add_option("--data-dir", data_dir_,
                 "Folder of the options files (default: $RINGBOOK_DATA_DIR, the database's "
                 "folder, or the user's data folder)")
      ->type_name("PATH");
  auto* json = app.add_flag("--json", json_, "Print JSON");
  auto* tsv = app.add_flag("--tsv", tsv_, "Print tab-separated lines for scripts");
  json->excludes(tsv);
}

std::string Context::DatabasePath() const {
  if (!db_.empty()) return db_;
  if (auto env = Env("RINGBOOK_DB"); !env.empty()) return env;
  return (std::filesystem::path(DataFolder()) / "ringbook.db").string();
}

std::string Context::DataFolder() const {
  if (!data_dir_.empty()) return data_dir_;
  if (auto env = Env("RINGBOOK_DATA_DIR"); !env.empty()) return env;
  const std::string named_db = !db_.empty() ? db_ : Env("RINGBOOK_DB");
  if (!named_db.empty()) {
    const std::filesystem::path folder = std::filesystem::path(named_db).parent_path();
    return folder.empty() ? std::string(".") : folder.string();
  }
  return DefaultSettings::DataFolderFromEnvironment();
}

OutputFormat Context::Format() const {
  if (json_) return OutputFormat::Json;
  if (tsv_) return OutputFormat::Tsv;
  return OutputFormat::Table;
}

void Context::Install() {
  if (installed_) return;
  SetSettings(std::make_shared<DefaultSettings>(DatabasePath(), DataFolder()));
  SetMessageSink(Sink());
  installed_ = true;
}

void Context::RequireDatabase() {
  Install();
  const std::string path = DatabasePath();
  std::error_code ec;
  if (!std::filesystem::exists(std::filesystem::path(path), ec)) {
    throw CommandError("no game database at '" + path +
                       "' (create one with 'ringbook init', or name one with --db)");
  }
}

void Context::ThrowIfStopped() {
  std::vector<std::string> messages = Sink()->Take();
  if (!messages.empty()) throw CommandError(messages.front());
}

}  // namespace ringbook::cli
