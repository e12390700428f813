#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "com/DispatchListControl.h"
#include "fighters/CFighter.h"

namespace ringbook::com {
namespace {

// Members in the published (alphabetical) order.
class CFighterCom : public ComObject<CFighterCom, CFighter, _CFighter> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_PROPERTY(ActiveRetired, short)
  RINGBOOK_COM_PROPERTY(Agg, short)
  RINGBOOK_COM_GET(AvgRounds, float)
  RINGBOOK_COM_PROPERTY(Cb2, float)
  RINGBOOK_COM_PROPERTY(Cb3, float)
  RINGBOOK_COM_PROPERTY(Cfb, short)
  RINGBOOK_COM_PROPERTY(Cfs, short)
  RINGBOOK_COM_PROPERTY(Cl, short)
  HRESULT STDMETHODCALLTYPE Clone(IDispatch* target, ::ERecordSection section) override {
    return Call([&] {
      native().Clone(NativeArgument<CFighter>(target), static_cast<ERecordSection>(section));
    });
  }
  RINGBOOK_COM_PROPERTY(Conditioning, short)
  RINGBOOK_COM_PROPERTY(Cp, short)
  RINGBOOK_COM_PROPERTY(Cr2, float)
  RINGBOOK_COM_PROPERTY(Cr3, float)
  RINGBOOK_COM_PROPERTY(Cu, short)
  RINGBOOK_COM_PROPERTY(CutManID, LONG)
  RINGBOOK_COM_PROPERTY(Cuts, short)
  RINGBOOK_COM_PROPERTY(Defn, short)
  RINGBOOK_COM_GET(Dirty, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(DisplayPerf, float)
  RINGBOOK_COM_PROPERTY(Division, short)
  RINGBOOK_COM_PROPERTY(Draw, LONG)
  RINGBOOK_COM_PROPERTY(DrawPower, short)
  RINGBOOK_COM_PROPERTY(E10, short)
  RINGBOOK_COM_PROPERTY(FastSlow, short)
  RINGBOOK_COM_PROPERTY(Fi, short)
  HRESULT STDMETHODCALLTYPE FillListWithTitles(VARIANT control) override {
    return Call([&] { native().FillListWithTitles(ListControlArgument(control)); });
  }
  RINGBOOK_COM_PROPERTY(FirstName, BSTR)
  RINGBOOK_COM_PROPERTY(Fo, short)
  RINGBOOK_COM_PROPERTY(Fouls, short)
  RINGBOOK_COM_PROPERTY(GroupID, BSTR)
  RINGBOOK_COM_PROPERTY(H2, float)
  RINGBOOK_COM_PROPERTY(H3, float)
  RINGBOOK_COM_PROPERTY(HasPerformance, VARIANT_BOOL)
  RINGBOOK_COM_GET(HasTitles, VARIANT_BOOL)
  HRESULT STDMETHODCALLTYPE get_History(_CHistory** out) override {
    if (!out) return E_POINTER;
    return Call([&] { PutObject(out, native().History()); });
  }
  HRESULT STDMETHODCALLTYPE putref_History(IDispatch* value) override {
    return Call([&] { native().SetHistory(SharedArgument<CHistory>(value)); });
  }
  RINGBOOK_COM_PROPERTY(Hp, short)
  RINGBOOK_COM_PROPERTY(Icor, short)
  RINGBOOK_COM_GET(ID, LONG)
  RINGBOOK_COM_PROPERTY(Intellect, short)
  RINGBOOK_COM_PROPERTY(J2, float)
  RINGBOOK_COM_PROPERTY(J3, float)
  RINGBOOK_COM_PROPERTY(Kdr1, short)
  RINGBOOK_COM_PROPERTY(Kdr2, short)
  RINGBOOK_COM_PROPERTY(KdsFor, LONG)
  RINGBOOK_COM_PROPERTY(Ki, short)
  RINGBOOK_COM_PROPERTY(Ko, short)
  RINGBOOK_COM_GET(KoPct, float)
  RINGBOOK_COM_PROPERTY(Kor, short)
  RINGBOOK_COM_PROPERTY(Kos, LONG)
  RINGBOOK_COM_PROPERTY(LastName, BSTR)
  RINGBOOK_COM_PROPERTY(Lost, LONG)
  HRESULT STDMETHODCALLTYPE get_Name(VARIANT_BOOL IgnoreNickName, BSTR* out) override {
    return Get(out, [&] { return native().Name(IgnoreNickName != VARIANT_FALSE); });
  }
  RINGBOOK_COM_PROPERTY(NickName, BSTR)
  RINGBOOK_COM_GET(OpAccuracy, float)
  RINGBOOK_COM_PROPERTY(OpKdsFor, LONG)
  RINGBOOK_COM_PROPERTY(OpTotalCuts, LONG)
  RINGBOOK_COM_PROPERTY(OpTotalPl, LONG)
  RINGBOOK_COM_PROPERTY(OpTotalPm, LONG)
  RINGBOOK_COM_PROPERTY(Performance, VARIANT)
  RINGBOOK_COM_PROPERTY(PicturePath, BSTR)
  RINGBOOK_COM_PROPERTY(Pl, short)
  RINGBOOK_COM_PROPERTY(Pm, short)
  RINGBOOK_COM_PROPERTY(Proficiency, short)
  RINGBOOK_COM_GET(PunchAccuracy, float)
  RINGBOOK_COM_PROPERTY(Rank, LONG)
  RINGBOOK_COM_PROPERTY(Rating, short)
  RINGBOOK_COM_GET(Record, BSTR)
  RINGBOOK_COM_PROPERTY(Rm, short)
  RINGBOOK_COM_PROPERTY(Sex, short)
  RINGBOOK_COM_PROPERTY(SkinColor, short)
  RINGBOOK_COM_PROPERTY(SouthPaw, short)
  RINGBOOK_COM_PROPERTY(Style, short)
  RINGBOOK_COM_PROPERTY(TitleIDs, BSTR)
  RINGBOOK_COM_PROPERTY(Tko, short)
  RINGBOOK_COM_PROPERTY(Tkos, LONG)
  RINGBOOK_COM_GET(TotalBouts, LONG)
  RINGBOOK_COM_PROPERTY(TotalCuts, LONG)
  RINGBOOK_COM_PROPERTY(TotalPl, LONG)
  RINGBOOK_COM_PROPERTY(TotalPm, LONG)
  RINGBOOK_COM_PROPERTY(TotalRounds, LONG)
  RINGBOOK_COM_PROPERTY(TrainerID, LONG)
  RINGBOOK_COM_PROPERTY(Training, short)
  RINGBOOK_COM_PROPERTY(U2, float)
  RINGBOOK_COM_PROPERTY(U3, float)
  RINGBOOK_COM_PROPERTY(Won, LONG)
  RINGBOOK_COM_GET(WonLostPct, float)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CFighter, CFighterCom);

}  // namespace ringbook::com
