#include "com/ErrorTranslation.h"

#include <string>

#include "com/Convert.h"

namespace ringbook::com {
namespace {

constexpr uint32_t kControlFacilityBase = 0x800A0000u;

// A BSTR released at scope end.
struct BstrHolder {
  BSTR value = nullptr;
  ~BstrHolder() { SysFreeString(value); }
};

std::string TextOfSystemError(HRESULT hr) {
  wchar_t* buffer = nullptr;
  const DWORD n = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(hr), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
  std::string text;
  if (n != 0 && buffer) {
    text = Utf8(buffer, n);
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n' || text.back() == ' ')) {
      text.pop_back();
    }
  }
  LocalFree(buffer);
  return text.empty() ? std::string("Automation error") : text;
}

}  // namespace

HRESULT HresultFromNumber(int32_t number) noexcept {
  if (number < 0) return static_cast<HRESULT>(number);
  if (number == 0) return E_FAIL;
  return static_cast<HRESULT>(kControlFacilityBase | (static_cast<uint32_t>(number) & 0xFFFFu));
}

int32_t NumberFromHresult(HRESULT hr) noexcept {
  if ((static_cast<uint32_t>(hr) & 0xFFFF0000u) == kControlFacilityBase) return HRESULT_CODE(hr);
  return static_cast<int32_t>(hr);
}

HRESULT ReportError(const Error& error, REFIID iid) noexcept {
  const HRESULT hr = HresultFromNumber(error.Number());
  ICreateErrorInfo* create = nullptr;
  if (SUCCEEDED(CreateErrorInfo(&create))) {
    create->SetGUID(iid);
    try {
      std::wstring source = Wide(error.Source());
      std::wstring description = Wide(error.Description());
      create->SetSource(source.data());
      create->SetDescription(description.data());
    } catch (...) {
      // Out of memory while copying the texts: the HRESULT still tells.
    }
    IErrorInfo* info = nullptr;
    if (SUCCEEDED(create->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)))) {
      SetErrorInfo(0, info);
      info->Release();
    }
    create->Release();
  }
  return hr;
}

Error ErrorFromCall(HRESULT hr, EXCEPINFO* info) {
  switch (hr) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
      return Error::Runtime(errnum::kObjectDoesNotSupport);
    case DISP_E_TYPEMISMATCH:
      return Error::TypeMismatch();
    case DISP_E_OVERFLOW:
      return Error::Overflow();
    case DISP_E_BADPARAMCOUNT:
      return Error(450, std::string(kComponentName),
                   "Wrong number of arguments or invalid property assignment");
    case DISP_E_PARAMNOTOPTIONAL:
      return Error(449, std::string(kComponentName), "Argument not optional");
    default:
      break;
  }
  if (hr == DISP_E_EXCEPTION && info) {
    if (info->pfnDeferredFillIn) info->pfnDeferredFillIn(info);
    const int32_t number = info->scode != 0 ? NumberFromHresult(info->scode) : info->wCode;
    std::string source = info->bstrSource ? Utf8(info->bstrSource) : std::string();
    std::string description = info->bstrDescription ? Utf8(info->bstrDescription) : std::string();
    if (description.empty()) description = RuntimeErrorText(number);
    return Error(number, std::move(source), std::move(description));
  }
  // A script object's own raise comes back as its plain HRESULT; its texts,
  // if any, are in the thread's error object.
  const int32_t number = NumberFromHresult(hr);
  std::string source;
  std::string description;
  IErrorInfo* error_info = nullptr;
  if (GetErrorInfo(0, &error_info) == S_OK && error_info) {
    BstrHolder s, d;
    if (SUCCEEDED(error_info->GetSource(&s.value)) && s.value) source = Utf8(s.value);
    if (SUCCEEDED(error_info->GetDescription(&d.value)) && d.value) description = Utf8(d.value);
    error_info->Release();
  }
  if (description.empty()) {
    description = number > 0 && number <= 0xFFFF ? RuntimeErrorText(number) : TextOfSystemError(hr);
  }
  return Error(number, std::move(source), std::move(description));
}

}  // namespace ringbook::com
