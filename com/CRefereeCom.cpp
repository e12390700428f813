#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "people/CReferee.h"

namespace ringbook::com {
namespace {

class CRefereeCom : public ComObject<CRefereeCom, CReferee, _CReferee> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_PROPERTY(ActiveRetired, short)
  RINGBOOK_COM_CLONE(CReferee)
  RINGBOOK_COM_PROPERTY(Era, short)
  RINGBOOK_COM_PROPERTY(FirstName, BSTR)
  RINGBOOK_COM_PROPERTY(Fouls, short)
  RINGBOOK_COM_GET(ID, LONG)
  RINGBOOK_COM_PROPERTY(Judgement, short)
  RINGBOOK_COM_PROPERTY(LastName, BSTR)
  RINGBOOK_COM_GET(Name, BSTR)
  RINGBOOK_COM_PROPERTY(Rating, short)
  RINGBOOK_COM_PROPERTY(Stoppage, short)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CReferee, CRefereeCom);

}  // namespace ringbook::com
