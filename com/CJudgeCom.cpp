#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "people/CJudge.h"

namespace ringbook::com {
namespace {

class CJudgeCom : public ComObject<CJudgeCom, CJudge, _CJudge> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_PROPERTY(Bias, LONG)
  RINGBOOK_COM_CLONE(CJudge)
  RINGBOOK_COM_PROPERTY(Era, short)
  RINGBOOK_COM_PROPERTY(FirstName, BSTR)
  RINGBOOK_COM_GET(ID, LONG)
  RINGBOOK_COM_PROPERTY(LastName, BSTR)
  RINGBOOK_COM_GET(Name, BSTR)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CJudge, CJudgeCom);

}  // namespace ringbook::com
