#pragma once

#include <windows.h>

#include <oaidl.h>

#include <initializer_list>
#include <map>
#include <string>

#include "core/Variant.h"

namespace ringbook::com {

/// Calls the members of a host's object by name, as a late-bound caller
/// does: list controls, persistable objects and sorted items of the host.
///
/// A name is looked up with IDispatch::GetIDsOfNames and, when the object
/// does not answer that (some script engines leave it out), with
/// IDispatchEx::GetDispID without regard to case; IDs are kept per name.
/// Failures of the object reach the caller as `ringbook::Error` with the
/// number, source and description the object gave (ErrorFromCall).
class DispatchCaller {
 public:
  /// Keeps a reference to `object`, which must not be null.
  explicit DispatchCaller(IDispatch* object);
  ~DispatchCaller();
  DispatchCaller(const DispatchCaller&) = delete;
  DispatchCaller& operator=(const DispatchCaller&) = delete;

  IDispatch* Object() const { return object_; }

  /// True when the object has a member of this name.
  bool Has(const std::wstring& name);

  /// Calls a method (or reads a property: the flags allow both) with the
  /// arguments in their written order; returns its result (Empty for none).
  /// `omitted` optional arguments follow them, passed as Automation's
  /// "missing" value, so that an object whose member has no optional
  /// arguments (a script's) still gets every parameter.
  Variant Call(const std::wstring& name, std::initializer_list<Variant> args = {},
               std::size_t omitted = 0);
  /// Reads a property, indexed when arguments are given.
  Variant Get(const std::wstring& name, std::initializer_list<Variant> args = {});
  /// Sets a property: `args` are the indexes, `value` the new value. An
  /// object value is assigned by reference (as `Set` does).
  void Set(const std::wstring& name, std::initializer_list<Variant> args, const Variant& value);

  /// The object's class name as its type information gives it ("" when it
  /// has none).
  std::string TypeName();

 private:
  /// The member's ID; 438 when there is none.
  DISPID Id(const std::wstring& name);
  bool Lookup(const std::wstring& name, DISPID& id);
  Variant Invoke(const std::wstring& name, WORD flags, const Variant* args, std::size_t count,
                 const Variant* value, std::size_t omitted = 0);

  IDispatch* object_;
  std::map<std::wstring, DISPID> ids_;
};

}  // namespace ringbook::com
