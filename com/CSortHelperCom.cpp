#include <optional>

#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "schedule/CSortHelper.h"
#include "schedule/ICollection.h"

namespace ringbook::com {
namespace {

/// An optional key argument: omitted is "not given"; anything else is text.
std::optional<std::string> KeyArgument(const VARIANT& value) {
  if (IsMissing(value)) return std::nullopt;
  return FromVariant(value).ToString();
}

/// The comparison object of sorted collections. Its default interface
/// carries ISortHelper's members as well, so a late-bound caller reaches
/// them; the object also answers ISortHelper itself.
class CSortHelperCom : public ComObject<CSortHelperCom, CSortHelper, _CSortHelper, ::ISortHelper> {
 public:
  using ComObject::ComObject;

  HRESULT STDMETHODCALLTYPE Compare(VARIANT v1, VARIANT v2, ::ECompareResults* out) override {
    if (!out) return E_POINTER;
    return Call([&] { *out = static_cast<::ECompareResults>(native().Compare(In(v1), In(v2))); });
  }
  HRESULT STDMETHODCALLTYPE Swap(VARIANT* v1, VARIANT* v2) override {
    if (!v1 || !v2) return E_POINTER;
    return Call([&] {
      Variant a = FromVariant(*v1);
      Variant b = FromVariant(*v2);
      native().Swap(a, b);
      AssignInOut(v1, a);
      AssignInOut(v2, b);
    });
  }
  HRESULT STDMETHODCALLTYPE SwapCollection(IDispatch* n, LONG i1, LONG i2, VARIANT key1,
                                           VARIANT key2) override {
    return Call([&] {
      native().SwapCollection(NativeArgument<ICollection>(n), i1, i2, KeyArgument(key1),
                              KeyArgument(key2));
    });
  }
  HRESULT STDMETHODCALLTYPE get_SortMode(::ESortMode* out) override {
    if (!out) return E_POINTER;
    return Call([&] { *out = static_cast<::ESortMode>(native().SortMode()); });
  }
  HRESULT STDMETHODCALLTYPE put_SortMode(::ESortMode value) override {
    return Call([&] { native().SetSortMode(static_cast<ESortMode>(value)); });
  }
  HRESULT STDMETHODCALLTYPE get_SortOrder(::ESortOrder* out) override {
    if (!out) return E_POINTER;
    return Call([&] { *out = static_cast<::ESortOrder>(native().SortOrder()); });
  }
  HRESULT STDMETHODCALLTYPE put_SortOrder(::ESortOrder value) override {
    return Call([&] { native().SetSortOrder(static_cast<ESortOrder>(value)); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CSortHelper, CSortHelperCom);

}  // namespace ringbook::com
