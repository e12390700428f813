#include "people/CTitle.h"

namespace ringbook {

void CTitle::Clone(CTitle& target) const {
  target.SetID(id_);
  target.SetName(name_);
}

}  // namespace ringbook
