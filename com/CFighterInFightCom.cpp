#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "engine/CFighterInFight.h"
#include "options/COptions.h"

// A table of bytes indexed by one argument: the get gives the byte, the let
// takes a 16-bit value and leaves the clamp or the low byte to the library.
#define RINGBOOK_COM_BYTE_TABLE(Name)                                              \
  HRESULT STDMETHODCALLTYPE get_##Name(short index, unsigned char* out) override { \
    return Get(out, [&] { return native().Name(index); });                         \
  }                                                                                \
  HRESULT STDMETHODCALLTYPE put_##Name(short index, short value) override {        \
    return Call([&] { native().Set##Name(index, value); });                        \
  }

namespace ringbook::com {
namespace {

// Members in the published interface order.
class CFighterInFightCom : public ComObject<CFighterInFightCom, CFighterInFight, _CFighterInFight> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_OBJECT_PROPERTY(FR, _CFighter, CFighter)
  RINGBOOK_COM_OBJECT_PROPERTY(Trainer, _CCornerman, CCornerman)
  RINGBOOK_COM_OBJECT_PROPERTY(CutMan, _CCornerman, CCornerman)

  RINGBOOK_COM_PROPERTY(Condition, LONG)
  RINGBOOK_COM_PROPERTY(UseConditioning, LONG)
  RINGBOOK_COM_PROPERTY(Career, short)
  RINGBOOK_COM_PROPERTY(Training, short)
  RINGBOOK_COM_PROPERTY(Winner, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(TournamentID, BSTR)
  RINGBOOK_COM_PROPERTY(CfModifier, short)
  RINGBOOK_COM_PROPERTY(EnduranceLost, short)
  RINGBOOK_COM_PROPERTY(InTheCorner, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(StrategyUsed, short)
  RINGBOOK_COM_PROPERTY(Fouls, short)
  RINGBOOK_COM_PROPERTY(FoulPenalty, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(WinInside, short)
  RINGBOOK_COM_PROPERTY(KiR, short)
  RINGBOOK_COM_PROPERTY(KnockDowns, short)
  RINGBOOK_COM_PROPERTY(AmtTimeDown, short)
  RINGBOOK_COM_PROPERTY(KDEffects, short)
  RINGBOOK_COM_PROPERTY(MinuteDown, short)
  RINGBOOK_COM_PROPERTY(RmCount, short)
  RINGBOOK_COM_PROPERTY(HandsLow, VARIANT_BOOL)
  RINGBOOK_COM_PROPERTY(TempFatigued, short)
  RINGBOOK_COM_PROPERTY(Injuries, short)

  RINGBOOK_COM_INDEXED(AggR, short)
  RINGBOOK_COM_INDEXED(CfR, short)
  RINGBOOK_COM_INDEXED(CpR, short)
  RINGBOOK_COM_INDEXED(DefnR, short)
  RINGBOOK_COM_INDEXED(EndrR, short)
  RINGBOOK_COM_INDEXED(HpR, short)
  RINGBOOK_COM_INDEXED(Kdr1R, short)
  RINGBOOK_COM_INDEXED(PlR, short)
  RINGBOOK_COM_INDEXED(PmR, short)
  RINGBOOK_COM_INDEXED(PointsScored, short)
  RINGBOOK_COM_INDEXED(ThreeKDcount, short)
  RINGBOOK_COM_BYTE_TABLE(PmCount)
  RINGBOOK_COM_BYTE_TABLE(ClCount)

  RINGBOOK_COM_INDEXED(Cut, short)
  RINGBOOK_COM_INDEXED(CutOver, short)
  RINGBOOK_COM_INDEXED(CutUnder, short)
  RINGBOOK_COM_INDEXED(Gash, short)
  RINGBOOK_COM_BYTE_TABLE(LEyeSwelling)
  RINGBOOK_COM_BYTE_TABLE(REyeSwelling)

  HRESULT STDMETHODCALLTYPE get_PunchCount(short type, short round, short* out) override {
    return Get(out, [&] { return native().PunchCount(type, round); });
  }
  HRESULT STDMETHODCALLTYPE put_PunchCount(short type, short round, short value) override {
    return Call([&] { native().SetPunchCount(type, round, value); });
  }
  HRESULT STDMETHODCALLTYPE get_ScoreCard(short card, short round, short* out) override {
    return Get(out, [&] { return native().ScoreCard(card, round); });
  }
  HRESULT STDMETHODCALLTYPE put_ScoreCard(short card, short round, short value) override {
    return Call([&] { native().SetScoreCard(card, round, value); });
  }

  RINGBOOK_COM_GET(PmTotal, short)
  RINGBOOK_COM_GET(ClTotal, short)
  RINGBOOK_COM_GET(PointsScoredTotal, short)
  HRESULT STDMETHODCALLTYPE get_PunchCountTotal(short type, short round, short* out) override {
    return Get(out, [&] { return native().PunchCountTotal(type, round); });
  }
  HRESULT STDMETHODCALLTYPE get_ScoreCardTotal(short card, short round, short* out) override {
    return Get(out, [&] { return native().ScoreCardTotal(card, round); });
  }

  HRESULT STDMETHODCALLTYPE IsKnockedout(VARIANT_BOOL* out) override {
    return Get(out, [&] { return native().IsKnockedout(); });
  }
  RINGBOOK_COM_GET(EitherStyle, VARIANT_BOOL)
  RINGBOOK_COM_CLONE(CFighterInFight)
  HRESULT STDMETHODCALLTYPE PunchType(VARIANT_BOOL forcePunch, short* out) override {
    return Get(out, [&] { return native().PunchType(forcePunch != VARIANT_FALSE); });
  }

  HRESULT STDMETHODCALLTYPE AdjustForCareerStage(VARIANT* v) override {
    if (!v) return E_POINTER;
    return Call([&] {
      Variant value = FromVariant(*v);
      native().AdjustForCareerStage(value);
      AssignInOut(v, value);
    });
  }
  HRESULT STDMETHODCALLTYPE AdjustForConditioning() override {
    return Call([&] { native().AdjustForConditioning(); });
  }
  HRESULT STDMETHODCALLTYPE AdjustForEnduranceLost(short round) override {
    return Call([&] { native().AdjustForEnduranceLost(round); });
  }
  HRESULT STDMETHODCALLTYPE AdjustForGash(short round) override {
    return Call([&] { native().AdjustForGash(round); });
  }
  HRESULT STDMETHODCALLTYPE AdjustForInjuries(LONG injuryType, short round) override {
    return Call([&] { native().AdjustForInjuries(injuryType, round); });
  }
  HRESULT STDMETHODCALLTYPE AdjustForReferee(short stoppage) override {
    return Call([&] { native().AdjustForReferee(stoppage); });
  }
  HRESULT STDMETHODCALLTYPE AdjustForSouthPaw(unsigned char opponentIsSouthPaw) override {
    return Call([&] { native().AdjustForSouthPaw(opponentIsSouthPaw); });
  }
  HRESULT STDMETHODCALLTYPE AdjustForStrategy(short round, VARIANT_BOOL isKIActive) override {
    return Call([&] { native().AdjustForStrategy(round, isKIActive != VARIANT_FALSE); });
  }
  // v goes in as a 16-bit value (Empty reads 0) and comes back as one.
  HRESULT STDMETHODCALLTYPE AdjustForTraining(VARIANT* v) override {
    if (!v) return E_POINTER;
    return Call([&] {
      int16_t steps = FromVariant(*v).ToInteger();
      native().AdjustForTraining(steps);
      AssignInOut(v, Variant(steps));
    });
  }
  HRESULT STDMETHODCALLTYPE AdjustForWeightClass(short opponentDivision) override {
    return Call([&] { native().AdjustForWeightClass(opponentDivision); });
  }
  HRESULT STDMETHODCALLTYPE MakePrefightAdjustments(IDispatch* opponent, IDispatch* options,
                                                    VARIANT_BOOL skipTraining) override {
    return Call([&] {
      native().MakePrefightAdjustments(NativeArgument<CFighterInFight>(opponent),
                                       NativeArgument<COptions>(options),
                                       skipTraining != VARIANT_FALSE);
    });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CFighterInFight, CFighterInFightCom);

}  // namespace ringbook::com

#undef RINGBOOK_COM_BYTE_TABLE
