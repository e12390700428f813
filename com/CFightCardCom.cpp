#include "Korvat_Ringbook.h"
#include "cards/CBout.h"
#include "cards/CFightCard.h"
#include "com/ComMembers.h"
#include "people/CLocation.h"

namespace ringbook::com {
namespace {

class CFightCardCom : public ComObject<CFightCardCom, CFightCard, _CFightCard> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_OBJECT_PROPERTY(Location, _CLocation, CLocation)
  RINGBOOK_COM_PROPERTY(FightDate, DATE)
  HRESULT STDMETHODCALLTYPE Add(IDispatch* bout, ::EBoutType position) override {
    return Call(
        [&] { native().Add(NativeArgument<CBout>(bout), static_cast<EBoutType>(position)); });
  }
  HRESULT STDMETHODCALLTYPE get_Bout(short index, _CBout** out) override {
    if (!out) return E_POINTER;
    return Call([&] { PutObject(out, native().Bout(index)); });
  }
  HRESULT STDMETHODCALLTYPE BoutRating(short index, short* out) override {
    return Get(out, [&] { return native().BoutRating(index); });
  }
  HRESULT STDMETHODCALLTYPE Clone(IDispatch* target) override {
    return Call([&] { native().Clone(NativeArgument<CFightCard>(target)); });
  }
  HRESULT STDMETHODCALLTYPE FighterRating(short bout, short fighter, short* out) override {
    return Get(out, [&] { return native().FighterRating(bout, fighter); });
  }
  RINGBOOK_COM_INDEXED(DisplayFight, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(Era, short)
  HRESULT STDMETHODCALLTYPE get_Item(short index, _CBout** out) override {
    return get_Bout(index, out);
  }
  HRESULT STDMETHODCALLTYPE put_Item(short index, IDispatch* value) override {
    return Call([&] { native().SetItem(index, SharedArgument<CBout>(value)); });
  }
  HRESULT STDMETHODCALLTYPE putref_Item(short index, IDispatch* value) override {
    return put_Item(index, value);
  }
  RINGBOOK_COM_PROPERTY(Name, BSTR)
  RINGBOOK_COM_GET(Rating, short)
  HRESULT STDMETHODCALLTYPE Remove(VARIANT index) override {
    return Call([&] { native().Remove(In(index)); });
  }
  RINGBOOK_COM_PROPERTY(WagersPlaced, VARIANT_BOOL)
  RINGBOOK_COM_FILE_PERSISTENCE
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CFightCard, CFightCardCom);

}  // namespace ringbook::com
