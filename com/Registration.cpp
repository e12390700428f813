#include "com/Registration.h"

#include <oaidl.h>
#include <olectl.h>

#include <string>
#include <vector>

#include "Korvat_Ringbook.h"
#include "com/ComClass.h"
#include "com/ComModule.h"

namespace ringbook::com {
namespace {

struct Coclass {
  CLSID clsid;
  std::wstring name;
};

struct LibraryInfo {
  std::wstring name;
  std::wstring libid;
  std::wstring version;
  SYSKIND syskind = SYS_WIN32;
  WORD major = 0;
  WORD minor = 0;
  GUID guid{};
  std::vector<Coclass> coclasses;
};

std::wstring GuidText(REFGUID guid) {
  wchar_t text[40] = {};
  StringFromGUID2(guid, text, 40);
  return text;
}

HRESULT ReadLibrary(ITypeLib* library, LibraryInfo& info) {
  BSTR name = nullptr;
  HRESULT hr = library->GetDocumentation(-1, &name, nullptr, nullptr, nullptr);
  if (FAILED(hr)) return hr;
  info.name.assign(name, SysStringLen(name));
  SysFreeString(name);

  TLIBATTR* attr = nullptr;
  hr = library->GetLibAttr(&attr);
  if (FAILED(hr)) return hr;
  info.guid = attr->guid;
  info.libid = GuidText(attr->guid);
  info.major = attr->wMajorVerNum;
  info.minor = attr->wMinorVerNum;
  info.syskind = attr->syskind;
  info.version = std::to_wstring(attr->wMajorVerNum) + L"." + std::to_wstring(attr->wMinorVerNum);
  library->ReleaseTLibAttr(attr);

  const UINT count = library->GetTypeInfoCount();
  for (UINT i = 0; i < count; ++i) {
    TYPEKIND kind;
    if (FAILED(library->GetTypeInfoType(i, &kind)) || kind != TKIND_COCLASS) continue;
    ITypeInfo* type = nullptr;
    if (FAILED(hr = library->GetTypeInfo(i, &type))) return hr;
    TYPEATTR* type_attr = nullptr;
    if (FAILED(hr = type->GetTypeAttr(&type_attr))) {
      type->Release();
      return hr;
    }
    const bool creatable = (type_attr->wTypeFlags & TYPEFLAG_FCANCREATE) != 0;
    const CLSID clsid = type_attr->guid;
    type->ReleaseTypeAttr(type_attr);
    type->Release();
    if (!creatable) continue;
    BSTR class_name = nullptr;
    if (FAILED(hr = library->GetDocumentation(static_cast<INT>(i), &class_name, nullptr, nullptr,
                                              nullptr))) {
      return hr;
    }
    info.coclasses.push_back({clsid, std::wstring(class_name, SysStringLen(class_name))});
    SysFreeString(class_name);
  }
  return S_OK;
}

HRESULT SetValue(const std::wstring& key, const wchar_t* value_name, const std::wstring& data) {
  HKEY handle = nullptr;
  LONG rc = RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                            KEY_SET_VALUE, nullptr, &handle, nullptr);
  if (rc != ERROR_SUCCESS) return HRESULT_FROM_WIN32(rc);
  rc = RegSetValueExW(handle, value_name, 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                      static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(handle);
  return rc == ERROR_SUCCESS ? S_OK : HRESULT_FROM_WIN32(rc);
}

HRESULT DeleteTree(const std::wstring& key) {
  const LONG rc = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
  if (rc == ERROR_SUCCESS || rc == ERROR_FILE_NOT_FOUND) {
    RegDeleteKeyW(HKEY_CLASSES_ROOT, key.c_str());
    return S_OK;
  }
  return HRESULT_FROM_WIN32(rc);
}

// Reads the embedded library; `library` is AddRef'd on success.
HRESULT Load(ITypeLib*& library, LibraryInfo& info) {
  HRESULT hr = ComModule::TypeLibrary(&library);
  if (FAILED(hr)) return hr;
  hr = ReadLibrary(library, info);
  if (FAILED(hr)) {
    library->Release();
    library = nullptr;
  }
  return hr;
}

}  // namespace

HRESULT RegisterServer() {
  ITypeLib* library = nullptr;
  LibraryInfo info;
  HRESULT hr = Load(library, info);
  if (FAILED(hr)) return hr;
  for (const Coclass& c : info.coclasses) {
    if (!FindComClass(c.clsid)) {
      library->Release();
      return SELFREG_E_CLASS;
    }
  }
  const std::wstring path = ComModule::Path();
  for (const Coclass& c : info.coclasses) {
    const std::wstring progid = info.name + L"." + c.name;
    const std::wstring key = L"CLSID\\" + GuidText(c.clsid);
    const std::pair<std::wstring, std::pair<const wchar_t*, std::wstring>> values[] = {
        {key, {nullptr, progid}},
        {key + L"\\InprocServer32", {nullptr, path}},
        {key + L"\\InprocServer32", {L"ThreadingModel", L"Apartment"}},
        {key + L"\\ProgID", {nullptr, progid}},
        {key + L"\\TypeLib", {nullptr, info.libid}},
        {key + L"\\Version", {nullptr, info.version}},
        {progid, {nullptr, progid}},
        {progid + L"\\CLSID", {nullptr, GuidText(c.clsid)}},
    };
    for (const auto& [k, v] : values) {
      if (FAILED(hr = SetValue(k, v.first, v.second))) {
        library->Release();
        return SELFREG_E_CLASS;
      }
    }
  }
  std::wstring module_path = path;
  hr = RegisterTypeLib(library, module_path.data(), nullptr);
  library->Release();
  return FAILED(hr) ? SELFREG_E_TYPELIB : S_OK;
}

HRESULT UnregisterServer() {
  ITypeLib* library = nullptr;
  LibraryInfo info;
  HRESULT hr = Load(library, info);
  if (FAILED(hr)) return hr;
  library->Release();
  HRESULT result = S_OK;
  for (const Coclass& c : info.coclasses) {
    if (FAILED(DeleteTree(L"CLSID\\" + GuidText(c.clsid)))) result = SELFREG_E_CLASS;
    if (FAILED(DeleteTree(info.name + L"." + c.name))) result = SELFREG_E_CLASS;
  }
  hr = UnRegisterTypeLib(info.guid, info.major, info.minor, LOCALE_NEUTRAL, info.syskind);
  if (FAILED(hr) && hr != TYPE_E_REGISTRYACCESS && hr != TYPE_E_LIBNOTREGISTERED) {
    result = SELFREG_E_TYPELIB;
  }
  return result;
}

}  // namespace ringbook::com
