#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/DefaultUtility.h"
#include "core/IListControl.h"
#include "fighters/CFighter.h"
#include "support/GameDatabaseFixture.h"

namespace ringbook::test {

/// The default utility, except that it counts the lists handed to its list
/// utility and can rewrite accepted picture paths.
class FighterUtilityDouble : public DefaultUtility {
 public:
  bool CheckPicturePath(std::string& path) override {
    const bool ok = DefaultUtility::CheckPicturePath(path);
    if (ok && !rewrite_prefix.empty()) path = rewrite_prefix + path;
    return ok;
  }
  std::shared_ptr<IListControl> PrepareList(std::shared_ptr<IListControl> control) override {
    ++prepared;
    return control;
  }
  int prepared = 0;
  std::string rewrite_prefix;
};

/// A game database for the fighter collection's tests, with the default
/// lookup object and a `FighterUtilityDouble`.
class FighterFixture : public GameDatabaseFixture {
 protected:
  void SetUp() override;
  void TearDown() override;

  FighterUtilityDouble& UtilityDouble() { return *utility_; }

  /// A fighter with a name, group, division, rating and proficiency; every
  /// other field at its initial value.
  static std::shared_ptr<CFighter> Fighter(const std::string& first, const std::string& last,
                                           int32_t group = 1, int16_t division = 0,
                                           int16_t rating = 50, int16_t proficiency = 50);

  /// The first column of the first row of `sql` as a whole number.
  int64_t SqlNumber(const std::string& sql) const;
  /// Column `column` of fighter `id`'s row, as text ("" for NULL).
  std::string FighterColumn(int32_t id, const std::string& column) const;

 private:
  std::shared_ptr<FighterUtilityDouble> utility_;
};

}  // namespace ringbook::test
