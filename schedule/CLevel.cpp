#include "schedule/CLevel.h"

namespace ringbook {
namespace {

constexpr int32_t kLevelMarker = 1000001;

bool InRange(int16_t index, std::size_t count) {
  return index >= 1 && static_cast<std::size_t>(index) <= count;
}

}  // namespace

std::shared_ptr<CBout> CLevel::Bout(int16_t Index) const {
  if (!InRange(Index, bouts_.size())) return nullptr;
  return bouts_[static_cast<std::size_t>(Index - 1)];
}

void CLevel::SetBrackets(int16_t value) {
  if (value != 2 && value != 4 && value != 8 && value != 16) return;
  brackets_ = value;
  const auto count = static_cast<std::size_t>(value / 2);
  bouts_.resize(count);
  display_fight_.resize(count, true);
  for (auto& bout : bouts_) {
    if (!bout) bout = std::make_shared<CBout>();
  }
}

void CLevel::Clone(CLevel& Level) const {
  if (&Level == this) return;
  Level.SetBrackets(brackets_);
  Level.rounds_ = rounds_;
  for (std::size_t i = 0; i < bouts_.size() && i < Level.bouts_.size(); ++i) {
    if (!Level.bouts_[i] || Level.bouts_[i] == bouts_[i]) {
      Level.bouts_[i] = std::make_shared<CBout>();
    }
    bouts_[i]->Clone(*Level.bouts_[i]);
  }
  Level.display_fight_ = display_fight_;
  Level.display_fight_.resize(Level.bouts_.size(), true);
}

bool CLevel::DisplayFight(int16_t Index) const {
  return InRange(Index, display_fight_.size()) &&
         display_fight_[static_cast<std::size_t>(Index - 1)];
}

void CLevel::SetDisplayFight(int16_t Index, bool value) {
  if (InRange(Index, display_fight_.size())) {
    display_fight_[static_cast<std::size_t>(Index - 1)] = value;
  }
}

void CLevel::SetRounds(int16_t value) {
  switch (value) {
    case 3:
    case 4:
    case 6:
    case 8:
    case 10:
    case 12:
    case 15:
      rounds_ = value;
      break;
    default:
      rounds_ = 10;
      break;
  }
}

void CLevel::WriteToStream(CStream& stream) {
  stream.WriteLng(kLevelMarker);
  stream.WriteInt(brackets_);
  stream.WriteInt(rounds_);
  stream.WriteInt(BoutCount());
  for (const auto& bout : bouts_) bout->WriteToStream(stream);
  for (bool display : display_fight_) stream.WriteBln(display);
}

void CLevel::ReadFromStream(CStream& stream) {
  stream.ReadLng();  // the marker; not checked
  SetBrackets(stream.ReadInt());
  SetRounds(stream.ReadInt());
  stream.ReadInt();  // the bout count: the level's own count comes from Brackets
  for (auto& bout : bouts_) bout->ReadFromStream(stream);
  for (std::size_t i = 0; i < display_fight_.size(); ++i) display_fight_[i] = stream.ReadBln();
}

}  // namespace ringbook
