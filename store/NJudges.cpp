#include "store/NJudges.h"

#include "core/HostServices.h"

namespace ringbook {
namespace {

const CollectionDescription<CJudge>& Description() {
  static const CollectionDescription<CJudge> description{
      "qryJudges",
      "JudgeID",
      "JudgeID = ",
      "Stop in Judge.UpdateRecord",
      BoundControl::ListBox,
      "Name",
      {
          Int16Field("Era", &CJudge::Era, &CJudge::SetEra),
          TextField("FirstName", &CJudge::FirstName, &CJudge::SetFirstName),
          KeyField<CJudge>("JudgeID"),
          TextField("LastName", &CJudge::LastName, &CJudge::SetLastName),
          Int32Field("Bias", &CJudge::Bias, &CJudge::SetBias),
      },
      [](Recordset& rows, const CJudge& judge) { return FieldEquals(rows, "Era", judge.Era()); },
  };
  return description;
}

}  // namespace

NJudges::NJudges() : RecordCollection(Description()) {}

void NJudges::FillList(const Variant& ListControl, int16_t Filter) {
  FillListWhere(ListControl,
                [Filter](Recordset& rows) { return FieldEquals(rows, "Era", Filter); });
}

std::string NJudges::GetJudgesList() {
  return ListText([](std::string& text, Recordset& rows) {
    IDisplayText& display = DisplayText();
    text += ColumnText(rows.Field("Name")) + '\t' + display.BiasText(rows.Field("Bias").ToLong()) +
            '\t' + display.EraText(rows.Field("Era").ToInteger()) + "\r\n";
  });
}

}  // namespace ringbook
