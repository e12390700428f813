#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "options/COptions.h"
#include "schedule/CLevel.h"
#include "schedule/CTournament.h"

namespace ringbook::com {
namespace {

class CTournamentCom : public ComObject<CTournamentCom, CTournament, _CTournament> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_OBJECT_PROPERTY(Options, _COptions, COptions)
  HRESULT STDMETHODCALLTYPE Clone(IDispatch* target) override {
    return Call([&] { native().Clone(NativeArgument<CTournament>(target)); });
  }
  HRESULT STDMETHODCALLTYPE get_Level(short index, _CLevel** out) override {
    if (!out) return E_POINTER;
    return Call([&] { PutObject(out, native().Level(index)); });
  }
  RINGBOOK_COM_PROPERTY(Levels, short)
  RINGBOOK_COM_PROPERTY(Name, BSTR)
  RINGBOOK_COM_FILE_PERSISTENCE
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CTournament, CTournamentCom);

}  // namespace ringbook::com
