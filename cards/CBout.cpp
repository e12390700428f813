#include "cards/CBout.h"

#include <cassert>
#include <type_traits>
#include <utility>

#include "core/Error.h"
#include "core/HostServices.h"
#include "core/Text.h"

namespace ringbook {
namespace {

constexpr int32_t kBoutMarker = 1000001;

// A 16-bit result as the runtime's Integer arithmetic gives it: past the
// range is an overflow.
int16_t Checked16(int32_t value) {
  if (value < INT16_MIN || value > INT16_MAX) throw Error::Overflow();
  return static_cast<int16_t>(value);
}

}  // namespace

CBout::CBout() : options_(std::make_shared<COptions>()) {}

CBout::Fighter* CBout::At(int16_t index) {
  assert((index == 1 || index == 2) && "fighter index must be 1 or 2");
  if (index != 1 && index != 2) return nullptr;
  return &fighters_[static_cast<std::size_t>(index - 1)];
}

const CBout::Fighter* CBout::At(int16_t index) const {
  return const_cast<CBout*>(this)->At(index);
}

template <typename T>
const T& CBout::Get(int16_t index, T Fighter::*field) const {
  static const T none{};
  const Fighter* f = At(index);
  return f ? f->*field : none;
}

template <typename T>
void CBout::Put(int16_t index, T Fighter::*field, const std::type_identity_t<T>& value) {
  if (Fighter* f = At(index)) f->*field = value;
}

int32_t CBout::CutManID(int16_t Index) const {
  return Get(Index, &Fighter::cut_man_id);
}
void CBout::SetCutManID(int16_t Index, int32_t value) {
  Put(Index, &Fighter::cut_man_id, value);
}

int16_t CBout::CareerStage(int16_t Index) const {
  return Get(Index, &Fighter::career_stage);
}
void CBout::SetCareerStage(int16_t Index, int16_t value) {
  Put(Index, &Fighter::career_stage, value);
}

int16_t CBout::Conditioning(int16_t Index) const {
  return Get(Index, &Fighter::conditioning);
}
void CBout::SetConditioning(int16_t Index, int16_t value) {
  Put(Index, &Fighter::conditioning, value);
}

int16_t CBout::DrawPower(int16_t Index) const {
  return Get(Index, &Fighter::draw_power);
}
void CBout::SetDrawPower(int16_t Index, int16_t value) {
  Put(Index, &Fighter::draw_power, value);
}

const std::string& CBout::FighterFirstName(int16_t Index) const {
  return Get(Index, &Fighter::first_name);
}
void CBout::SetFighterFirstName(int16_t Index, const std::string& value) {
  Put(Index, &Fighter::first_name, value);
}

const std::string& CBout::FighterLastName(int16_t Index) const {
  return Get(Index, &Fighter::last_name);
}
void CBout::SetFighterLastName(int16_t Index, const std::string& value) {
  Put(Index, &Fighter::last_name, value);
}

int32_t CBout::FighterID(int16_t Index) const {
  return Get(Index, &Fighter::id);
}
void CBout::SetFighterID(int16_t Index, int32_t value) {
  Put(Index, &Fighter::id, value);
}

int16_t CBout::Rating(int16_t Index) const {
  return Get(Index, &Fighter::rating);
}
void CBout::SetRating(int16_t Index, int16_t value) {
  Put(Index, &Fighter::rating, value);
}

int32_t CBout::Wager(int16_t WhichFighter) const {
  return Get(WhichFighter, &Fighter::wager);
}
void CBout::SetWager(int16_t WhichFighter, int32_t value) {
  Put(WhichFighter, &Fighter::wager, value);
}

int16_t CBout::Style(int16_t Index) const {
  return Get(Index, &Fighter::style);
}
void CBout::SetStyle(int16_t Index, int16_t value) {
  Put(Index, &Fighter::style, value);
}

int32_t CBout::TrainerID(int16_t Index) const {
  return Get(Index, &Fighter::trainer_id);
}
void CBout::SetTrainerID(int16_t Index, int32_t value) {
  Put(Index, &Fighter::trainer_id, value);
}

int16_t CBout::Training(int16_t Index) const {
  return Get(Index, &Fighter::training);
}
void CBout::SetTraining(int16_t Index, int16_t value) {
  Put(Index, &Fighter::training, value);
}

int16_t CBout::Total(int16_t index) const {
  const Fighter* f = At(index);
  if (!f) return 0;
  return Checked16(int32_t{f->rating} + f->draw_power);
}

Variant CBout::TotalRating(int16_t Index) const {
  return Variant(Total(Index));
}

int16_t CBout::OddsFavorite() const {
  return Total(1) > Total(2) ? 1 : 2;
}

int16_t CBout::OddsUnderdog() const {
  const int16_t first = Total(1);
  const int16_t second = Total(2);
  if (first < second) return 1;
  if (second < first) return 2;
  return 1;
}

std::string CBout::OddsForFight() {
  int32_t favorite = Total(1);
  int32_t underdog = Total(2);
  if (underdog > favorite) std::swap(favorite, underdog);
  if (favorite <= underdog) {
    favorite = 1;
    underdog = 1;
  } else {
    favorite = Checked16(favorite + 1);
    underdog = Checked16(underdog - 1);
    if (underdog == 0) underdog = 1;
    if (Utility().IsEven(underdog)) {
      // Deliberately a fixed 8, whatever the underdog's part was: an even
      // underdog part always gives a quarter of the favourite's against 2.
      underdog = 8;
      favorite = favorite / (underdog / 2);
      underdog = 2;
    } else {
      favorite = Checked16(favorite / underdog);
      underdog = 1;
    }
    if (underdog == 2 && Utility().IsEven(favorite)) {
      favorite /= 2;
      underdog = 1;
    }
  }
  odds_favorite_part_ = static_cast<int16_t>(favorite);
  odds_underdog_part_ = static_cast<int16_t>(underdog);
  return std::to_string(favorite) + "-" + std::to_string(underdog);
}

float CBout::OddsModifier() {
  if (odds_favorite_part_ == 0 || odds_underdog_part_ == 0) OddsForFight();
  // OddsForFight always leaves the underdog's part at 1 or 2.
  return static_cast<float>(odds_favorite_part_) / static_cast<float>(odds_underdog_part_);
}

std::string CBout::FighterName(int16_t Index, int16_t Style) const {
  const std::string first = text::Trim(FighterFirstName(Index));
  const std::string last = text::Trim(FighterLastName(Index));
  if (first.empty()) return last;
  if (last.empty()) return first;
  switch (Style) {
    case ensInitialAndLastName:
      return text::Left(first, 1) + ". " + last;
    case ensLastName:
      return last;
    default:
      return first + " " + last;
  }
}

std::string CBout::Description(int16_t Style, bool OrderByOdds, bool SplitIntoLines) const {
  int16_t first = 1;
  int16_t second = 2;
  if (OrderByOdds) {
    first = OddsFavorite();
    second = OddsUnderdog();
  }
  const char* separator = SplitIntoLines ? "\r\n" : "";
  return FighterName(first, Style) + separator + " vs " + separator + FighterName(second, Style);
}

void CBout::Clone(CBout& Bout, std::optional<int16_t> FromFighter,
                  std::optional<int16_t> ToFighter) const {
  if (&Bout == this && !FromFighter && !ToFighter) return;
  if (FromFighter || ToFighter) {
    const int16_t from = FromFighter.value_or(*ToFighter);
    const int16_t to = ToFighter.value_or(*FromFighter);
    const Fighter* source = At(from);
    Fighter* target = Bout.At(to);
    if (!source || !target) return;
    if (source != target) *target = *source;
    Bout.odds_favorite_part_ = 0;
    Bout.odds_underdog_part_ = 0;
    return;
  }
  if (options_) {
    if (!Bout.options_) Bout.options_ = std::make_shared<COptions>();
    options_->Clone(*Bout.options_);
  } else {
    Bout.options_.reset();
  }
  Bout.fighters_ = fighters_;
  Bout.repeat_ = repeat_;
  Bout.winner_ = winner_;
  Bout.odds_favorite_part_ = odds_favorite_part_;
  Bout.odds_underdog_part_ = odds_underdog_part_;
}

void CBout::WriteToStream(CStream& stream) {
  stream.WriteLng(kBoutMarker);
  stream.WriteStr(fighters_[0].first_name);
  stream.WriteStr(fighters_[0].last_name);
  stream.WriteStr(fighters_[1].first_name);
  stream.WriteStr(fighters_[1].last_name);
  stream.WriteLng(fighters_[0].id);
  stream.WriteLng(fighters_[1].id);
  stream.WriteLng(repeat_);
  for (const Fighter& f : fighters_) stream.WriteInt(f.career_stage);
  for (const Fighter& f : fighters_) stream.WriteInt(f.conditioning);
  for (const Fighter& f : fighters_) stream.WriteInt(f.draw_power);
  for (const Fighter& f : fighters_) stream.WriteInt(f.rating);
  for (const Fighter& f : fighters_) stream.WriteInt(f.style);
  for (const Fighter& f : fighters_) stream.WriteInt(f.training);
  for (const Fighter& f : fighters_) stream.WriteLng(f.cut_man_id);
  for (const Fighter& f : fighters_) stream.WriteLng(f.trainer_id);
  if (options_) {
    options_->Save(&stream);
  } else {
    COptions blank;
    blank.Save(&stream);
  }
}

void CBout::ReadFromStream(CStream& stream) {
  stream.ReadLng();  // the marker; every version of the bout record is alike
  for (int16_t i = 1; i <= 2; ++i) {
    SetFighterFirstName(i, stream.ReadStr());
    SetFighterLastName(i, stream.ReadStr());
  }
  for (int16_t i = 1; i <= 2; ++i) SetFighterID(i, stream.ReadLng());
  // All 32 bits, so that a record re-saves exactly as it was read.
  repeat_ = stream.ReadLng();
  for (int16_t i = 1; i <= 2; ++i) SetCareerStage(i, stream.ReadInt());
  for (int16_t i = 1; i <= 2; ++i) SetConditioning(i, stream.ReadInt());
  for (int16_t i = 1; i <= 2; ++i) SetDrawPower(i, stream.ReadInt());
  for (int16_t i = 1; i <= 2; ++i) SetRating(i, stream.ReadInt());
  for (int16_t i = 1; i <= 2; ++i) SetStyle(i, stream.ReadInt());
  for (int16_t i = 1; i <= 2; ++i) SetTraining(i, stream.ReadInt());
  for (int16_t i = 1; i <= 2; ++i) SetCutManID(i, stream.ReadLng());
  for (int16_t i = 1; i <= 2; ++i) SetTrainerID(i, stream.ReadLng());
  if (!options_) options_ = std::make_shared<COptions>();
  options_->Load(&stream);
}

}  // namespace ringbook
