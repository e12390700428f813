#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "people/CGroup.h"

namespace ringbook::com {
namespace {

class CGroupCom : public ComObject<CGroupCom, CGroup, _CGroup> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_CLONE(CGroup)
  RINGBOOK_COM_GET(ID, LONG)
  RINGBOOK_COM_PROPERTY(Name, BSTR)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CGroup, CGroupCom);

}  // namespace ringbook::com
