#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"
#include "core/Variant.h"
#include "people/CJudge.h"
#include "store/RecordCollection.h"

namespace ringbook {

/// The judges of the game database ("qryJudges"), as `CJudge` records, with
/// a bound list box that shows the judges of one era.
class RINGBOOK_EXPORT NJudges : public RecordCollection<NJudges, CJudge> {
 public:
  /// Opens the game database named by the thread's settings and the stored
  /// query "qryJudges" in it; fails with the database's error.
  NJudges();

  /// Binds `ListControl` when it holds a control, then fills the bound list
  /// with the "Name" of every judge of era `Filter`, in the query's order.
  void FillList(const Variant& ListControl = Variant(), int16_t Filter = 0);

  /// One line per judge: "Name", the display text of the bias and that of
  /// the era, separated by tabs, ended by CR LF.
  std::string GetJudgesList();
};

}  // namespace ringbook
