#include "cards/CFightCard.h"

#include "core/DateTime.h"
#include "core/Error.h"

namespace ringbook {
namespace {

constexpr int32_t kCardMarker = 1000001;

int16_t Checked16(int32_t value) {
  if (value < INT16_MIN || value > INT16_MAX) throw Error::Overflow();
  return static_cast<int16_t>(value);
}

int16_t FighterTotal(const CBout& bout, int16_t fighter) {
  return Checked16(int32_t{bout.Rating(fighter)} + bout.DrawPower(fighter));
}

std::size_t Slot(int32_t index) {
  return static_cast<std::size_t>(index - 1);
}

}  // namespace

CFightCard::CFightCard() : location_(std::make_shared<CLocation>()), fight_date_(NowDate()) {
  for (auto& bout : bouts_) bout = std::make_shared<CBout>();
}

void CFightCard::Add(const CBout& Bout, EBoutType BoutType) {
  if (!ValidPosition(BoutType)) return;
  auto& own = bouts_[Slot(BoutType)];
  if (!own) own = std::make_shared<CBout>();
  Bout.Clone(*own);
}

std::shared_ptr<CBout> CFightCard::Bout(int16_t Index) const {
  if (!ValidPosition(Index)) return nullptr;
  return bouts_[Slot(Index)];
}

int16_t CFightCard::BoutRating(int16_t Index) const {
  const auto bout = Bout(Index);
  if (!bout) return 0;
  int16_t rating = 0;
  for (int16_t fighter = 1; fighter <= 2; ++fighter) {
    // Each fighter's sum replaces the last, so the second fighter's stands.
    rating = FighterTotal(*bout, fighter);
  }
  return rating;
}

void CFightCard::Clone(CFightCard& FightCard) const {
  if (&FightCard == this) return;
  FightCard.fight_date_ = fight_date_;
  FightCard.era_ = era_;
  FightCard.name_ = name_;
  FightCard.display_fight_ = display_fight_;
  FightCard.wagers_placed_ = wagers_placed_;
  for (std::size_t i = 0; i < bouts_.size(); ++i) {
    auto& target = FightCard.bouts_[i];
    if (!bouts_[i]) {
      target.reset();
      continue;
    }
    // A target bout shared with this card would be copied onto itself.
    if (!target || target == bouts_[i]) target = std::make_shared<CBout>();
    bouts_[i]->Clone(*target);
  }
  if (!location_) {
    FightCard.location_.reset();
  } else {
    if (!FightCard.location_ || FightCard.location_ == location_) {
      FightCard.location_ = std::make_shared<CLocation>();
    }
    location_->Clone(*FightCard.location_);
  }
}

int16_t CFightCard::FighterRating(int16_t BoutIndex, int16_t FtrIndex) const {
  const auto bout = Bout(BoutIndex);
  if (!bout || (FtrIndex != 1 && FtrIndex != 2)) return 0;
  return FighterTotal(*bout, FtrIndex);
}

bool CFightCard::DisplayFight(int16_t Index) const {
  return ValidPosition(Index) && display_fight_[Slot(Index)];
}

void CFightCard::SetDisplayFight(int16_t Index, bool value) {
  if (ValidPosition(Index)) display_fight_[Slot(Index)] = value;
}

void CFightCard::SetItem(int16_t Index, std::shared_ptr<CBout> value) {
  if (ValidPosition(Index)) bouts_[Slot(Index)] = std::move(value);
}

int16_t CFightCard::Rating() const {
  int16_t total = 0;
  for (const auto& bout : bouts_) {
    if (!bout) continue;
    for (int16_t fighter = 1; fighter <= 2; ++fighter) {
      total = Checked16(int32_t{total} + FighterTotal(*bout, fighter));
      (void)bout->Description();
    }
  }
  return total;
}

void CFightCard::Remove(const Variant& Index) {
  const int32_t position = Index.ToLong();
  if (ValidPosition(position)) bouts_[Slot(position)].reset();
}

void CFightCard::WriteToStream(CStream& stream) {
  stream.WriteLng(kCardMarker);
  stream.WriteInt(era_);
  stream.WriteDate(fight_date_);
  stream.WriteStr(name_);
  for (const auto& bout : bouts_) {
    if (bout) {
      bout->WriteToStream(stream);
    } else {
      CBout blank;
      blank.WriteToStream(stream);
    }
  }
  if (location_) {
    location_->WriteToStream(stream);
  } else {
    CLocation blank;
    blank.WriteToStream(stream);
  }
}

void CFightCard::ReadFromStream(CStream& stream) {
  stream.ReadLng();  // the marker; not checked
  SetEra(stream.ReadInt());
  SetFightDate(stream.ReadDate());
  SetName(stream.ReadStr());
  for (auto& bout : bouts_) {
    if (!bout) bout = std::make_shared<CBout>();
    bout->ReadFromStream(stream);
    // A failed read has been posted to the thread's error state; the load
    // goes on regardless and leaves the rest zero or empty.
  }
  if (!location_) location_ = std::make_shared<CLocation>();
  location_->ReadFromStream(stream);
}

}  // namespace ringbook
