// A C++ host of the COM server, calling through the vtables of the
// interfaces that Korvat_Ringbook.idl generates, as an early-bound client
// does. It uses nothing but the published interfaces, the registry and the
// DLL's resources, and prints "ok ..." / "FAIL ..." lines and a closing
// "DONE failures=N".
//
//   com_client.exe PATH_OF_Korvat_Ringbook.dll
#include <windows.h>

#include <dispex.h>
#include <objbase.h>
#include <oleauto.h>

#include <cstdio>
#include <cwchar>
#include <string>
#include <vector>

#include "Korvat_Ringbook.h"
#include "store/DefaultData.h"

namespace {

int g_failures = 0;
int g_passed = 0;

void Report(bool ok, const char* name, const std::string& detail = std::string()) {
  if (ok) {
    ++g_passed;
    std::printf("ok %s\n", name);
  } else {
    ++g_failures;
    std::printf("FAIL %s%s%s\n", name, detail.empty() ? "" : ": ", detail.c_str());
  }
}

std::string Narrow(const wchar_t* text) {
  if (!text) return std::string();
  const int n = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  std::string out(n > 0 ? n - 1 : 0, '\0');
  if (n > 1) WideCharToMultiByte(CP_UTF8, 0, text, -1, out.data(), n, nullptr, nullptr);
  return out;
}

std::string Hex(HRESULT hr) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "0x%08lX", static_cast<unsigned long>(hr));
  return buffer;
}

void CheckHr(const char* name, HRESULT hr) {
  Report(SUCCEEDED(hr), name, Hex(hr));
}

// A BSTR that frees itself.
struct Bstr {
  BSTR value = nullptr;
  Bstr() = default;
  explicit Bstr(const wchar_t* text) : value(SysAllocString(text)) {}
  ~Bstr() { SysFreeString(value); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  std::string Text() const { return Narrow(value); }
};

// An interface pointer that releases itself.
template <class T>
struct Ptr {
  T* p = nullptr;
  ~Ptr() { reset(); }
  void reset() {
    if (p) p->Release();
    p = nullptr;
  }
  T* operator->() const { return p; }
  T** out() {
    reset();
    return &p;
  }
  void** vout() { return reinterpret_cast<void**>(out()); }
};

template <class T>
HRESULT Create(REFCLSID clsid, Ptr<T>& out) {
  return CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(T), out.vout());
}

// The error object the last failed call left: "number|source|description".
std::string LastErrorInfo(HRESULT hr) {
  IErrorInfo* info = nullptr;
  if (GetErrorInfo(0, &info) != S_OK || !info) return Hex(hr) + "|(no error info)";
  Bstr source, description;
  info->GetSource(&source.value);
  info->GetDescription(&description.value);
  info->Release();
  return Hex(hr) + "|" + source.Text() + "|" + description.Text();
}

