#include "people/CGroup.h"

namespace ringbook {

void CGroup::Clone(CGroup& target) const {
  target.SetID(id_);
  target.SetName(name_);
}

}  // namespace ringbook
