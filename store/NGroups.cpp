#include "store/NGroups.h"

namespace ringbook {
namespace {

const CollectionDescription<CGroup>& Description() {
  static const CollectionDescription<CGroup> description{
      "qryGroups",
      "GroupID",
      "GroupID = ",
      "Stop in NGroups.UpdateRecord",
      BoundControl::AnyControl,
      "Name",
      {
          KeyField<CGroup>("GroupID"),
          TextField("Name", &CGroup::Name, &CGroup::SetName),
      },
      nullptr,  // the list shows every group
  };
  return description;
}

}  // namespace

NGroups::NGroups() : RecordCollection(Description()) {}

void NGroups::FillList(const Variant& ListControl) {
  FillListWhere(ListControl, [](Recordset&) { return true; });
}

std::string NGroups::GetGroupList() {
  return ListText(
      [](std::string& text, Recordset& rows) { text += ColumnText(rows.Field("Name")) + "\r\n"; });
}

}  // namespace ringbook
