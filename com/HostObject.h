#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>

#include "com/DispatchCaller.h"
#include "core/Object.h"
#include "schedule/ISortedObject.h"

namespace ringbook::com {

/// A library value that stands for an object of the host (or of another
/// component) handed to the server: it keeps the object, and becomes that
/// same object again when handed back.
class HostReference {
 public:
  virtual ~HostReference() = default;
  /// The host's object, not AddRef'd.
  virtual IDispatch* Dispatch() const = 0;
};

/// A host object of no class the library knows.
class HostObject : public Object, public HostReference {
 public:
  explicit HostObject(IDispatch* object) : caller_(object) {}
  IDispatch* Dispatch() const override { return caller_.Object(); }

 private:
  DispatchCaller caller_;
};

/// A host object with a `SortKey`: a sorted collection can order it. Its key
/// is read by name on every comparison, as a late-bound caller would.
class HostSortedObject : public ISortedObject, public HostReference {
 public:
  explicit HostSortedObject(IDispatch* object)
      : caller_(std::make_unique<DispatchCaller>(object)) {}
  IDispatch* Dispatch() const override { return caller_->Object(); }
  Variant SortKey() const override { return caller_->Get(L"SortKey"); }

 private:
  std::unique_ptr<DispatchCaller> caller_;  // lookups are cached: not const
};

/// The library value for a host object: a HostSortedObject when it has a
/// `SortKey` member, a HostObject otherwise.
std::shared_ptr<Object> MakeHostObject(IDispatch* object);

}  // namespace ringbook::com
