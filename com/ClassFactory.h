#pragma once

#include <windows.h>

#include <unknwn.h>

#include "com/ComClass.h"

namespace ringbook::com {

/// The class factory of one COM class: creates its objects, keeps the
/// module loaded while locked.
class ClassFactory : public IClassFactory {
 public:
  explicit ClassFactory(const ComClass& cls);
  virtual ~ClassFactory();
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  const ComClass& class_;
  LONG references_ = 1;
};

}  // namespace ringbook::com
