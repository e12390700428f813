#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <type_traits>
#include <typeinfo>

#include "com/ComModule.h"
#include "com/Convert.h"
#include "com/DispatchImpl.h"
#include "com/ErrorTranslation.h"
#include "com/NativeObject.h"
#include "com/ObjectIdentity.h"
#include "core/Object.h"

namespace ringbook::com {

/// Base of every COM class of the server (`Derived`, CRTP): a
/// reference-counted object that holds one library object (`Native`, shared
/// with the library) and answers
/// its default interface `Default`, any further dual interfaces `Extra...`
/// (each with its own IDispatch), ISupportErrorInfo and the private
/// INativeObject.
///
/// A class adds only its members, each a line that forwards to the library
/// object through `Call` or `Get`, so that every error leaves through the
/// one translation of ErrorTranslation.h.
template <class Derived, class NativeT, class Default, class... Extra>
class ComObject : public DispatchImpl<Default>,
                  public DispatchImpl<Extra>...,
                  public ISupportErrorInfo,
                  public INativeObject,
                  private IdentityEntry {
 public:
  using Native = NativeT;

  explicit ComObject(std::shared_ptr<Native> native) : native_(std::move(native)) {
    ComModule::ObjectCreated();
    ObjectIdentity::Register(Key(), this);
  }
  virtual ~ComObject() {
    ObjectIdentity::Unregister(Key(), this);
    ComModule::ObjectDestroyed();
  }
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  // ---- IUnknown ----
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(Default)) {
      *out = static_cast<Default*>(static_cast<DispatchImpl<Default>*>(this));
    } else if (iid == IID_ISupportErrorInfo) {
      *out = static_cast<ISupportErrorInfo*>(this);
    } else if (iid == IID_INativeObject) {
      *out = static_cast<INativeObject*>(this);
    } else {
      (void)((iid == __uuidof(Extra) &&
              (*out = static_cast<Extra*>(static_cast<DispatchImpl<Extra>*>(this)), true)) ||
             ...);
    }
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  // ---- ISupportErrorInfo ----
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
    const bool ours = iid == __uuidof(Default) || ((iid == __uuidof(Extra)) || ...);
    return ours ? S_OK : S_FALSE;
  }

  // ---- INativeObject ----
  std::shared_ptr<Object> STDMETHODCALLTYPE LibraryObject() override { return native_; }

  /// The class factory's way in: a new object around a new library object.
  static HRESULT NewInstance(REFIID iid, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if constexpr (std::is_abstract_v<Native>) {
      // Objects that only the library hands out (a recordset).
      return CLASS_E_CLASSNOTAVAILABLE;
    } else {
      Derived* object = nullptr;
      const HRESULT made =
          Translate(__uuidof(Default), [&] { object = new Derived(std::make_shared<Native>()); });
      if (FAILED(made)) return made;
      object->AddRef();
      const HRESULT hr = object->QueryInterface(iid, out);
      object->Release();
      return hr;
    }
  }
  /// The object for an existing library object of this class; nullptr when
  /// `object` is of another class. AddRef'd.
  static IDispatch* Wrap(const std::shared_ptr<Object>& object) {
    auto typed = std::dynamic_pointer_cast<Native>(object);
    if (!typed) return nullptr;
    Derived* wrapper = new Derived(std::move(typed));
    IDispatch* dispatch = static_cast<Default*>(static_cast<DispatchImpl<Default>*>(wrapper));
    dispatch->AddRef();
    return dispatch;
  }

 protected:
  Native& native() const { return *native_; }
  const std::shared_ptr<Native>& shared() const { return native_; }

  /// Runs a member's body with the errors translated.
  template <class F>
  HRESULT Call(F&& body) {
    return Translate(__uuidof(Default), std::forward<F>(body));
  }
  /// A property or function result: `*out` = the value `f` returns.
  template <class Out, class F>
  HRESULT Get(Out* out, F&& f) {
    if (!out) return E_POINTER;
    return Call([&] { Put(out, f()); });
  }

 private:
  const Object* Key() const { return static_cast<const Object*>(native_.get()); }

  bool TryAddRef() noexcept override {
    LONG count = references_;
    while (count > 0) {
      const LONG seen = InterlockedCompareExchange(&references_, count + 1, count);
      if (seen == count) return true;
      count = seen;
    }
    return false;
  }
  IUnknown* Unknown() noexcept override {
    return static_cast<Default*>(static_cast<DispatchImpl<Default>*>(this));
  }

  std::shared_ptr<Native> native_;
  LONG references_ = 0;
};

}  // namespace ringbook::com
