#include "com/ComMembers.h"
#include "com/RecordCollectionCom.h"
#include "fighters/NFighters.h"
#include "store/Recordset.h"

namespace ringbook::com {
namespace {

class NFightersCom
    : public RecordCollectionCom<NFightersCom, NFighters, CFighter, _NFighters, _CFighter> {
 public:
  using RecordCollectionCom::RecordCollectionCom;

  HRESULT STDMETHODCALLTYPE FillList(VARIANT control, LONG group, short division,
                                     VARIANT_BOOL show_rating, short proficiency,
                                     VARIANT_BOOL display_rankings) override {
    return Call([&] {
      native().FillList(ListControlArgument(control), group, division, show_rating != VARIANT_FALSE,
                        proficiency, display_rankings != VARIANT_FALSE);
    });
  }
  HRESULT STDMETHODCALLTYPE GetHistoryList(LONG id, BSTR* out) override {
    return Get(out, [&] { return native().GetHistoryList(id); });
  }
  HRESULT STDMETHODCALLTYPE HistoriesRS(LONG id, _Recordset** out) override {
    if (!out) return E_POINTER;
    return Call([&] { PutObject(out, native().HistoriesRS(id)); });
  }
  HRESULT STDMETHODCALLTYPE GetRankingList(LONG group, short division, ::ESortRankings sort,
                                           BSTR* out) override {
    return Get(out, [&] {
      return native().GetRankingList(group, division, static_cast<ESortRankings>(sort));
    });
  }
  HRESULT STDMETHODCALLTYPE RankingsRS(LONG group, short division, ::ESortRankings sort,
                                       _Recordset** out) override {
    if (!out) return E_POINTER;
    return Call([&] {
      PutObject(out, native().RankingsRS(group, division, static_cast<ESortRankings>(sort)));
    });
  }
  HRESULT STDMETHODCALLTYPE UpdatePartialRecord(IDispatch* fighter, ::ERecordSection section,
                                                _CFighter** out) override {
    if (!out) return E_POINTER;
    return Call([&] {
      PutObject(out, native().UpdatePartialRecord(Argument(fighter),
                                                  static_cast<ERecordSection>(section)));
    });
  }
  HRESULT STDMETHODCALLTYPE RemoveFightHistories(LONG id, VARIANT_BOOL* out) override {
    return Get(out, [&] { return native().RemoveFightHistories(id); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(NFighters, NFightersCom);

}  // namespace ringbook::com
