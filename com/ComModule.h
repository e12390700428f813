#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace ringbook::com {

/// The server module: its handle, its live-object and lock counts (for
/// DllCanUnloadNow) and its type library, which every object's IDispatch
/// goes through.
class ComModule {
 public:
  static void SetInstance(HINSTANCE instance) noexcept;
  static HINSTANCE Instance() noexcept;
  /// Full path of the DLL.
  static std::wstring Path();

  static void ObjectCreated() noexcept;
  static void ObjectDestroyed() noexcept;
  static void Lock(bool lock) noexcept;
  /// True when no object lives and no class factory is locked.
  static bool CanUnload() noexcept;

  /// The type library embedded in the DLL (resource TYPELIB 1), loaded on
  /// first use and kept. Not loaded in DllMain: the loader lock forbids it.
  /// Returns an error HRESULT when it cannot be loaded; `*out` is AddRef'd.
  static HRESULT TypeLibrary(ITypeLib** out);
  /// The type information of one interface of the library, cached per IID
  /// for the life of the process. `*out` is not AddRef'd.
  static HRESULT TypeInfo(REFIID iid, ITypeInfo** out);
};

}  // namespace ringbook::com
