#include "store/NCornermen.h"

#include "core/HostServices.h"

namespace ringbook {
namespace {

const CollectionDescription<CCornerman>& Description() {
  using C = CCornerman;
  static const CollectionDescription<CCornerman> description{
      "qryCornermen",
      "CornermanID",
      "CornermanID = ",
      "Stop in NCornermen.UpdateRecord",
      BoundControl::ListBox,
      "Name",
      {
          Int16Field("Discipline", &C::Discipline, &C::SetDiscipline),
          Int16Field("Era", &C::Era, &C::SetEra),
          TextField("FirstName", &C::FirstName, &C::SetFirstName),
          KeyField<C>("CornermanID"),
          TextField("LastName", &C::LastName, &C::SetLastName),
          Int16Field("Motivate", &C::Motivate, &C::SetMotivate),
          Int16Field("CloseCuts", &C::CloseCuts, &C::SetCloseCuts),
          Int16Field("ReduceSwelling", &C::ReduceSwelling, &C::SetReduceSwelling),
          Int16Field("Specialty", &C::Specialty, &C::SetSpecialty),
          Int16Field("Strategy", &C::Strategy, &C::SetStrategy),
          TextField("NickName", &C::NickName, &C::SetNickName),
          Int16Field("TrainingOffense", &C::TrainingOffense, &C::SetTrainingOffense),
          Int16Field("TrainingDefense", &C::TrainingDefense, &C::SetTrainingDefense),
          Int16Field("TrainingAverage", &C::TrainingAverage, &C::SetTrainingAverage),
      },
      [](Recordset& rows, const C& cornerman) { return FieldEquals(rows, "Era", cornerman.Era()); },
  };
  return description;
}

}  // namespace

NCornermen::NCornermen() : RecordCollection(Description()) {}

std::shared_ptr<CCornerman> NCornermen::Item(int32_t ID) {
  Rows().FindFirst("CornermanID = " + std::to_string(ID));
  if (Rows().NoMatch()) return std::make_shared<CCornerman>();
  return pvtReadRecord();
}

void NCornermen::FillList(const Variant& ListControl, int16_t Filter) {
  FillListWhere(ListControl,
                [Filter](Recordset& rows) { return FieldEquals(rows, "Era", Filter); });
}

std::string NCornermen::GetCornermenList() {
  return ListText([](std::string& text, Recordset& rows) {
    IDisplayText& display = DisplayText();
    text += ColumnText(rows.Field("Name")) + '\t' +
            display.SpecialtyText(rows.Field("Specialty").ToInteger());
    for (const char* number : {"Discipline", "Motivate", "Strategy", "CloseCuts", "ReduceSwelling",
                               "TrainingOffense", "TrainingDefense", "TrainingAverage"}) {
      text += '\t' + ColumnText(rows.Field(number));
    }
    text += '\t' + display.EraText(rows.Field("Era").ToInteger()) + "\r\n";
  });
}

}  // namespace ringbook
