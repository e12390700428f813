#include "com/ObjectIdentity.h"

#include <unordered_map>

#include "com/ComMutex.h"

namespace ringbook::com {
namespace {

struct Table {
  ComMutex mutex;
  std::unordered_map<const Object*, IdentityEntry*> objects;
};

Table& TheTable() {
  static Table* table = new Table;  // objects may still die during process exit
  return *table;
}

}  // namespace

void ObjectIdentity::Register(const Object* native, IdentityEntry* object) {
  Table& t = TheTable();
  ComMutex::Guard guard(t.mutex);
  t.objects[native] = object;
}

void ObjectIdentity::Unregister(const Object* native, IdentityEntry* object) {
  Table& t = TheTable();
  ComMutex::Guard guard(t.mutex);
  auto it = t.objects.find(native);
  if (it != t.objects.end() && it->second == object) t.objects.erase(it);
}

IUnknown* ObjectIdentity::Find(const Object* native) {
  Table& t = TheTable();
  ComMutex::Guard guard(t.mutex);
  auto it = t.objects.find(native);
  if (it == t.objects.end() || !it->second->TryAddRef()) return nullptr;
  return it->second->Unknown();
}

}  // namespace ringbook::com
