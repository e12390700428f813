#include "com/ComMembers.h"
#include "com/RecordCollectionCom.h"
#include "store/NTitles.h"
#include "store/VariantArray2D.h"

namespace ringbook::com {
namespace {

class NTitlesCom : public RecordCollectionCom<NTitlesCom, NTitles, CTitle, _NTitles, _CTitle> {
 public:
  using RecordCollectionCom::RecordCollectionCom;

  HRESULT STDMETHODCALLTYPE FillList(VARIANT control) override {
    return Call([&] { native().FillList(ListControlArgument(control)); });
  }
  HRESULT STDMETHODCALLTYPE GetTitleList(BSTR* out) override {
    return Get(out, [&] { return native().GetTitleList(); });
  }

  // The array goes into the caller's own variable when it is passed by
  // reference; with no titles the variable is left as it was.
  HRESULT STDMETHODCALLTYPE FillArray(VARIANT* array) override {
    if (!array) return E_POINTER;
    return Call([&] {
      VariantArray2D filled;
      native().FillArray(filled);
      if (filled.IsDimensioned()) AssignArray(array, filled);
    });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(NTitles, NTitlesCom);

}  // namespace ringbook::com
