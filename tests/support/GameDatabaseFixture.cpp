#include "support/GameDatabaseFixture.h"

#include "core/DefaultSettings.h"
#include "core/HostServices.h"
#include "store/GameDatabase.h"
#include "support/SqlFile.h"

namespace ringbook::test {

void GameDatabaseFixture::SetUp() {
  path_ = dir_.File("world.db");
  CreateGameDatabase(path_);
  SetSettings(std::make_shared<DefaultSettings>(path_, dir_.Path().string()));
  sink_ = std::make_shared<MessageSinkDouble>();
  SetMessageSink(sink_);
  SetDisplayText(std::make_shared<DisplayTextDouble>());
}

void GameDatabaseFixture::TearDown() {
  SetSettings(nullptr);
  SetMessageSink(nullptr);
  SetDisplayText(nullptr);
}

void GameDatabaseFixture::Sql(const std::string& sql) const {
  ExecSql(path_, sql);
}

std::string GameDatabaseFixture::SqlText(const std::string& sql) const {
  return QuerySql(path_, sql);
}

}  // namespace ringbook::test
