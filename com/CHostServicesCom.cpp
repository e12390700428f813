#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "com/ComMessageSink.h"
#include "com/ComSettings.h"
#include "com/HostServiceAdapters.h"
#include "core/HostServices.h"

namespace ringbook::com {
namespace {

/// The library keeps the host objects per thread; this object only sets them.
class HostServicesTool : public Object {};

class CHostServicesCom : public ComObject<CHostServicesCom, HostServicesTool, _CHostServices> {
 public:
  using ComObject::ComObject;

  HRESULT STDMETHODCALLTYPE putref_Settings(IDispatch* value) override {
    return Call(
        [&] { SetSettings(value ? HostSettings(value) : std::make_shared<ComSettings>()); });
  }
  HRESULT STDMETHODCALLTYPE putref_Dice(IDispatch* value) override {
    return Call([&] { SetDice(value ? HostDice(value) : nullptr); });
  }
  HRESULT STDMETHODCALLTYPE putref_DisplayText(IDispatch* value) override {
    return Call([&] { SetDisplayText(value ? HostDisplayText(value) : nullptr); });
  }
  HRESULT STDMETHODCALLTYPE putref_Lookup(IDispatch* value) override {
    return Call([&] { SetLookup(value ? HostLookup(value) : nullptr); });
  }
  HRESULT STDMETHODCALLTYPE putref_Utility(IDispatch* value) override {
    return Call([&] { SetUtility(value ? HostUtility(value) : nullptr); });
  }
  HRESULT STDMETHODCALLTYPE putref_MessageSink(IDispatch* value) override {
    return Call([&] {
      SetMessageSink(value ? HostMessageSink(value) : std::make_shared<ComMessageSink>());
    });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CHostServices, CHostServicesCom);

}  // namespace ringbook::com
