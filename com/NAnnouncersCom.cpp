#include "com/ComMembers.h"
#include "com/RecordCollectionCom.h"
#include "store/NAnnouncers.h"

namespace ringbook::com {
namespace {

class NAnnouncersCom : public RecordCollectionCom<NAnnouncersCom, NAnnouncers, CAnnouncer,
                                                  _NAnnouncers, _CAnnouncer> {
 public:
  using RecordCollectionCom::RecordCollectionCom;

  // Also IRecords.FillList, which means the same here.
  HRESULT STDMETHODCALLTYPE FillList(VARIANT control, short filter) override {
    return Call([&] { native().FillList(ListControlArgument(control), filter); });
  }
  HRESULT STDMETHODCALLTYPE GetAnnouncersList(BSTR* out) override {
    return Get(out, [&] { return native().GetAnnouncersList(); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(NAnnouncers, NAnnouncersCom);

}  // namespace ringbook::com
