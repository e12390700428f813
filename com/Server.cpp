// The DLL's four entry points and its DllMain.
#include <windows.h>

#include <objbase.h>

#include <new>

#include "com/ClassFactory.h"
#include "com/ComClass.h"
#include "com/ComModule.h"
#include "com/Registration.h"

using ringbook::com::ClassFactory;
using ringbook::com::ComModule;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    ComModule::SetInstance(instance);
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  const ringbook::com::ComClass* cls = ringbook::com::FindComClass(clsid);
  if (!cls) return CLASS_E_CLASSNOTAVAILABLE;
  auto* factory = new (std::nothrow) ClassFactory(*cls);
  if (!factory) return E_OUTOFMEMORY;
  const HRESULT hr = factory->QueryInterface(iid, out);
  factory->Release();
  return hr;
}

STDAPI DllCanUnloadNow() {
  return ComModule::CanUnload() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return ringbook::com::RegisterServer();
}

STDAPI DllUnregisterServer() {
  return ringbook::com::UnregisterServer();
}

}  // extern "C"
