#include "com/DispatchCaller.h"

#include <dispex.h>

#include <vector>

#include "com/Convert.h"
#include "com/ErrorTranslation.h"

namespace ringbook::com {
namespace {

// Not in the mingw-w64 uuid library.
const IID kIID_IDispatchEx = {
    0xa6ef9860, 0xc720, 0x11d0, {0x93, 0x37, 0x00, 0xa0, 0xc9, 0x0d, 0xca, 0xa9}};

// Owns the VARIANTs of one call.
class VariantArray {
 public:
  explicit VariantArray(std::size_t n) : values_(n) {
    for (VARIANT& v : values_) VariantInit(&v);
  }
  ~VariantArray() {
    for (VARIANT& v : values_) VariantClear(&v);
  }
  VARIANT* data() { return values_.data(); }
  VARIANT& operator[](std::size_t i) { return values_[i]; }

 private:
  std::vector<VARIANT> values_;
};

std::wstring Lower(std::wstring s) {
  for (wchar_t& c : s) c = static_cast<wchar_t>(towlower(c));
  return s;
}

}  // namespace

DispatchCaller::DispatchCaller(IDispatch* object) : object_(object) {
  object_->AddRef();
}

DispatchCaller::~DispatchCaller() {
  object_->Release();
}

bool DispatchCaller::Lookup(const std::wstring& name, DISPID& id) {
  const std::wstring key = Lower(name);
  if (auto it = ids_.find(key); it != ids_.end()) {
    id = it->second;
    return true;
  }
  LPOLESTR names[1] = {const_cast<LPOLESTR>(name.c_str())};
  HRESULT hr = object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(hr)) {
    IDispatchEx* ex = nullptr;
    if (SUCCEEDED(object_->QueryInterface(kIID_IDispatchEx, reinterpret_cast<void**>(&ex)))) {
      BSTR bstr = SysAllocString(name.c_str());
      hr = ex->GetDispID(bstr, fdexNameCaseInsensitive, &id);
      SysFreeString(bstr);
      ex->Release();
    }
  }
  if (FAILED(hr)) return false;
  ids_[key] = id;
  return true;
}

DISPID DispatchCaller::Id(const std::wstring& name) {
  DISPID id = DISPID_UNKNOWN;
  if (!Lookup(name, id)) throw Error::Runtime(errnum::kObjectDoesNotSupport);
  return id;
}

bool DispatchCaller::Has(const std::wstring& name) {
  DISPID id = DISPID_UNKNOWN;
  return Lookup(name, id);
}

Variant DispatchCaller::Invoke(const std::wstring& name, WORD flags, const Variant* args,
                               std::size_t count, const Variant* value, std::size_t omitted) {
  const DISPID id = Id(name);
  // DISPPARAMS hold the arguments last to first; a property's new value
  // comes first, as the named argument DISPID_PROPERTYPUT.
  const std::size_t total = count + omitted + (value ? 1 : 0);
  VariantArray argv(total);
  std::size_t slot = 0;
  if (value) ToVariant(*value, &argv[slot++]);
  for (std::size_t i = 0; i < omitted; ++i, ++slot) {
    V_VT(&argv[slot]) = VT_ERROR;
    V_ERROR(&argv[slot]) = DISP_E_PARAMNOTFOUND;
  }
  for (std::size_t i = count; i-- > 0;) ToVariant(args[i], &argv[slot++]);
  DISPID put_id = DISPID_PROPERTYPUT;
  DISPPARAMS params{};
  params.rgvarg = total ? argv.data() : nullptr;
  params.cArgs = static_cast<UINT>(total);
  if (value) {
    params.rgdispidNamedArgs = &put_id;
    params.cNamedArgs = 1;
  }
  VARIANT result;
  VariantInit(&result);
  EXCEPINFO exception{};
  UINT bad_argument = 0;
  HRESULT hr = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params,
                               value ? nullptr : &result, &exception, &bad_argument);
  if (hr == DISP_E_MEMBERNOTFOUND && value && (flags & DISPATCH_PROPERTYPUTREF)) {
    // An object that only offers Let for this property.
    hr = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &params, nullptr,
                         &exception, &bad_argument);
  }
  if (FAILED(hr)) {
    Error error = ErrorFromCall(hr, &exception);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    VariantClear(&result);
    throw error;
  }
  Variant out;
  try {
    out = FromVariant(result);
  } catch (...) {
    VariantClear(&result);
    throw;
  }
  VariantClear(&result);
  return out;
}

Variant DispatchCaller::Call(const std::wstring& name, std::initializer_list<Variant> args,
                             std::size_t omitted) {
  return Invoke(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, args.begin(), args.size(), nullptr,
                omitted);
}

Variant DispatchCaller::Get(const std::wstring& name, std::initializer_list<Variant> args) {
  return Invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, args.begin(), args.size(), nullptr);
}

void DispatchCaller::Set(const std::wstring& name, std::initializer_list<Variant> args,
                         const Variant& value) {
  const WORD flags = value.IsObject() ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
  Invoke(name, flags, args.begin(), args.size(), &value);
}

std::string DispatchCaller::TypeName() {
  ITypeInfo* info = nullptr;
  if (FAILED(object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info)) || !info) return std::string();
  BSTR name = nullptr;
  std::string text;
  if (SUCCEEDED(info->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr)) && name) {
    text = Utf8(name);
  }
  SysFreeString(name);
  info->Release();
  return text;
}

}  // namespace ringbook::com
