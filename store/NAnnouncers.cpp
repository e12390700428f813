#include "store/NAnnouncers.h"

#include "core/HostServices.h"

namespace ringbook {
namespace {

const CollectionDescription<CAnnouncer>& Description() {
  static const CollectionDescription<CAnnouncer> description{
      "qryAnnouncers",
      "AnnouncerID",
      "AnnouncerID = ",
      "Stop in Announcer.UpdateRecord",
      BoundControl::ListBox,
      "Name",
      {
          Int16Field("Era", &CAnnouncer::Era, &CAnnouncer::SetEra),
          TextField("FirstName", &CAnnouncer::FirstName, &CAnnouncer::SetFirstName),
          KeyField<CAnnouncer>("AnnouncerID"),
          TextField("LastName", &CAnnouncer::LastName, &CAnnouncer::SetLastName),
      },
      [](Recordset& rows, const CAnnouncer& announcer) {
        return FieldEquals(rows, "Era", announcer.Era());
      },
  };
  return description;
}

}  // namespace

NAnnouncers::NAnnouncers() : RecordCollection(Description()) {}

void NAnnouncers::FillList(const Variant& ListControl, int16_t Filter) {
  FillListWhere(ListControl,
                [Filter](Recordset& rows) { return FieldEquals(rows, "Era", Filter); });
}

std::string NAnnouncers::GetAnnouncersList() {
  return ListText([](std::string& text, Recordset& rows) {
    text += ColumnText(rows.Field("Name")) + '\t' +
            DisplayText().EraText(rows.Field("Era").ToInteger()) + "\r\n";
  });
}

}  // namespace ringbook
