#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "store/Recordset.h"

namespace ringbook::com {
namespace {

/// A recordset the collections hand out, read by the host row by row.
class RecordsetCom : public ComObject<RecordsetCom, Recordset, _Recordset> {
 public:
  using ComObject::ComObject;

  HRESULT STDMETHODCALLTYPE get_Fields(BSTR name, VARIANT* out) override {
    return Get(out, [&] { return native().Field(In(name)); });
  }
  RINGBOOK_COM_GET(RecordCount, LONG)
  HRESULT STDMETHODCALLTYPE get_EOF(VARIANT_BOOL* out) override {
    return Get(out, [&] { return native().Eof(); });
  }
  HRESULT STDMETHODCALLTYPE MoveFirst() override {
    return Call([&] { native().MoveFirst(); });
  }
  HRESULT STDMETHODCALLTYPE MoveNext() override {
    return Call([&] { native().MoveNext(); });
  }
  HRESULT STDMETHODCALLTYPE Close() override {
    return Call([&] { native().Close(); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(Recordset, RecordsetCom);

}  // namespace ringbook::com
