#include <optional>

#include "Korvat_Ringbook.h"
#include "cards/CBout.h"
#include "com/ComMembers.h"
#include "options/COptions.h"

namespace ringbook::com {
namespace {

/// An optional fighter number: omitted is "not given".
std::optional<int16_t> FighterArgument(const VARIANT& value) {
  if (IsMissing(value)) return std::nullopt;
  return FromVariant(value).ToInteger();
}

class CBoutCom : public ComObject<CBoutCom, CBout, _CBout> {
 public:
  using ComObject::ComObject;

  RINGBOOK_COM_OBJECT_PROPERTY(Options, _COptions, COptions)
  RINGBOOK_COM_INDEXED(CutManID, LONG)
  HRESULT STDMETHODCALLTYPE get_Description(short style, VARIANT_BOOL order_by_odds,
                                            VARIANT_BOOL split_into_lines, BSTR* out) override {
    return Get(out, [&] {
      return native().Description(style, order_by_odds != VARIANT_FALSE,
                                  split_into_lines != VARIANT_FALSE);
    });
  }
  RINGBOOK_COM_INDEXED(CareerStage, short)
  HRESULT STDMETHODCALLTYPE Clone(IDispatch* target, VARIANT from_fighter,
                                  VARIANT to_fighter) override {
    return Call([&] {
      native().Clone(NativeArgument<CBout>(target), FighterArgument(from_fighter),
                     FighterArgument(to_fighter));
    });
  }
  RINGBOOK_COM_INDEXED(Conditioning, short)
  RINGBOOK_COM_INDEXED(DrawPower, short)
  RINGBOOK_COM_INDEXED(FighterFirstName, BSTR)
  RINGBOOK_COM_INDEXED(FighterLastName, BSTR)
  HRESULT STDMETHODCALLTYPE get_FighterName(short index, short style, BSTR* out) override {
    return Get(out, [&] { return native().FighterName(index, style); });
  }
  RINGBOOK_COM_INDEXED(FighterID, LONG)
  RINGBOOK_COM_GET(OddsForFight, BSTR)
  RINGBOOK_COM_GET(OddsFavorite, short)
  RINGBOOK_COM_GET(OddsModifier, float)
  RINGBOOK_COM_GET(OddsUnderdog, short)
  RINGBOOK_COM_INDEXED(Rating, short)
  RINGBOOK_COM_INDEXED(Wager, LONG)
  RINGBOOK_COM_PROPERTY(Repeat, short)
  RINGBOOK_COM_INDEXED(Style, short)
  HRESULT STDMETHODCALLTYPE get_TotalRating(short index, VARIANT* out) override {
    return Get(out, [&] { return native().TotalRating(index); });
  }
  RINGBOOK_COM_INDEXED(TrainerID, LONG)
  RINGBOOK_COM_INDEXED(Training, short)
  RINGBOOK_COM_PROPERTY(Winner, short)
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CBout, CBoutCom);

}  // namespace ringbook::com
