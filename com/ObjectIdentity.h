#pragma once

#include <windows.h>

#include <unknwn.h>

#include "core/Object.h"

namespace ringbook::com {

/// What the identity table keeps of a COM object: its IUnknown, and an
/// AddRef that refuses once the object's count has reached zero (it is
/// being destroyed and has not left the table yet).
class IdentityEntry {
 public:
  virtual bool TryAddRef() noexcept = 0;
  virtual IUnknown* Unknown() noexcept = 0;

 protected:
  ~IdentityEntry() = default;
};

/// Keeps one COM object per live library object, so that a record handed
/// out twice (a fighter's `History`, a collection's item) is the same object
/// to the caller (`Is` holds). Entries are weak: an object registers itself
/// when created and leaves when destroyed.
class ObjectIdentity {
 public:
  static void Register(const Object* native, IdentityEntry* object);
  static void Unregister(const Object* native, IdentityEntry* object);
  /// The COM object of `native`, AddRef'd; nullptr when there is none.
  static IUnknown* Find(const Object* native);
};

}  // namespace ringbook::com
