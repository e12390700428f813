#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "options/Version.h"

namespace ringbook::com {
namespace {

class VersionCom : public ComObject<VersionCom, Version, _Version> {
 public:
  using ComObject::ComObject;

  HRESULT STDMETHODCALLTYPE Major(short* out) override {
    return Get(out, [&] { return native().Major(); });
  }
  HRESULT STDMETHODCALLTYPE Minor(short* out) override {
    return Get(out, [&] { return native().Minor(); });
  }
  HRESULT STDMETHODCALLTYPE Revision(short* out) override {
    return Get(out, [&] { return native().Revision(); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(Version, VersionCom);

}  // namespace ringbook::com
