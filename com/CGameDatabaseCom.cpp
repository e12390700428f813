#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "core/HostServices.h"
#include "store/GameDatabase.h"

namespace ringbook::com {
namespace {

/// The library has no object for this: creating a database is a function.
class GameDatabaseTool : public Object {};

/// Creates game databases for hosts and tools that start a new world.
class CGameDatabaseCom : public ComObject<CGameDatabaseCom, GameDatabaseTool, _CGameDatabase> {
 public:
  using ComObject::ComObject;

  HRESULT STDMETHODCALLTYPE Create(BSTR path) override {
    return Call([&] { CreateGameDatabase(In(path)); });
  }
  HRESULT STDMETHODCALLTYPE get_DatabasePath(BSTR* out) override {
    return Get(out, [&] { return Settings().DatabasePath(); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CGameDatabase, CGameDatabaseCom);

}  // namespace ringbook::com
