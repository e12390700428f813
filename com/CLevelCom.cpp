#include "Korvat_Ringbook.h"
#include "cards/CBout.h"
#include "com/ComMembers.h"
#include "schedule/CLevel.h"

namespace ringbook::com {
namespace {

class CLevelCom : public ComObject<CLevelCom, CLevel, _CLevel> {
 public:
  using ComObject::ComObject;

  HRESULT STDMETHODCALLTYPE get_Bout(short index, _CBout** out) override {
    if (!out) return E_POINTER;
    return Call([&] { PutObject(out, native().Bout(index)); });
  }
  RINGBOOK_COM_PROPERTY(Brackets, short)
  HRESULT STDMETHODCALLTYPE Clone(IDispatch* target) override {
    return Call([&] { native().Clone(NativeArgument<CLevel>(target)); });
  }
  RINGBOOK_COM_INDEXED(DisplayFight, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(Rounds, short)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CLevel, CLevelCom);

}  // namespace ringbook::com
