#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"
#include "core/Variant.h"
#include "people/CGroup.h"
#include "store/RecordCollection.h"

namespace ringbook {

/// The fighters' groups of the game database ("qryGroups"), as `CGroup`
/// records. The bound control may be any list control, not only a list box.
class RINGBOOK_EXPORT NGroups : public RecordCollection<NGroups, CGroup> {
 public:
  /// Opens the game database named by the thread's settings and the stored
  /// query "qryGroups" in it; fails with the database's error.
  NGroups();

  /// Binds `ListControl` when it holds a control, then fills the bound
  /// control with the "Name" of every group, in the query's order.
  void FillList(const Variant& ListControl = Variant());

  /// Each group's "Name" followed by CR LF.
  std::string GetGroupList();
};

}  // namespace ringbook
