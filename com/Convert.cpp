#include "com/Convert.h"

#include "com/ComClass.h"
#include "com/HostObject.h"
#include "com/NativeObject.h"
#include "com/ObjectIdentity.h"

namespace ringbook::com {
namespace {

// Releases a VARIANT at scope end.
struct VariantHolder {
  VARIANT value;
  VariantHolder() { VariantInit(&value); }
  ~VariantHolder() { VariantClear(&value); }
};

Variant FromCoerced(const VARIANT& value, VARTYPE to) {
  VariantHolder converted;
  const HRESULT hr = VariantChangeType(&converted.value, const_cast<VARIANT*>(&value), 0, to);
  if (hr == DISP_E_OVERFLOW) throw Error::Overflow();
  if (FAILED(hr)) throw Error::TypeMismatch();
  return FromVariant(converted.value);
}

}  // namespace

std::string Utf8(const wchar_t* text, std::size_t length) {
  if (!text || length == 0) return std::string();
  const int n =
      WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(length), nullptr, 0, nullptr, nullptr);
  std::string out(static_cast<std::size_t>(n), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(length), out.data(), n, nullptr, nullptr);
  return out;
}

std::string Utf8(BSTR text) {
  return Utf8(text, text ? SysStringLen(text) : 0);
}

std::string Utf8(const std::wstring& text) {
  return Utf8(text.data(), text.size());
}

std::wstring Wide(std::string_view utf8) {
  if (utf8.empty()) return std::wstring();
  const int n =
      MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
  std::wstring out(static_cast<std::size_t>(n), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), out.data(), n);
  return out;
}

BSTR NewBstr(std::string_view utf8) {
  const std::wstring wide = Wide(utf8);
  BSTR out = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (!out) throw std::bad_alloc();
  return out;
}