// A persistable object of this host: the type library's IStream (IRbStream
// in C++), whose IDispatch comes from the type information, as a host
// implementing the contract would do it. It records what the stream asked.
class Persistable : public IRbStream {
 public:
  explicit Persistable(ITypeInfo* info) : info_(info) { info_->AddRef(); }
  virtual ~Persistable() { info_->Release(); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IRbStream) {
      *out = static_cast<IRbStream*>(this);
      AddRef();
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** out) override {
    info_->AddRef();
    *out = info_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    return DispGetIDsOfNames(info_, names, count, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT* bad) override {
    return DispInvoke(static_cast<IRbStream*>(this), info_, id, flags, params, result, exception,
                      bad);
  }
  HRESULT STDMETHODCALLTYPE ReadObjectData(LONG position) override {
    reads_ += 1;
    position_ = position;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE SaveObjectData(LONG position) override {
    saves_ += 1;
    position_ = position;
    return S_OK;
  }

  int reads_ = 0;
  int saves_ = 0;
  LONG position_ = -1;

 private:
  ITypeInfo* info_;
  ULONG references_ = 1;
};

void TestRegistry() {
  CLSID clsid;
  HRESULT hr = CLSIDFromProgID(L"Korvat_Ringbook.CFighter", &clsid);
  Report(SUCCEEDED(hr) && IsEqualCLSID(clsid, CLSID_CFighter), "ProgID names the CFighter class");
  wchar_t key[128];
  wchar_t clsid_text[40];
  StringFromGUID2(CLSID_CFighter, clsid_text, 40);
  std::swprintf(key, 128, L"CLSID\\%ls\\InprocServer32", clsid_text);
  wchar_t model[32] = {};
  DWORD bytes = sizeof model;
  const LONG rc = RegGetValueW(HKEY_CLASSES_ROOT, key, L"ThreadingModel", RRF_RT_REG_SZ, nullptr,
                               model, &bytes);
  Report(rc == ERROR_SUCCESS && std::wcscmp(model, L"Apartment") == 0,
         "ThreadingModel is Apartment", Narrow(model));
}

// Every creatable coclass of the registered type library can be created.
void TestEveryCoclass() {
  Ptr<ITypeLib> library;
  HRESULT hr = LoadRegTypeLib(LIBID_Korvat_Ringbook, 1, 0, LOCALE_NEUTRAL, library.out());
  CheckHr("type library is registered", hr);
  if (FAILED(hr)) return;
  const UINT count = library->GetTypeInfoCount();
  int created = 0;
  bool all = true;
  for (UINT i = 0; i < count; ++i) {
    TYPEKIND kind;
    if (FAILED(library->GetTypeInfoType(i, &kind)) || kind != TKIND_COCLASS) continue;
    Ptr<ITypeInfo> info;
    library->GetTypeInfo(i, info.out());
    TYPEATTR* attr = nullptr;
    info->GetTypeAttr(&attr);
    const CLSID clsid = attr->guid;
    const bool creatable = (attr->wTypeFlags & TYPEFLAG_FCANCREATE) != 0;
    info->ReleaseTypeAttr(attr);
    if (!creatable) continue;
    Ptr<IDispatch> object;
    hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.vout());
    if (FAILED(hr)) {
      Bstr name;
      library->GetDocumentation(static_cast<INT>(i), &name.value, nullptr, nullptr, nullptr);
      Report(false, "coclass can be created", name.Text() + " " + Hex(hr));
      all = false;
    } else {
      ++created;
    }
  }
  Report(all && created > 0, "every coclass can be created");
}

void TestRecordsThroughVtable() {
  Ptr<_CLocation> location;
  CheckHr("create CLocation", Create(CLSID_CLocation, location));
  if (!location.p) return;
  Bstr arena(L"Alpha"), city(L"Beta");
  location->put_Arena(arena.value);
  location->put_City(city.value);
  Bstr name;
  location->get_Name(&name.value);
  Report(name.Text() == "Alpha, Beta", "CLocation.Name through the vtable", name.Text());

  // A record of the wrong class: type mismatch with the component's texts.
  Ptr<_CJudge> judge;
  Create(CLSID_CJudge, judge);
  const HRESULT hr = location->Clone(judge.p);
  Report(hr == static_cast<HRESULT>(0x800A000D), "Clone into a judge fails with 13", Hex(hr));
  const std::string info = LastErrorInfo(hr);
  Report(info == "0x800A000D|Korvat_Ringbook|Type mismatch", "... and its error object", info);

  Ptr<ISupportErrorInfo> support;
  location->QueryInterface(IID_ISupportErrorInfo, support.vout());
  Report(support.p && support->InterfaceSupportsErrorInfo(IID__CLocation) == S_OK,
         "ISupportErrorInfo answers for _CLocation");

  // The fighter's History is one object for as long as it lives.
  Ptr<_CFighter> fighter;
  Create(CLSID_CFighter, fighter);
  Ptr<_CHistory> history;
  Create(CLSID_CHistory, history);
  fighter->putref_History(history.p);
  Ptr<_CHistory> again;
  fighter->get_History(again.out());
  Report(again.p == history.p, "CFighter.History gives back the same object");
}

void TestDispatchByName() {
  Ptr<IDispatch> object;
  CoCreateInstance(CLSID_CJudge, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.vout());
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"firstname")};
  DISPID id = 0;
  HRESULT hr = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  Report(SUCCEEDED(hr) && id == 4, "GetIDsOfNames ignores case and gives the IDL's ID");
  VARIANT value;
  VariantInit(&value);
  V_VT(&value) = VT_I2;  // as a script passes a small number
  V_I2(&value) = 7;
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS params = {&value, &put, 1, 1};
  LPOLESTR bias[] = {const_cast<LPOLESTR>(L"Bias")};
  object->GetIDsOfNames(IID_NULL, bias, 1, LOCALE_USER_DEFAULT, &id);
  hr = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &params, nullptr,
                      nullptr, nullptr);
  CheckHr("Invoke sets a Long property from a 16-bit value", hr);
  DISPPARAMS none = {nullptr, nullptr, 0, 0};
  VARIANT result;
  VariantInit(&result);
  object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &result, nullptr,
                 nullptr);
  Report(V_VT(&result) == VT_I4 && V_I4(&result) == 7, "Invoke reads it back as VT_I4");
}

