#include "com/ComMembers.h"
#include "com/RecordCollectionCom.h"
#include "store/NReferees.h"

namespace ringbook::com {
namespace {

class NRefereesCom
    : public RecordCollectionCom<NRefereesCom, NReferees, CReferee, _NReferees, _CReferee> {
 public:
  using RecordCollectionCom::RecordCollectionCom;

  // Also IRecords.FillList, which means the same here.
  HRESULT STDMETHODCALLTYPE FillList(VARIANT control, short filter) override {
    return Call([&] { native().FillList(ListControlArgument(control), filter); });
  }
  HRESULT STDMETHODCALLTYPE GetRefereeList(BSTR* out) override {
    return Get(out, [&] { return native().GetRefereeList(); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(NReferees, NRefereesCom);

}  // namespace ringbook::com
