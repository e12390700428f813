#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "people/CAnnouncer.h"

namespace ringbook::com {
namespace {

class CAnnouncerCom : public ComObject<CAnnouncerCom, CAnnouncer, _CAnnouncer> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_CLONE(CAnnouncer)
  RINGBOOK_COM_PROPERTY(Era, short)
  RINGBOOK_COM_PROPERTY(FirstName, BSTR)
  RINGBOOK_COM_GET(ID, LONG)
  RINGBOOK_COM_PROPERTY(LastName, BSTR)
  RINGBOOK_COM_GET(Name, BSTR)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CAnnouncer, CAnnouncerCom);

}  // namespace ringbook::com
