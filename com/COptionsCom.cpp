#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "core/CStream.h"
#include "options/COptions.h"
#include "people/CAnnouncer.h"
#include "people/CJudge.h"
#include "people/CLocation.h"
#include "people/CReferee.h"

namespace ringbook::com {
namespace {

/// An optional stream argument: omitted (or Nothing) is no stream.
CStream* StreamArgument(const VARIANT& value) {
  if (IsMissing(value)) return nullptr;
  std::shared_ptr<Object> object = FromVariant(value).ToObject();
  if (!object) return nullptr;
  auto* stream = dynamic_cast<CStream*>(object.get());
  if (!stream) throw Error::TypeMismatch();
  return stream;
}

class COptionsCom : public ComObject<COptionsCom, COptions, _COptions> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_PROPERTY(UseStrategies, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(ThreeKDRule, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(CheckForInjuries, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(SavedByBell, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(Mand8Count, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(AdjWeightClass, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(BeltBout, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(ScoringSystem, short)
  RINGBOOK_COM_PROPERTY(TwoMinuteRounds, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(BeltBoutID, LONG)
  RINGBOOK_COM_PROPERTY(UseJudgesBias, LONG)
  RINGBOOK_COM_PROPERTY(miHometownFavorite, short)
  RINGBOOK_COM_PROPERTY(miDefendingChampion, short)
  RINGBOOK_COM_OBJECT_PROPERTY(Referee, _CReferee, CReferee)
  RINGBOOK_COM_OBJECT_PROPERTY(Announcer, _CAnnouncer, CAnnouncer)
  RINGBOOK_COM_OBJECT_PROPERTY(Location, _CLocation, CLocation)
  RINGBOOK_COM_PROPERTY(FightDate, DATE)
  RINGBOOK_COM_PROPERTY(SchedulerDefaultRepeats, LONG)
  RINGBOOK_COM_PROPERTY(AutoScroll, VARIANT_BOOL)
  RINGBOOK_COM_GET(Bias, short)
  HRESULT STDMETHODCALLTYPE Clone(IDispatch* target) override {
    return Call([&] { native().Clone(NativeArgument<COptions>(target)); });
  }
  RINGBOOK_COM_PROPERTY(FightCardBout, LONG)
  RINGBOOK_COM_PROPERTY(FightCardEra, short)
  RINGBOOK_COM_PROPERTY(FightCardProficiency, short)
  RINGBOOK_COM_PROPERTY(FightCardRefFilter, short)
  RINGBOOK_COM_PROPERTY(DefendingChampion, short)
  RINGBOOK_COM_PROPERTY(HometownFavorite, short)
  HRESULT STDMETHODCALLTYPE get_Judge(short index, _CJudge** out) override {
    if (!out) return E_POINTER;
    return Call([&] { PutObject(out, native().Judge(index)); });
  }
  HRESULT STDMETHODCALLTYPE put_Judge(short index, IDispatch* value) override {
    return Call([&] { native().SetJudge(index, NativeArgument<CJudge>(value)); });
  }
  HRESULT STDMETHODCALLTYPE putref_Judge(short index, IDispatch* value) override {
    return put_Judge(index, value);
  }
  RINGBOOK_COM_PROPERTY(Opponent, short)
  RINGBOOK_COM_PROPERTY(QuietDisplay, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(Rounds, short)
  HRESULT STDMETHODCALLTYPE Save(VARIANT stream) override {
    return Call([&] { native().Save(StreamArgument(stream)); });
  }
  RINGBOOK_COM_PROPERTY(ShowRingCard, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(TournamentDefaultLevels, short)
  RINGBOOK_COM_INDEXED(TournamentDefaultRounds, short)
  HRESULT STDMETHODCALLTYPE Load(VARIANT stream) override {
    return Call([&] { native().Load(StreamArgument(stream)); });
  }
  RINGBOOK_COM_PROPERTY(Style, LONG)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(COptions, COptionsCom);

}  // namespace ringbook::com
