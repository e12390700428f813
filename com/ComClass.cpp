#include "com/ComClass.h"

#include <iterator>

namespace ringbook::com {

#define RINGBOOK_COM_CLASS(Name) extern const ComClass kComClass_##Name;
#include "com/ClassList.h"
#undef RINGBOOK_COM_CLASS

namespace {

const ComClass* const kClasses[] = {
#define RINGBOOK_COM_CLASS(Name) &kComClass_##Name,
#include "com/ClassList.h"
#undef RINGBOOK_COM_CLASS
};

}  // namespace

const ComClass* const* ComClasses(std::size_t& count) {
  count = std::size(kClasses);
  return kClasses;
}

const ComClass* FindComClass(REFCLSID clsid) {
  for (const ComClass* c : kClasses) {
    if (IsEqualCLSID(*c->clsid, clsid)) return c;
  }
  return nullptr;
}

}  // namespace ringbook::com
