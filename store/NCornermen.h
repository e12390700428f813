#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"
#include "core/Variant.h"
#include "people/CCornerman.h"
#include "store/RecordCollection.h"

namespace ringbook {

/// The trainers and cut men of the game database ("qryCornermen"), as
/// `CCornerman` records, with a bound list box that shows those of one era.
class RINGBOOK_EXPORT NCornermen : public RecordCollection<NCornermen, CCornerman> {
 public:
  /// Opens the game database named by the thread's settings and the stored
  /// query "qryCornermen" in it; fails with the database's error.
  NCornermen();

  /// The cornerman of `ID`; unlike the other collections, a new empty
  /// cornerman (ID 0) when there is no such row.
  std::shared_ptr<CCornerman> Item(int32_t ID);

  /// Binds `ListControl` when it holds a control, then fills the bound list
  /// with the "Name" of every cornerman of era `Filter`, in the query's order.
  void FillList(const Variant& ListControl = Variant(), int16_t Filter = 0);

  /// One line per cornerman: "Name", the display text of the specialty,
  /// "Discipline", "Motivate", "Strategy", "CloseCuts", "ReduceSwelling",
  /// "TrainingOffense", "TrainingDefense", "TrainingAverage" and the display
  /// text of the era, separated by tabs, ended by CR LF.
  std::string GetCornermenList();
};

}  // namespace ringbook
