#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"
#include "core/Variant.h"
#include "people/CLocation.h"
#include "store/RecordCollection.h"

namespace ringbook {

/// The fight venues of the game database ("qryLocations"), as `CLocation`
/// records, with a bound list box that shows the locations of one era.
class RINGBOOK_EXPORT NLocations : public RecordCollection<NLocations, CLocation> {
 public:
  /// Opens the game database named by the thread's settings and the stored
  /// query "qryLocations" in it; fails with the database's error.
  NLocations();

  /// Binds `ListControl` when it holds a control, then fills the bound list
  /// with the "Arena" of every location whose era is `Filter` and whose
  /// site rating is at most `SiteFilter`, in the query's order.
  void FillList(const Variant& ListControl = Variant(), int16_t Filter = 0,
                const Variant& SiteFilter = Variant(int32_t{1000}));

  /// One line per location of the whole query: "Arena", "City", "Country",
  /// "PriceIndex" and "SiteRating" separated by tabs, ended by CR LF.
  std::string GetLocationList();
};

}  // namespace ringbook