void TestSortHelperInterfaces() {
  Ptr<_CSortHelper> helper;
  CheckHr("create CSortHelper", Create(CLSID_CSortHelper, helper));
  Ptr<ISortHelper> contract;
  helper->QueryInterface(IID_ISortHelper, contract.vout());
  Report(contract.p != nullptr, "CSortHelper answers ISortHelper");
  Ptr<_CKeyedCollection> items;
  Create(CLSID_CKeyedCollection, items);
  Ptr<ICollection> collection;
  items->QueryInterface(IID_ICollection, collection.vout());
  Report(collection.p != nullptr, "CKeyedCollection answers ICollection");
  if (!contract.p || !collection.p) return;
  VARIANT item, key, missing, result;
  VariantInit(&item);
  VariantInit(&key);
  VariantInit(&result);
  VariantInit(&missing);
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  for (const wchar_t* text : {L"a", L"b"}) {
    V_VT(&item) = VT_BSTR;
    V_BSTR(&item) = SysAllocString(text);
    collection->Add(item, missing, missing, missing, &result);
    VariantClear(&item);
    VariantClear(&result);
  }
  V_VT(&key) = VT_BSTR;
  V_BSTR(&key) = SysAllocString(L"k1");
  const HRESULT hr = contract->SwapCollection(collection.p, 1, 2, key, missing);
  VariantClear(&key);
  Report(hr == static_cast<HRESULT>(0x800A0000 | 13221), "SwapCollection with one key", Hex(hr));
  const std::string info = LastErrorInfo(hr);
  Report(info == "0x800A33A5|Korvat_Ringbook.SortHelper|SwapCollection: Key is missing",
         "... carries the helper's error", info);
  LONG count = 0;
  collection->get_Count(&count);
  Report(count == 2, "... and changes nothing");
}

