#pragma once

#include <cstdint>
#include <string>

#include "core/Export.h"
#include "core/Variant.h"
#include "people/CAnnouncer.h"
#include "store/RecordCollection.h"

namespace ringbook {

/// The ring announcers of the game database ("qryAnnouncers"), as
/// `CAnnouncer` records, with a bound list box that shows those of one era.
class RINGBOOK_EXPORT NAnnouncers : public RecordCollection<NAnnouncers, CAnnouncer> {
 public:
  /// Opens the game database named by the thread's settings and the stored
  /// query "qryAnnouncers" in it; fails with the database's error.
  NAnnouncers();

  /// Binds `ListControl` when it holds a control, then fills the bound list
  /// with the "Name" of every announcer of era `Filter`, in the query's order.
  void FillList(const Variant& ListControl = Variant(), int16_t Filter = 0);

  /// One line per announcer: "Name", a tab and the display text of the era,
  /// ended by CR LF.
  std::string GetAnnouncersList();
};

}  // namespace ringbook
