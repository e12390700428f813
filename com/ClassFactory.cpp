#include "com/ClassFactory.h"

#include "com/ComModule.h"

namespace ringbook::com {

ClassFactory::ClassFactory(const ComClass& cls) : class_(cls) {
  ComModule::ObjectCreated();
}

ClassFactory::~ClassFactory() {
  ComModule::ObjectDestroyed();
}

HRESULT ClassFactory::QueryInterface(REFIID iid, void** out) {
  if (!out) return E_POINTER;
  if (iid == IID_IUnknown || iid == IID_IClassFactory) {
    *out = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  *out = nullptr;
  return E_NOINTERFACE;
}

ULONG ClassFactory::AddRef() {
  return static_cast<ULONG>(InterlockedIncrement(&references_));
}

ULONG ClassFactory::Release() {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  return class_.create(iid, out);
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  ComModule::Lock(lock != FALSE);
  return S_OK;
}

}  // namespace ringbook::com
