#include "com/ComMembers.h"
#include "com/RecordCollectionCom.h"
#include "store/NCornermen.h"

namespace ringbook::com {
namespace {

class NCornermenCom
    : public RecordCollectionCom<NCornermenCom, NCornermen, CCornerman, _NCornermen, _CCornerman> {
 public:
  using RecordCollectionCom::RecordCollectionCom;

  // Also IRecords.FillList, which means the same here.
  HRESULT STDMETHODCALLTYPE FillList(VARIANT control, short filter) override {
    return Call([&] { native().FillList(ListControlArgument(control), filter); });
  }
  HRESULT STDMETHODCALLTYPE GetCornermenList(BSTR* out) override {
    return Get(out, [&] { return native().GetCornermenList(); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(NCornermen, NCornermenCom);

}  // namespace ringbook::com
