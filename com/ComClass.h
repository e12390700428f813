#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <typeinfo>

#include "core/Object.h"

namespace ringbook::com {

/// One COM class of the server, as its class factory and the conversions
/// of Convert.h need it. Each class's file defines one with
/// RINGBOOK_COM_CLASS_ENTRY, and ClassList.h lists them all.
struct ComClass {
  const CLSID* clsid;
  const wchar_t* name;
  /// The library class the COM class holds.
  const std::type_info* native;
  /// A new object around a new library object, as IID `iid`.
  HRESULT (*create)(REFIID iid, void** out);
  /// The object for an existing library object; nullptr for another class.
  IDispatch* (*wrap)(const std::shared_ptr<Object>& object);
};

/// Every class of ClassList.h, in its order.
const ComClass* const* ComClasses(std::size_t& count);
/// The class with `clsid`; nullptr when the server has none.
const ComClass* FindComClass(REFCLSID clsid);

}  // namespace ringbook::com

/// Defines the entry of the COM class `Name` (coclass and CLSID_Name of the
/// IDL) whose implementation is `Wrapper`.
#define RINGBOOK_COM_CLASS_ENTRY(Name, Wrapper)               \
  extern const ::ringbook::com::ComClass kComClass_##Name = { \
      &CLSID_##Name, L## #Name, &typeid(Wrapper::Native), &Wrapper::NewInstance, &Wrapper::Wrap}
