#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"
#include "core/Variant.h"
#include "people/CTitle.h"
#include "store/RecordCollection.h"
#include "store/VariantArray2D.h"

namespace ringbook {

/// The championship titles of the game database ("qryTitles"), as `CTitle`
/// records. The key column is "TitleId", found by "TitleID = ".
class RINGBOOK_EXPORT NTitles : public RecordCollection<NTitles, CTitle> {
 public:
  /// Opens the game database named by the thread's settings and the stored
  /// query "qryTitles" in it; fails with the database's error.
  NTitles();

  /// Binds `ListControl` when it holds a control, then fills the bound list
  /// with the "Name" of every title, in the query's order.
  void FillList(const Variant& ListControl = Variant());

  /// Each title's "Name" followed by CR LF.
  std::string GetTitleList();

  /// Every title into `vArray`: rows 1 to the number of titles in the
  /// query's order, column 0 the "Name" value and column 1 the "TitleId"
  /// value, as the columns hold them. With no titles `vArray` is left
  /// exactly as it was.
  void FillArray(VariantArray2D& vArray);
};

}  // namespace ringbook
