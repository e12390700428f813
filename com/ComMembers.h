#pragma once

// Members that forward one-to-one to the library object, for the classes'
// files: a property `Name` of COM type `ComType` is native().Name() and
// native().SetName(value), its value converted by Convert.h's Put and In.
// Use inside a class derived from ComObject.

#include "com/ComClass.h"
#include "com/ComObject.h"
#include "com/Convert.h"

/// A read-only property.
#define RINGBOOK_COM_GET(Name, ComType)                         \
  HRESULT STDMETHODCALLTYPE get_##Name(ComType* out) override { \
    return Get(out, [&] { return native().Name(); });           \
  }

/// A read-write property.
#define RINGBOOK_COM_PROPERTY(Name, ComType)                              \
  RINGBOOK_COM_GET(Name, ComType)                                         \
  HRESULT STDMETHODCALLTYPE put_##Name(ComType value) override {          \
    return Call([&] { native().Set##Name(::ringbook::com::In(value)); }); \
  }

/// `Clone(target)` of a record class whose library `Clone` takes the target
/// record by reference; the target must be of the same class (type mismatch
/// otherwise).
#define RINGBOOK_COM_CLONE(NativeClass)                                                         \
  HRESULT STDMETHODCALLTYPE Clone(IDispatch* target) override {                                 \
    return Call([&] { native().Clone(::ringbook::com::NativeArgument<NativeClass>(target)); }); \
  }

/// A property with an index argument (a fighter's number, a position).
#define RINGBOOK_COM_INDEXED(Name, ComType)                                      \
  HRESULT STDMETHODCALLTYPE get_##Name(short index, ComType* out) override {     \
    return Get(out, [&] { return native().Name(index); });                       \
  }                                                                              \
  HRESULT STDMETHODCALLTYPE put_##Name(short index, ComType value) override {    \
    return Call([&] { native().Set##Name(index, ::ringbook::com::In(value)); }); \
  }

/// A property holding a record object of class `NativeClass`: the get gives
/// the record itself (the same COM object while it lives), and both Let and
/// Set store the object handed in (Nothing stores an empty reference).
#define RINGBOOK_COM_OBJECT_PROPERTY(Name, ComInterface, NativeClass)                              \
  HRESULT STDMETHODCALLTYPE get_##Name(ComInterface** out) override {                              \
    if (!out) return E_POINTER;                                                                    \
    return Call([&] { ::ringbook::com::PutObject(out, native().Name()); });                        \
  }                                                                                                \
  HRESULT STDMETHODCALLTYPE put_##Name(IDispatch* value) override {                                \
    return Call([&] { native().Set##Name(::ringbook::com::SharedArgument<NativeClass>(value)); }); \
  }                                                                                                \
  HRESULT STDMETHODCALLTYPE putref_##Name(IDispatch* value) override {                             \
    return put_##Name(value);                                                                      \
  }

/// `SaveToFile(Filename)` and `LoadFromFile(Filename)` of a class that saves
/// itself to a file of its own (the library's StreamRecord).
#define RINGBOOK_COM_FILE_PERSISTENCE                                           \
  HRESULT STDMETHODCALLTYPE SaveToFile(BSTR filename) override {                \
    return Call([&] { native().SaveToFile(::ringbook::com::In(filename)); });   \
  }                                                                             \
  HRESULT STDMETHODCALLTYPE LoadFromFile(BSTR filename) override {              \
    return Call([&] { native().LoadFromFile(::ringbook::com::In(filename)); }); \
  }
