#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/DateTime.h"
#include "fighters/NFighters.h"
#include "support/FighterFixture.h"

namespace ringbook {
namespace {

using Texts = std::vector<std::string>;

class NFightersHistoryTest : public test::FighterFixture {
 protected:
  static std::shared_ptr<CHistory> Fight(const std::string& opponent, double date) {
    auto h = std::make_shared<CHistory>();
    h->SetDivision("Middleweight");
    h->SetFightDate(date);
    h->SetOpponent(opponent);
    h->SetWonLost("Won");
    h->SetDecision("KO");
    h->SetLastRound(3);
    h->SetScheduledRounds(10);
    h->SetNotes("Clean");
    return h;
  }

  int64_t HistoryRows(int32_t id) const {
    return SqlNumber("SELECT COUNT(*) FROM FightHistories WHERE FighterID = " + std::to_string(id));
  }
};

TEST_F(NFightersHistoryTest, OnlyACareerSaveWithAHistoryAddsAFightAndARefusalIsReported) {
  NFighters fighters;
  auto f = Fighter("Joe", "Fighter");
  fighters.AddRecord(f);
  const int32_t id = f->ID();
  f->SetWon(1);
  fighters.UpdatePartialRecord(f, ersCareer);  // no history hung on him
  EXPECT_EQ(HistoryRows(id), 0);
  EXPECT_EQ(FighterColumn(id, "Won"), "1");

  f->SetHistory(Fight("Ann Other", DateFromParts(2024, 5, 17)));
  fighters.UpdatePartialRecord(f, ersAll);
  fighters.UpdatePartialRecord(f, ersProfile);
  fighters.UpdateRecord(f);
  EXPECT_EQ(HistoryRows(id), 0);
  fighters.UpdatePartialRecord(f, ersCareer);
  EXPECT_EQ(HistoryRows(id), 1);
  EXPECT_EQ(SqlText("SELECT Division FROM FightHistories"), "Middleweight");
  EXPECT_EQ(SqlNumber("SELECT \"Date\" = " + std::to_string(DateFromParts(2024, 5, 17)) +
                      " FROM FightHistories"),
            1);
  EXPECT_EQ(SqlText("SELECT Opponent || '|' || WonLostDraw || '|' || Decision || '|' || "
                    "LastRound || '|' || ScheduledRounds || '|' || Notes || '|' || FighterID "
                    "FROM FightHistories"),
            "Ann Other|Won|KO|3|10|Clean|" + std::to_string(id));
  EXPECT_TRUE(Sink().Messages().empty());

  // A refused fight is reported, and the career is written all the same.
  Sql("CREATE TRIGGER RefuseFights BEFORE INSERT ON FightHistories "
      "BEGIN SELECT RAISE(ABORT, 'no more fights'); END");
  f->SetWon(9);
  f->SetTitleIDs("|4|");
  EXPECT_EQ(fighters.UpdatePartialRecord(f, ersCareer), nullptr);
  EXPECT_EQ(Sink().Messages(), (Texts{"Stop/Error 3317 in NFighters.pvtUpdateFightHistories"}));
  EXPECT_EQ(HistoryRows(id), 1);
  EXPECT_EQ(FighterColumn(id, "Won"), "9");
  EXPECT_EQ(FighterColumn(id, "NumTitles"), "1");
  Sql("DROP TRIGGER RefuseFights");
  fighters.UpdatePartialRecord(f, ersCareer);  // the collection carries on as before
  EXPECT_EQ(HistoryRows(id), 2);
  EXPECT_EQ(Sink().Messages().size(), 1u);
}

TEST_F(NFightersHistoryTest, HistoryListIsOneFightersLinesLatestFirstUntilRemoved) {
  NFighters fighters;
  auto f = Fighter("Joe", "Listed");
  auto other = Fighter("Not", "Listed");
  fighters.AddRecord(f);
  fighters.AddRecord(other);
  EXPECT_EQ(fighters.GetHistoryList(f->ID()), "");

  f->SetHistory(Fight("First Foe", DateFromParts(2023, 3, 4)));
  fighters.UpdatePartialRecord(f, ersCareer);
  auto second = Fight("Second Foe", DateFromParts(2024, 11, 30, 21, 15));
  second->SetWonLost("Lost");
  second->SetDecision("UD");
  second->SetLastRound(12);
  second->SetScheduledRounds(12);
  f->SetHistory(second);
  fighters.UpdatePartialRecord(f, ersCareer);
  other->SetHistory(Fight("Elsewhere", DateFromParts(2022, 1, 1)));
  fighters.UpdatePartialRecord(other, ersCareer);
  Sql("UPDATE FightHistories SET Notes = NULL WHERE Opponent = 'Second Foe'");
  EXPECT_EQ(fighters.GetHistoryList(f->ID()),
            "\tMiddleweight\t2024-11-30\tSecond Foe\tLost\tUD\t12\t12\t\r\n"
            "\tMiddleweight\t2023-03-04\tFirst Foe\tWon\tKO\t3\t10\tClean\r\n");

  EXPECT_FALSE(fighters.RemoveFightHistories(f->ID()));  // always false
  EXPECT_EQ(HistoryRows(f->ID()), 0);
  EXPECT_EQ(HistoryRows(other->ID()), 1);
  EXPECT_FALSE(fighters.RemoveFightHistories(f->ID()));  // nothing left to delete
  EXPECT_EQ(fighters.GetHistoryList(f->ID()), "");
  // His next fight starts a new history.
  fighters.UpdatePartialRecord(f, ersCareer);
  EXPECT_EQ(HistoryRows(f->ID()), 1);
}

TEST_F(NFightersHistoryTest, HistoriesRecordsetOutlivesItsCollection) {
  std::shared_ptr<Recordset> rows;
  int32_t id = 0;
  {
    NFighters fighters;
    auto f = Fighter("Joe", "Kept");
    fighters.AddRecord(f);
    id = f->ID();
    f->SetHistory(Fight("Old Foe", DateFromParts(2020, 6, 1)));
    fighters.UpdatePartialRecord(f, ersCareer);
    f->SetHistory(Fight("New Foe", DateFromParts(2021, 6, 1)));
    fighters.UpdatePartialRecord(f, ersCareer);
    rows = fighters.HistoriesRS(id);
  }
  ASSERT_NE(rows, nullptr);
  Texts opponents;
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    opponents.push_back(rows->Field("opponent").ToString());
    EXPECT_EQ(rows->Field("FighterID").ToLong(), id);
    EXPECT_EQ(rows->Field("Date").Type(), VarType::Date);
  }
  EXPECT_EQ(opponents, (Texts{"New Foe", "Old Foe"}));
  EXPECT_EQ(rows->FieldNames().front(), "Division");
  rows->Close();
}

}  // namespace
}  // namespace ringbook
