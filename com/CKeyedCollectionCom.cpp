#include <optional>

#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "com/DispatchListControl.h"
#include "schedule/CKeyedCollection.h"

namespace ringbook::com {
namespace {

/// A general keyed collection. Its default interface carries ICollection's
/// members; the object also answers ICollection itself, which is what the
/// sort helper's SwapCollection takes.
class CKeyedCollectionCom
    : public ComObject<CKeyedCollectionCom, CKeyedCollection, _CKeyedCollection, ::ICollection> {
 public:
  using ComObject::ComObject;

  HRESULT STDMETHODCALLTYPE Add(VARIANT item, VARIANT key, VARIANT before, VARIANT after,
                                VARIANT* out) override {
    return Get(out, [&] {
      std::optional<std::string> item_key;
      if (!IsMissing(key)) item_key = FromVariant(key).ToString();
      return native().Add(In(item), item_key, In(before), In(after));
    });
  }
  HRESULT STDMETHODCALLTYPE Clear() override {
    return Call([&] { native().Clear(); });
  }
  RINGBOOK_COM_GET(Count, LONG)
  HRESULT STDMETHODCALLTYPE FillList(VARIANT control, LONG filter, VARIANT form) override {
    return Call([&] {
      const Variant argument = ListControlArgument(control);
      std::shared_ptr<IListControl> list =
          argument.IsEmpty() ? nullptr : argument.As<IListControl>();
      std::shared_ptr<Object> owner = IsMissing(form) ? nullptr : FromVariant(form).ToObject();
      native().FillList(list, filter, owner);
    });
  }
  HRESULT STDMETHODCALLTYPE Index(BSTR key, LONG* out) override {
    return Get(out, [&] { return native().Index(In(key)); });
  }
  HRESULT STDMETHODCALLTYPE get_Item(VARIANT index_or_key, VARIANT* out) override {
    return Get(out, [&] { return native().Item(In(index_or_key)); });
  }
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT index_or_key, VARIANT value) override {
    return Call([&] { native().SetItem(In(index_or_key), In(value)); });
  }
  HRESULT STDMETHODCALLTYPE putref_Item(VARIANT index_or_key, VARIANT value) override {
    return put_Item(index_or_key, value);
  }
  HRESULT STDMETHODCALLTYPE Key(LONG index, BSTR* out) override {
    return Get(out, [&] { return native().Key(index); });
  }
  RINGBOOK_COM_GET(LastAdded, VARIANT)
  HRESULT STDMETHODCALLTYPE LoadDefaultItems() override {
    return Call([&] { native().LoadDefaultItems(); });
  }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT index_or_key) override {
    return Call([&] { native().Remove(In(index_or_key)); });
  }
  RINGBOOK_COM_PROPERTY(Sorted, VARIANT_BOOL)
  RINGBOOK_COM_GET(mgErr, short)
  RINGBOOK_COM_GET(mgErrDescription, BSTR)
  HRESULT STDMETHODCALLTYPE get_mgRaiseErrors(VARIANT_BOOL* out) override {
    return Get(out, [&] { return native().mgRaiseErrors(); });
  }
  HRESULT STDMETHODCALLTYPE put_mgRaiseErrors(VARIANT_BOOL value) override {
    return Call([&] { native().SetmgRaiseErrors(value != VARIANT_FALSE); });
  }

  HRESULT STDMETHODCALLTYPE get_SortHelper(_CSortHelper** out) override {
    if (!out) return E_POINTER;
    return Call([&] { PutObject(out, native().SortHelper()); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CKeyedCollection, CKeyedCollectionCom);

}  // namespace ringbook::com
