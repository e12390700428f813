#include "core/DateTime.h"
#include "core/HostServices.h"
#include "fighters/NFighters.h"

namespace ringbook {
namespace {

constexpr const char* kHistoryQuery = "qryFighterHistories";

// The columns of a history line, in order.
constexpr const char* kHistoryColumns[] = {"Division",        "Date",     "Opponent",
                                           "WonLostDraw",     "Decision", "LastRound",
                                           "ScheduledRounds", "Notes"};

// A history value as text: dates in the short form, Null as nothing.
std::string HistoryText(const Variant& value) {
  if (value.Type() == VarType::Date) return FormatDate(value.ToDate());
  return value.ToText();
}

}  // namespace

std::shared_ptr<Recordset> NFighters::OpenHistories(int32_t ID, RecordsetType type) {
  std::shared_ptr<QueryDef> query = DatabaseConnection()->QueryDefs(kHistoryQuery);
  query->SetParameter("Enter FighterID", Variant(ID));
  return query->OpenRecordset(type);
}

std::shared_ptr<Recordset> NFighters::HistoriesRS(int32_t ID) {
  return OpenHistories(ID, RecordsetType::Dynaset);
}

std::string NFighters::GetHistoryList(int32_t ID) {
  // Read once, in one pass: the rows are only read here.
  std::shared_ptr<Recordset> rows = OpenHistories(ID, RecordsetType::Snapshot);
  std::string text;
  if (rows->RecordCount() > 0) {
    rows->MoveFirst();
    while (!rows->Eof()) {
      for (const char* column : kHistoryColumns) {
        text += '\t';
        text += HistoryText(rows->Field(column));
      }
      text += "\r\n";
      rows->MoveNext();
    }
  }
  return text;
}

bool NFighters::RemoveFightHistories(int32_t ID) {
  std::shared_ptr<Recordset> rows = OpenHistories(ID, RecordsetType::Dynaset);
  if (rows->RecordCount() > 0) {
    rows->MoveFirst();
    while (!rows->Eof()) {
      rows->Delete();
      rows->MoveNext();
    }
  }
  return false;
}

void NFighters::pvtUpdateFightHistories(const CFighter& fighter, ERecordSection section) {
  if (section != ersCareer || !fighter.History()) return;
  if (!histories_) histories_ = DatabaseConnection()->OpenRecordset("FightHistories");
  Recordset* histories = histories_.get();
  histories->AddNew();
  histories->SetField("FighterID", Variant(fighter.ID()));
  histories->SetField("Division", Variant(fighter.History()->Division()));
  histories->SetField("Date", Variant::FromDate(fighter.History()->FightDate()));
  histories->SetField("Opponent", Variant(fighter.History()->Opponent()));
  histories->SetField("WonLostDraw", Variant(fighter.History()->WonLost()));
  histories->SetField("Decision", Variant(fighter.History()->Decision()));
  histories->SetField("LastRound", Variant(fighter.History()->LastRound()));
  histories->SetField("ScheduledRounds", Variant(fighter.History()->ScheduledRounds()));
  histories->SetField("Notes", Variant(fighter.History()->Notes()));
  // A refused history row is reported and passed over: the fighter's career
  // columns are still written by the caller.
  try {
    histories->Update();
  } catch (const Error& e) {
    ShowMessage("Stop/Error " + std::to_string(e.Number()) +
                " in NFighters.pvtUpdateFightHistories");
  }
  // Done with the table until the next fight: drops a refused row and what
  // the table's rows were noted as since.
  histories->Requery();
}

}  // namespace ringbook
