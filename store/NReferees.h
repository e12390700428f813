#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"
#include "core/Variant.h"
#include "people/CReferee.h"
#include "store/RecordCollection.h"

namespace ringbook {

/// The referees of the game database ("qryReferees"), as `CReferee`
/// records, with a bound list box that shows the referees of one era.
class RINGBOOK_EXPORT NReferees : public RecordCollection<NReferees, CReferee> {
 public:
  /// Opens the game database named by the thread's settings and the stored
  /// query "qryReferees" in it; fails with the database's error.
  NReferees();

  /// Binds `ListControl` when it holds a control, then fills the bound list
  /// with the "Name" of every referee of era `Filter`, in the query's order.
  void FillList(const Variant& ListControl = Variant(), int16_t Filter = 0);

  /// One line per referee: "Name", the display texts of the fouls,
  /// stoppage and judgement ratings and of the era, separated by tabs,
  /// ended by CR LF.
  std::string GetRefereeList();
};

}  // namespace ringbook
