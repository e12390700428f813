#include "store/NReferees.h"

#include "core/HostServices.h"

namespace ringbook {
namespace {

const CollectionDescription<CReferee>& Description() {
  static const CollectionDescription<CReferee> description{
      "qryReferees",
      "RefereeID",
      "RefereeID = ",
      "Stop in Referee.UpdateRecord",
      BoundControl::ListBox,
      "Name",
      {
          Int16Field("ActiveRetired", &CReferee::ActiveRetired, &CReferee::SetActiveRetired),
          Int16Field("Era", &CReferee::Era, &CReferee::SetEra),
          TextField("FirstName", &CReferee::FirstName, &CReferee::SetFirstName),
          Int16Field("Fouls", &CReferee::Fouls, &CReferee::SetFouls),
          KeyField<CReferee>("RefereeID"),
          Int16Field("Judgement", &CReferee::Judgement, &CReferee::SetJudgement),
          TextField("LastName", &CReferee::LastName, &CReferee::SetLastName),
          Int16Field("Rating", &CReferee::Rating, &CReferee::SetRating),
          Int16Field("Stoppage", &CReferee::Stoppage, &CReferee::SetStoppage),
      },
      [](Recordset& rows, const CReferee& referee) {
        return FieldEquals(rows, "Era", referee.Era());
      },
  };
  return description;
}

}  // namespace

NReferees::NReferees() : RecordCollection(Description()) {}

void NReferees::FillList(const Variant& ListControl, int16_t Filter) {
  FillListWhere(ListControl,
                [Filter](Recordset& rows) { return FieldEquals(rows, "Era", Filter); });
}

std::string NReferees::GetRefereeList() {
  return ListText([](std::string& text, Recordset& rows) {
    IDisplayText& display = DisplayText();
    text += ColumnText(rows.Field("Name")) + '\t' +
            display.RefereeRatingText(rows.Field("Fouls").ToInteger()) + '\t' +
            display.RefereeRatingText(rows.Field("Stoppage").ToInteger()) + '\t' +
            display.RefereeRatingText(rows.Field("Judgement").ToInteger()) + '\t' +
            display.EraText(rows.Field("Era").ToInteger()) + "\r\n";
  });
}

}  // namespace ringbook
