#include "store/NLocations.h"

namespace ringbook {
namespace {

const CollectionDescription<CLocation>& Description() {
  static const CollectionDescription<CLocation> description{
      "qryLocations",
      "LocationID",
      "LocationID = ",
      "Stop in NLocations.UpdateRecord",
      BoundControl::ListBox,
      "Arena",
      {
          TextField("Arena", &CLocation::Arena, &CLocation::SetArena),
          TextField("City", &CLocation::City, &CLocation::SetCity),
          TextField("Country", &CLocation::Country, &CLocation::SetCountry),
          Int16Field("Era", &CLocation::Era, &CLocation::SetEra),
          KeyField<CLocation>("LocationID"),
          Int32Field("PriceIndex", &CLocation::PriceIndex, &CLocation::SetPriceIndex),
          Int32Field("SiteRating", &CLocation::SiteRating, &CLocation::SetSiteRating),
      },
      // The list shows one era: an item's place is counted among its era's rows.
      [](Recordset& rows, const CLocation& location) {
        return FieldEquals(rows, "Era", location.Era());
      },
  };
  return description;
}

}  // namespace

NLocations::NLocations() : RecordCollection(Description()) {}

void NLocations::FillList(const Variant& ListControl, int16_t Filter, const Variant& SiteFilter) {
  FillListWhere(ListControl, [&](Recordset& rows) {
    // Both tests are made on every row, as the original condition did.
    const bool of_era = FieldEquals(rows, "Era", Filter);
    const bool within_rating = FieldAtMost(rows, "SiteRating", SiteFilter);
    return of_era && within_rating;
  });
}

std::string NLocations::GetLocationList() {
  return ListText([](std::string& text, Recordset& rows) {
    text += ColumnText(rows.Field("Arena")) + '\t' + ColumnText(rows.Field("City")) + '\t' +
            ColumnText(rows.Field("Country")) + '\t' + ColumnText(rows.Field("PriceIndex")) + '\t' +
            ColumnText(rows.Field("SiteRating")) + "\r\n";
  });
}

}  // namespace ringbook
