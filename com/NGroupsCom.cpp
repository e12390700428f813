#include "com/ComMembers.h"
#include "com/RecordCollectionCom.h"
#include "store/NGroups.h"

namespace ringbook::com {
namespace {

class NGroupsCom : public RecordCollectionCom<NGroupsCom, NGroups, CGroup, _NGroups, _CGroup> {
 public:
  using RecordCollectionCom::RecordCollectionCom;

  HRESULT STDMETHODCALLTYPE FillList(VARIANT control) override {
    return Call([&] { native().FillList(ListControlArgument(control)); });
  }
  HRESULT STDMETHODCALLTYPE GetGroupList(BSTR* out) override {
    return Get(out, [&] { return native().GetGroupList(); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(NGroups, NGroupsCom);

}  // namespace ringbook::com
