#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "people/CCornerman.h"

namespace ringbook::com {
namespace {

class CCornermanCom : public ComObject<CCornermanCom, CCornerman, _CCornerman> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_CLONE(CCornerman)
  RINGBOOK_COM_PROPERTY(CloseCuts, short)
  RINGBOOK_COM_PROPERTY(Discipline, short)
  RINGBOOK_COM_PROPERTY(Era, short)
  RINGBOOK_COM_PROPERTY(FirstName, BSTR)
  RINGBOOK_COM_GET(ID, LONG)
  RINGBOOK_COM_PROPERTY(LastName, BSTR)
  RINGBOOK_COM_PROPERTY(Motivate, short)
  RINGBOOK_COM_GET(Name, BSTR)
  RINGBOOK_COM_PROPERTY(NickName, BSTR)
  RINGBOOK_COM_PROPERTY(ReduceSwelling, short)
  RINGBOOK_COM_PROPERTY(Specialty, short)
  RINGBOOK_COM_PROPERTY(Strategy, short)
  RINGBOOK_COM_PROPERTY(TrainingOffense, short)
  RINGBOOK_COM_PROPERTY(TrainingDefense, short)
  RINGBOOK_COM_PROPERTY(TrainingAverage, short)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CCornerman, CCornermanCom);

}  // namespace ringbook::com
