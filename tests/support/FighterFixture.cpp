#include "support/FighterFixture.h"

#include "core/HostServices.h"

namespace ringbook::test {

void FighterFixture::SetUp() {
  GameDatabaseFixture::SetUp();
  utility_ = std::make_shared<FighterUtilityDouble>();
  SetUtility(utility_);
  SetLookup(nullptr);
}

void FighterFixture::TearDown() {
  SetUtility(nullptr);
  SetLookup(nullptr);
  GameDatabaseFixture::TearDown();
}

std::shared_ptr<CFighter> FighterFixture::Fighter(const std::string& first, const std::string& last,
                                                  int32_t group, int16_t division, int16_t rating,
                                                  int16_t proficiency) {
  auto fighter = std::make_shared<CFighter>();
  fighter->SetFirstName(first);
  fighter->SetLastName(last);
  fighter->SetGroupID(std::to_string(group));
  fighter->SetDivision(division);
  fighter->SetRating(rating);
  fighter->SetProficiency(proficiency);
  return fighter;
}

int64_t FighterFixture::SqlNumber(const std::string& sql) const {
  const std::string text = SqlText(sql);
  return text.empty() ? 0 : std::stoll(text);
}

std::string FighterFixture::FighterColumn(int32_t id, const std::string& column) const {
  return SqlText("SELECT \"" + column + "\" FROM Fighters WHERE FighterID = " + std::to_string(id));
}

}  // namespace ringbook::test
