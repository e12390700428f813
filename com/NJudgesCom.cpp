#include "com/ComMembers.h"
#include "com/RecordCollectionCom.h"
#include "store/NJudges.h"

namespace ringbook::com {
namespace {

class NJudgesCom : public RecordCollectionCom<NJudgesCom, NJudges, CJudge, _NJudges, _CJudge> {
 public:
  using RecordCollectionCom::RecordCollectionCom;

  // Also IRecords.FillList, which means the same here.
  HRESULT STDMETHODCALLTYPE FillList(VARIANT control, short filter) override {
    return Call([&] { native().FillList(ListControlArgument(control), filter); });
  }
  HRESULT STDMETHODCALLTYPE GetJudgesList(BSTR* out) override {
    return Get(out, [&] { return native().GetJudgesList(); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(NJudges, NJudgesCom);

}  // namespace ringbook::com
