#pragma once

#include <windows.h>

#include <oaidl.h>

#include "com/ComModule.h"

namespace ringbook::com {

/// IDispatch for the dual interface `Itf`, through the type library's type
/// information: names and dispatch IDs, argument conversion, optional
/// arguments and their defaults all come from the IDL. There is no
/// hand-written dispatch switch.
template <class Itf>
class DispatchImpl : public Itf {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    ITypeInfo* info = nullptr;
    const HRESULT hr = ComModule::TypeInfo(__uuidof(Itf), &info);
    if (FAILED(hr)) return hr;
    info->AddRef();
    *out = info;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    ITypeInfo* info = nullptr;
    const HRESULT hr = ComModule::TypeInfo(__uuidof(Itf), &info);
    if (FAILED(hr)) return hr;
    return info->GetIDsOfNames(names, count, ids);
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception,
                                   UINT* bad_argument) override {
    ITypeInfo* info = nullptr;
    const HRESULT hr = ComModule::TypeInfo(__uuidof(Itf), &info);
    if (FAILED(hr)) return hr;
    // A stale error object must not be taken for this call's.
    SetErrorInfo(0, nullptr);
    return info->Invoke(static_cast<Itf*>(this), id, flags, params, result, exception,
                        bad_argument);
  }
};

}  // namespace ringbook::com
