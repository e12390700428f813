#include "store/NTitles.h"

namespace ringbook {
namespace {

const CollectionDescription<CTitle>& Description() {
  static const CollectionDescription<CTitle> description{
      "qryTitles",
      "TitleId",
      // The key column is spelled "TitleId"; the criterion has always read
      // "TitleID", which the database matches without regard to case.
      "TitleID = ",
      "Stop in NTitles.UpdateRecord",
      BoundControl::ListBox,
      "Name",
      {
          KeyField<CTitle>("TitleId"),
          TextField("Name", &CTitle::Name, &CTitle::SetName),
      },
      nullptr,  // the list shows every title
  };
  return description;
}

}  // namespace

NTitles::NTitles() : RecordCollection(Description()) {}

void NTitles::FillList(const Variant& ListControl) {
  FillListWhere(ListControl, [](Recordset&) { return true; });
}

std::string NTitles::GetTitleList() {
  return ListText(
      [](std::string& text, Recordset& rows) { text += ColumnText(rows.Field("Name")) + "\r\n"; });
}

void NTitles::FillArray(VariantArray2D& vArray) {
  Recordset& rows = Rows();
  const int32_t count = rows.RecordCount();
  if (count <= 0) return;
  vArray.ReDim(1, count, 0, 1);
  rows.MoveFirst();
  for (int32_t row = 1; !rows.Eof(); ++row) {
    vArray(row, 0) = rows.Field("Name");
    vArray(row, 1) = rows.Field("TitleId");
    rows.MoveNext();
  }
}

}  // namespace ringbook
