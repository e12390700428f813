#include "com/ComModule.h"

#include <atomic>
#include <cstring>
#include <map>

#include "com/ComMutex.h"

namespace ringbook::com {
namespace {

HINSTANCE g_instance = nullptr;
std::atomic<long> g_objects{0};
std::atomic<long> g_locks{0};

struct GuidLess {
  bool operator()(const GUID& a, const GUID& b) const noexcept {
    return std::memcmp(&a, &b, sizeof(GUID)) < 0;
  }
};

// The library and the type infos are released only when the process ends:
// objects may outlive any one client, and a cached ITypeInfo is what keeps
// IDispatch calls cheap.
struct TypeCache {
  ComMutex mutex;
  ITypeLib* library = nullptr;
  std::map<GUID, ITypeInfo*, GuidLess> infos;
};

TypeCache& Cache() {
  static TypeCache* cache = new TypeCache;  // never destroyed: see above
  return *cache;
}

}  // namespace

void ComModule::SetInstance(HINSTANCE instance) noexcept {
  g_instance = instance;
}

HINSTANCE ComModule::Instance() noexcept {
  return g_instance;
}

std::wstring ComModule::Path() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD n = GetModuleFileNameW(g_instance, path.data(), static_cast<DWORD>(path.size()));
    if (n == 0) return std::wstring();
    if (n < path.size()) {
      path.resize(n);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

void ComModule::ObjectCreated() noexcept {
  ++g_objects;
}

void ComModule::ObjectDestroyed() noexcept {
  --g_objects;
}

void ComModule::Lock(bool lock) noexcept {
  if (lock) {
    ++g_locks;
  } else {
    --g_locks;
  }
}

bool ComModule::CanUnload() noexcept {
  return g_objects.load() == 0 && g_locks.load() == 0;
}

HRESULT ComModule::TypeLibrary(ITypeLib** out) {
  TypeCache& cache = Cache();
  ComMutex::Guard guard(cache.mutex);
  if (!cache.library) {
    const std::wstring path = Path();
    const HRESULT hr = LoadTypeLibEx(path.c_str(), REGKIND_NONE, &cache.library);
    if (FAILED(hr)) {
      cache.library = nullptr;
      return hr;
    }
  }
  cache.library->AddRef();
  *out = cache.library;
  return S_OK;
}

HRESULT ComModule::TypeInfo(REFIID iid, ITypeInfo** out) {
  *out = nullptr;
  ITypeLib* library = nullptr;
  HRESULT hr = TypeLibrary(&library);
  if (FAILED(hr)) return hr;
  TypeCache& cache = Cache();
  ComMutex::Guard guard(cache.mutex);
  auto it = cache.infos.find(iid);
  if (it == cache.infos.end()) {
    ITypeInfo* info = nullptr;
    hr = library->GetTypeInfoOfGuid(iid, &info);
    if (FAILED(hr)) {
      library->Release();
      return hr;
    }
    it = cache.infos.emplace(iid, info).first;
  }
  library->Release();
  *out = it->second;
  return S_OK;
}

}  // namespace ringbook::com
