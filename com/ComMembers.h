#pragma once

// Members that forward one-to-one to the library object, for the classes'
// files: a property `Name` of COM type `ComType` is native().Name() and
// native().SetName(value), its value converted by Convert.h's Put and In.
// Use inside a class derived from ComObject.

#include "com/ComClass.h"
#include "com/ComObject.h"
#include "com/Convert.h"

/// A read-only property.
#define RINGBOOK_COM_GET(Name, ComType)                                 \
  HRESULT STDMETHODCALLTYPE get_##Name(ComType* out) override {         \
    return Get(out, [&] { return native().Name(); });                   \
  }

/// A read-write property.
#define RINGBOOK_COM_PROPERTY(Name, ComType)                            \
  RINGBOOK_COM_GET(Name, ComType)                                       \
  HRESULT STDMETHODCALLTYPE put_##Name(ComType value) override {        \
    return Call([&] { native().Set##Name(::ringbook::com::In(value)); }); \
  }

/// `Clone(target)` of a record class whose library `Clone` takes the target
/// record by reference; the target must be of the same class (type mismatch
/// otherwise).
#define RINGBOOK_COM_CLONE(NativeClass)                       \
  HRESULT STDMETHODCALLTYPE Clone(IDispatch* target) override {          \
    return Call([&] {                                                       \
      native().Clone(::ringbook::com::NativeArgument<NativeClass>(target)); \
    });                                                                     \
  }
