#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "fighters/CHistory.h"

namespace ringbook::com {
namespace {

class CHistoryCom : public ComObject<CHistoryCom, CHistory, _CHistory> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_PROPERTY(Decision, BSTR)
  RINGBOOK_COM_PROPERTY(Division, BSTR)
  RINGBOOK_COM_PROPERTY(FightDate, DATE)
  RINGBOOK_COM_PROPERTY(LastRound, short)
  RINGBOOK_COM_PROPERTY(Opponent, BSTR)
  RINGBOOK_COM_PROPERTY(ScheduledRounds, short)
  RINGBOOK_COM_PROPERTY(WonLost, BSTR)
  RINGBOOK_COM_PROPERTY(Notes, BSTR)

  // An empty target is left empty, as the library does.
  HRESULT STDMETHODCALLTYPE Clone(IDispatch* target) override {
    return Call([&] { native().Clone(SharedArgument<CHistory>(target)); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CHistory, CHistoryCom);

}  // namespace ringbook::com