// A list control of a script engine that answers names only through
// IDispatchEx::GetDispID (its GetIDsOfNames fails), as some engines' objects
// do. It keeps the items it is given.
class ExOnlyList : public IDispatchEx {
 public:
  std::vector<std::wstring> items;
  int clears = 0;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    static const IID kDispatchEx = {
        0xa6ef9860, 0xc720, 0x11d0, {0x93, 0x37, 0x00, 0xa0, 0xc9, 0x0d, 0xca, 0xa9}};
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == kDispatchEx) {
      *out = static_cast<IDispatchEx*>(this);
      AddRef();
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }  // lives on the stack
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID lcid, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override {
    return InvokeEx(id, lcid, flags, params, result, exception, nullptr);
  }
  HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD, DISPID* id) override {
    const wchar_t* names[] = {L"Clear", L"AddItem", L"NewIndex", L"ListCount"};
    for (DISPID i = 0; i < 4; ++i) {
      if (_wcsicmp(name, names[i]) == 0) {
        *id = i + 1;
        return S_OK;
      }
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE InvokeEx(DISPID id, LCID, WORD, DISPPARAMS* params, VARIANT* result,
                                     EXCEPINFO*, IServiceProvider*) override {
    switch (id) {
      case 1:
        items.clear();
        ++clears;
        return S_OK;
      case 2: {
        // Arguments arrive last first: the text is the last one.
        const VARIANT& text = params->rgvarg[params->cArgs - 1];
        items.push_back(V_VT(&text) == VT_BSTR ? std::wstring(V_BSTR(&text)) : L"?");
        return S_OK;
      }
      case 3:
      case 4:
        if (result) {
          V_VT(result) = VT_I4;
          V_I4(result) =
              id == 3 ? static_cast<LONG>(items.size()) - 1 : static_cast<LONG>(items.size());
        }
        return S_OK;
      default:
        return DISP_E_MEMBERNOTFOUND;
    }
  }
  HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID, DWORD, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

 private:
  ULONG references_ = 1;
};

// A keyed collection fills a list control that names its members only
// through IDispatchEx.
void TestDispatchExFallback() {
  Ptr<_CKeyedCollection> items;
  Create(CLSID_CKeyedCollection, items);
  if (!items.p) return;
  VARIANT item, missing, result;
  VariantInit(&result);
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  for (const wchar_t* text : {L"first", L"second"}) {
    V_VT(&item) = VT_BSTR;
    V_BSTR(&item) = SysAllocString(text);
    items->Add(item, missing, missing, missing, &result);
    VariantClear(&item);
    VariantClear(&result);
  }
  ExOnlyList list;
  VARIANT control;
  V_VT(&control) = VT_DISPATCH;
  V_DISPATCH(&control) = &list;
  const HRESULT hr = items->FillList(control, 0, missing);
  Report(SUCCEEDED(hr) && list.clears == 1 && list.items.size() == 2 && list.items[0] == L"first" &&
             list.items[1] == L"second",
         "FillList drives a control through IDispatchEx::GetDispID", LastErrorInfo(hr));
}

void TestStreamWithHostObject(const std::wstring& folder) {
  Ptr<ITypeLib> library;
  LoadRegTypeLib(LIBID_Korvat_Ringbook, 1, 0, LOCALE_NEUTRAL, library.out());
  Ptr<ITypeInfo> info;
  if (!library.p || FAILED(library->GetTypeInfoOfGuid(IID_IRbStream, info.out()))) {
    Report(false, "the type library describes IStream");
    return;
  }
  Ptr<_CStream> stream;
  Create(CLSID_CStream, stream);
  const std::wstring path = folder + L"client-stream.bin";
  Bstr filename(path.c_str());
  stream->put_Filename(filename.value);
  auto* host = new Persistable(info.p);
  HRESULT hr = stream->WriteFile(host, 7, VARIANT_TRUE);
  Report(SUCCEEDED(hr) && host->saves_ == 1 && host->position_ == 7,
         "WriteFile calls the host's SaveObjectData with the position");
  hr = stream->ReadFile(host, -4);
  Report(SUCCEEDED(hr) && host->reads_ == 1 && host->position_ == 0,
         "ReadFile calls ReadObjectData, a position below 1 as 0");
  host->Release();
}

// A collection through IRecords: records as values of any type, cast by
// the collection. Needs the game database the scripts created.
void TestRecordsInterface() {
  Ptr<IRecords> records;
  const HRESULT made = CoCreateInstance(CLSID_NLocations, nullptr, CLSCTX_INPROC_SERVER,
                                        IID_IRecords, records.vout());
  CheckHr("NLocations answers IRecords", made);
  if (FAILED(made)) return;
  Ptr<IDispatch> judge;
  CoCreateInstance(CLSID_CJudge, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, judge.vout());
  VARIANT record, result;
  VariantInit(&result);
  V_VT(&record) = VT_DISPATCH;
  V_DISPATCH(&record) = judge.p;
  HRESULT hr = records->AddRecord(record, VARIANT_TRUE, &result);
  Report(hr == static_cast<HRESULT>(0x800A000D), "IRecords.AddRecord of a judge is a type mismatch",
         Hex(hr));
  Ptr<IDispatch> location;
  CoCreateInstance(CLSID_CLocation, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, location.vout());
  V_DISPATCH(&record) = location.p;
  hr = records->AddRecord(record, VARIANT_FALSE, &result);
  Report(SUCCEEDED(hr) && V_VT(&result) == VT_DISPATCH && V_DISPATCH(&result) == location.p,
         "IRecords.AddRecord of a location returns it", Hex(hr));
  VariantClear(&result);
  VARIANT missing;
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  CheckHr("IRecords.FillList without a control", records->FillList(missing, 0));
}

void TestStringTable(const std::wstring& dll) {
  HMODULE module = LoadLibraryExW(dll.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  if (!module) {
    Report(false, "load the DLL's resources");
    return;
  }
  int compared = 0;
  bool same = true;
  std::string first_difference;
  for (ringbook::DefaultDataBlock block : ringbook::kDefaultDataBlocks) {
    const int32_t count_entry = ringbook::DefaultDataCountEntry(block);
    const int rows = std::atoi(ringbook::DefaultDataString(count_entry).c_str());
    const int last =
        block == ringbook::DefaultDataBlock::Cities
            ? count_entry + rows
            : ringbook::DefaultDataEntryNumber(block, rows, ringbook::DefaultDataFieldCount(block));
    for (int32_t n = count_entry; n <= last; ++n) {
      const std::string expected = ringbook::DefaultDataString(n);
      wchar_t buffer[512] = {};
      const int length = LoadStringW(module, static_cast<UINT>(n), buffer, 512);
      const std::string actual = length > 0 ? Narrow(buffer) : std::string();
      if (actual != expected && same) {
        same = false;
        first_difference = std::to_string(n) + ": \"" + actual + "\" vs \"" + expected + "\"";
      }
      ++compared;
    }
  }
  FreeLibrary(module);
  Report(same && compared > 100, "STRINGTABLE holds the library's default data",
         first_difference.empty() ? std::to_string(compared) + " strings" : first_difference);
}

void TestUnloadAndUnknownClass(const std::wstring& dll) {
  HMODULE module = GetModuleHandleW(dll.c_str());
  if (!module) module = LoadLibraryW(dll.c_str());
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  using CanUnload = HRESULT(STDAPICALLTYPE*)();
  auto get = reinterpret_cast<GetClassObject>(GetProcAddress(module, "DllGetClassObject"));
  auto can_unload = reinterpret_cast<CanUnload>(GetProcAddress(module, "DllCanUnloadNow"));
  Report(get && can_unload, "entry points by their plain names");
  if (!get || !can_unload) return;
  void* factory = nullptr;
  Report(get(IID_IDispatch, IID_IClassFactory, &factory) == CLASS_E_CLASSNOTAVAILABLE,
         "DllGetClassObject refuses an unknown class");
  Ptr<IClassFactory> cf;
  get(CLSID_CTitle, IID_IClassFactory, cf.vout());
  Report(can_unload() == S_FALSE, "DllCanUnloadNow: not while a factory lives");
  cf.reset();
  Report(can_unload() == S_OK, "DllCanUnloadNow: once everything is released");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: com_client PATH_OF_DLL\n");
    return 2;
  }
  const int n = MultiByteToWideChar(CP_ACP, 0, argv[1], -1, nullptr, 0);
  std::wstring dll(n > 0 ? n - 1 : 0, L'\0');
  MultiByteToWideChar(CP_ACP, 0, argv[1], -1, dll.data(), n);
  std::wstring folder = dll.substr(0, dll.find_last_of(L"\\/") + 1);

  CoInitialize(nullptr);
  TestRegistry();
  TestEveryCoclass();
  TestRecordsThroughVtable();
  TestDispatchByName();
  TestSortHelperInterfaces();
  TestDispatchExFallback();
  TestStreamWithHostObject(folder);
  TestRecordsInterface();
  TestStringTable(dll);
  TestUnloadAndUnknownClass(dll);
  CoUninitialize();

  std::printf("DONE failures=%d\n", g_failures);
  return g_failures == 0 ? 0 : 1;
}
