#pragma once

#include <windows.h>

namespace ringbook::com {

/// Self-registration, driven by the type library embedded in the DLL: every
/// creatable coclass gets
///   HKCR\CLSID\{clsid}                     = "Korvat_Ringbook.<Class>"
///   HKCR\CLSID\{clsid}\InprocServer32      = the DLL's path,
///                                            ThreadingModel = "Apartment"
///   HKCR\CLSID\{clsid}\ProgID              = "Korvat_Ringbook.<Class>"
///   HKCR\CLSID\{clsid}\TypeLib, \Version   = the library's ID and version
///   HKCR\Korvat_Ringbook.<Class>\CLSID     = {clsid}
/// and the type library itself is registered (RegisterTypeLib). A creatable
/// coclass that the server has no class for fails the registration
/// (SELFREG_E_CLASS) before anything is written.
HRESULT RegisterServer();

/// Removes what RegisterServer wrote, the type library's registration
/// included. Keys that are already gone are not an error.
HRESULT UnregisterServer();

}  // namespace ringbook::com
