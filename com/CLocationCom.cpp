#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "people/CLocation.h"

namespace ringbook::com {
namespace {

class CLocationCom : public ComObject<CLocationCom, CLocation, _CLocation> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_PROPERTY(Arena, BSTR)
  RINGBOOK_COM_PROPERTY(City, BSTR)
  RINGBOOK_COM_CLONE(CLocation)
  RINGBOOK_COM_PROPERTY(Country, BSTR)
  RINGBOOK_COM_PROPERTY(Era, short)
  RINGBOOK_COM_PROPERTY(ID, LONG)
  RINGBOOK_COM_GET(Name, BSTR)
  RINGBOOK_COM_PROPERTY(PriceIndex, LONG)
  RINGBOOK_COM_PROPERTY(SiteRating, LONG)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CLocation, CLocationCom);

}  // namespace ringbook::com