bool IsMissing(const VARIANT& value) {
  return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

Variant FromVariant(const VARIANT& value) {
  if (V_VT(&value) & VT_ARRAY) throw Error::TypeMismatch();
  if (V_VT(&value) & VT_BYREF) {
    VariantHolder copy;
    if (FAILED(VariantCopyInd(&copy.value, const_cast<VARIANT*>(&value)))) {
      throw Error::TypeMismatch();
    }
    return FromVariant(copy.value);
  }
  switch (V_VT(&value)) {
    case VT_EMPTY:
      return Variant();
    case VT_NULL:
      return Variant::Null();
    case VT_BOOL:
      return Variant(V_BOOL(&value) != VARIANT_FALSE);
    case VT_UI1:
      return Variant(static_cast<uint8_t>(V_UI1(&value)));
    case VT_I2:
      return Variant(static_cast<int16_t>(V_I2(&value)));
    case VT_I4:
      return Variant(static_cast<int32_t>(V_I4(&value)));
    case VT_R4:
      return Variant(V_R4(&value));
    case VT_R8:
      return Variant(V_R8(&value));
    case VT_DATE:
      return Variant::FromDate(V_DATE(&value));
    case VT_BSTR:
      return Variant(Utf8(V_BSTR(&value)));
    case VT_DISPATCH:
      return Variant(FromUnknown(V_DISPATCH(&value)));
    case VT_UNKNOWN:
      return Variant(FromUnknown(V_UNKNOWN(&value)));
    case VT_ERROR:
      if (V_ERROR(&value) == DISP_E_PARAMNOTFOUND) return Variant();
      throw Error::TypeMismatch();
    case VT_I1:
    case VT_UI2:
    case VT_INT:
      return FromCoerced(value, VT_I4);
    case VT_UI4:
    case VT_UINT:
    case VT_I8:
    case VT_UI8:
    case VT_CY:
    case VT_DECIMAL:
      // Whole numbers within Long stay whole; the rest become Double.
      try {
        return FromCoerced(value, VT_I4);
      } catch (const Error&) {
        return FromCoerced(value, VT_R8);
      }
    default:
      throw Error::TypeMismatch();
  }
}

void ToVariant(const Variant& value, VARIANT* out) {
  VariantInit(out);
  switch (value.Type()) {
    case VarType::Empty:
      return;
    case VarType::Null:
      V_VT(out) = VT_NULL;
      return;
    case VarType::Boolean:
      V_VT(out) = VT_BOOL;
      V_BOOL(out) = ComBool(value.ToBool());
      return;
    case VarType::Byte:
      V_VT(out) = VT_UI1;
      V_UI1(out) = value.ToByte();
      return;
    case VarType::Integer:
      V_VT(out) = VT_I2;
      V_I2(out) = value.ToInteger();
      return;
    case VarType::Long:
      V_VT(out) = VT_I4;
      V_I4(out) = value.ToLong();
      return;
    case VarType::Single:
      V_VT(out) = VT_R4;
      V_R4(out) = value.ToSingle();
      return;
    case VarType::Double:
      V_VT(out) = VT_R8;
      V_R8(out) = value.ToDouble();
      return;
    case VarType::Date:
      V_VT(out) = VT_DATE;
      V_DATE(out) = value.ToDate();
      return;
    case VarType::String: {
      BSTR text = NewBstr(value.ToString());
      V_VT(out) = VT_BSTR;
      V_BSTR(out) = text;
      return;
    }
    case VarType::Object: {
      IDispatch* dispatch = ToDispatch(value.ToObject());
      V_VT(out) = VT_DISPATCH;
      V_DISPATCH(out) = dispatch;
      return;
    }
  }
  throw Error::TypeMismatch();
}

namespace {

VARIANT* InOutSlot(VARIANT* target) {
  return V_VT(target) == (VT_BYREF | VT_VARIANT) ? V_VARIANTREF(target) : target;
}

}  // namespace

void AssignInOut(VARIANT* target, const Variant& value) {
  VARIANT fresh;
  ToVariant(value, &fresh);
  VARIANT* slot = InOutSlot(target);
  VariantClear(slot);
  *slot = fresh;
}

void AssignArray(VARIANT* target, const VariantArray2D& array) {
  SAFEARRAYBOUND bounds[2];
  for (int d = 0; d < 2; ++d) {
    bounds[d].lLbound = array.LBound(d + 1);
    bounds[d].cElements = static_cast<ULONG>(array.UBound(d + 1) - array.LBound(d + 1) + 1);
  }
  SAFEARRAY* made = SafeArrayCreate(VT_VARIANT, 2, bounds);
  if (!made) throw std::bad_alloc();
  try {
    for (int32_t r = array.LBound(1); r <= array.UBound(1); ++r) {
      for (int32_t c = array.LBound(2); c <= array.UBound(2); ++c) {
        LONG index[2] = {r, c};
        VariantHolder element;
        ToVariant(array(r, c), &element.value);
        const HRESULT hr = SafeArrayPutElement(made, index, &element.value);
        if (FAILED(hr)) throw Error::Runtime(errnum::kSubscriptOutOfRange);
      }
    }
  } catch (...) {
    SafeArrayDestroy(made);
    throw;
  }
  VARIANT* slot = InOutSlot(target);
  VariantClear(slot);
  V_VT(slot) = VT_ARRAY | VT_VARIANT;
  V_ARRAY(slot) = made;
}

IDispatch* ToDispatch(const std::shared_ptr<Object>& object) {
  if (!object) return nullptr;
  if (auto* host = dynamic_cast<HostReference*>(object.get())) {
    host->Dispatch()->AddRef();
    return host->Dispatch();
  }
  if (IUnknown* existing = ObjectIdentity::Find(object.get())) {
    IDispatch* dispatch = nullptr;
    existing->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch));
    existing->Release();
    if (dispatch) return dispatch;
  }
  std::size_t count = 0;
  const ComClass* const* classes = ComClasses(count);
  // The class made for exactly this library class first, then one made for
  // a base of it.
  const std::type_info& type = typeid(*object);
  for (std::size_t i = 0; i < count; ++i) {
    if (*classes[i]->native == type) {
      if (IDispatch* d = classes[i]->wrap(object)) return d;
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (IDispatch* d = classes[i]->wrap(object)) return d;
  }
  throw Error::TypeMismatch();
}

std::shared_ptr<Object> FromUnknown(IUnknown* unknown) {
  if (!unknown) return nullptr;
  INativeObject* native = nullptr;
  if (SUCCEEDED(unknown->QueryInterface(IID_INativeObject, reinterpret_cast<void**>(&native)))) {
    std::shared_ptr<Object> object = native->LibraryObject();
    native->Release();
    return object;
  }
  IDispatch* dispatch = nullptr;
  if (FAILED(unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch)))) {
    throw Error::TypeMismatch();
  }
  std::shared_ptr<Object> object;
  try {
    object = MakeHostObject(dispatch);
  } catch (...) {
    dispatch->Release();
    throw;
  }
  dispatch->Release();
  return object;
}

}  // namespace ringbook::com
