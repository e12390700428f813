#include "com/HostObject.h"

namespace ringbook::com {

std::shared_ptr<Object> MakeHostObject(IDispatch* object) {
  DispatchCaller probe(object);
  if (probe.Has(L"SortKey")) return std::make_shared<HostSortedObject>(object);
  return std::make_shared<HostObject>(object);
}

}  // namespace ringbook::com
