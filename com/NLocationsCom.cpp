#include "com/ComMembers.h"
#include "com/RecordCollectionCom.h"
#include "store/NLocations.h"

namespace ringbook::com {
namespace {

class NLocationsCom
    : public RecordCollectionCom<NLocationsCom, NLocations, CLocation, _NLocations, _CLocation> {
 public:
  using RecordCollectionCom::RecordCollectionCom;

  HRESULT STDMETHODCALLTYPE FillList(VARIANT control, short filter, VARIANT site_filter) override {
    return Call([&] {
      native().FillList(ListControlArgument(control), filter,
                        IsMissing(site_filter) ? Variant(int32_t{1000}) : In(site_filter));
    });
  }
  HRESULT STDMETHODCALLTYPE GetLocationList(BSTR* out) override {
    return Get(out, [&] { return native().GetLocationList(); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(NLocations, NLocationsCom);

}  // namespace ringbook::com
