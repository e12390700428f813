#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "people/CTitle.h"

namespace ringbook::com {
namespace {

class CTitleCom : public ComObject<CTitleCom, CTitle, _CTitle> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_CLONE(CTitle)
  RINGBOOK_COM_GET(ID, LONG)
  RINGBOOK_COM_PROPERTY(Name, BSTR)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CTitle, CTitleCom);

}  // namespace ringbook::com
