#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/Object.h"
#include "core/Variant.h"
#include "store/VariantArray2D.h"

namespace ringbook::com {

/// Conversions between the library's values (UTF-8 text, `Variant`) and
/// Automation's (BSTR, VARIANT). Failures throw `ringbook::Error` with the
/// runtime's numbers, as a late-bound caller would meet them.

std::string Utf8(const wchar_t* text, std::size_t length);
std::string Utf8(BSTR text);
std::string Utf8(const std::wstring& text);
std::wstring Wide(std::string_view utf8);
/// A new BSTR; throws E_OUTOFMEMORY as an error when none can be had.
BSTR NewBstr(std::string_view utf8);

inline VARIANT_BOOL ComBool(bool value) {
  return value ? VARIANT_TRUE : VARIANT_FALSE;
}

/// True for an optional VARIANT argument that the caller left out.
bool IsMissing(const VARIANT& value);

/// A VARIANT as a library value. By-reference values are read through;
/// integers of other widths and currency become Long or Double; an object is
/// the library object behind one of this server's objects, or else a
/// `HostObject` holding the caller's object. Arrays and other kinds fail
/// with type mismatch (13). A missing optional argument reads as Empty.
Variant FromVariant(const VARIANT& value);

/// A library value as a new VARIANT in `*out` (which is overwritten, not
/// cleared). A library object becomes this server's object for it; a host
/// object becomes the host's own object again; an empty reference becomes
/// Nothing.
void ToVariant(const Variant& value, VARIANT* out);

/// Writes `value` into an [in, out] VARIANT argument: into the caller's own
/// variable when the argument refers to it (VT_BYREF | VT_VARIANT), else
/// into the argument itself. The old value is released.
void AssignInOut(VARIANT* target, const Variant& value);

/// Writes a two-dimensional array, with its own bounds, into an [in, out]
/// VARIANT argument as a SAFEARRAY of VARIANTs (VT_ARRAY | VT_VARIANT),
/// rows first, as the runtime's ReDim makes it.
void AssignArray(VARIANT* target, const VariantArray2D& array);

/// The IDispatch of this server's object for `object` (the same COM object
/// for the same library object while it lives), or the host's own object
/// for a `HostObject`; nullptr for nullptr. AddRef'd. Type mismatch when the
/// object's class has no COM class.
IDispatch* ToDispatch(const std::shared_ptr<Object>& object);

/// The library object behind an object handed in by a caller: this server's
/// objects give their own, any other object a `HostObject`. nullptr for a
/// null pointer.
std::shared_ptr<Object> FromUnknown(IUnknown* unknown);

/// The library object of class T behind an object argument: type mismatch
/// (13) when it is another class, object not set (91) when null.
template <class T>
T& NativeArgument(IUnknown* unknown) {
  std::shared_ptr<Object> object = FromUnknown(unknown);
  if (!object) throw Error::ObjectNotSet();
  auto* typed = dynamic_cast<T*>(object.get());
  if (!typed) throw Error::TypeMismatch();
  return *typed;
}

/// As NativeArgument, keeping a reference.
template <class T>
std::shared_ptr<T> SharedArgument(IUnknown* unknown) {
  std::shared_ptr<Object> object = FromUnknown(unknown);
  if (!object) return nullptr;
  auto typed = std::dynamic_pointer_cast<T>(object);
  if (!typed) throw Error::TypeMismatch();
  return typed;
}

/// Writes an object result: `*out` receives this server's object for
/// `object` as the interface `Itf`, or nullptr.
template <class Itf>
void PutObject(Itf** out, const std::shared_ptr<Object>& object) {
  *out = nullptr;
  IDispatch* dispatch = ToDispatch(object);
  if (!dispatch) return;
  const HRESULT hr = dispatch->QueryInterface(__uuidof(Itf), reinterpret_cast<void**>(out));
  dispatch->Release();
  if (FAILED(hr)) throw Error::TypeMismatch();
}

// ---- results of properties and functions ----

inline void Put(short* out, int16_t value) {
  *out = value;
}
inline void Put(LONG* out, int32_t value) {
  *out = value;
}
inline void Put(unsigned char* out, uint8_t value) {
  *out = value;
}
inline void Put(float* out, float value) {
  *out = value;
}
inline void Put(double* out, double value) {
  *out = value;
}
// VARIANT_BOOL is a short: a bool result picks this overload.
inline void Put(VARIANT_BOOL* out, bool value) {
  *out = ComBool(value);
}
inline void Put(BSTR* out, std::string_view value) {
  *out = NewBstr(value);
}
inline void Put(VARIANT* out, const Variant& value) {
  ToVariant(value, out);
}
template <class E, class = std::enable_if_t<std::is_enum_v<E>>>
inline void Put(E* out, E value) {
  *out = value;
}

// ---- arguments ----

/// Also a VARIANT_BOOL (a short): VARIANT_TRUE, -1, converts to true.
inline int16_t In(short value) {
  return value;
}
inline int32_t In(LONG value) {
  return value;
}
inline uint8_t In(unsigned char value) {
  return value;
}
inline float In(float value) {
  return value;
}
inline double In(double value) {
  return value;
}
inline std::string In(BSTR value) {
  return Utf8(value);
}
inline Variant In(const VARIANT& value) {
  return FromVariant(value);
}

}  // namespace ringbook::com
