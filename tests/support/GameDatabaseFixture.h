#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/DisplayTextDouble.h"
#include "support/MessageSinkDouble.h"
#include "support/TempDir.h"

namespace ringbook::test {

/// A new, empty game database in a temporary folder, named by the thread's
/// settings so that collections open it; messages go to `Sink()` and display
/// texts come from a `DisplayTextDouble`. The thread's host objects are put
/// back to their defaults afterwards.
class GameDatabaseFixture : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  const std::string& Path() const { return path_; }
  MessageSinkDouble& Sink() { return *sink_; }
  /// Runs `sql` straight on the database file.
  void Sql(const std::string& sql) const;
  /// The first column of the first row of `sql`, as text.
  std::string SqlText(const std::string& sql) const;

 private:
  TempDir dir_;
  std::string path_;
  std::shared_ptr<MessageSinkDouble> sink_;
};

}  // namespace ringbook::test
