#include "schedule/CTournament.h"

namespace ringbook {
namespace {

constexpr int32_t kTournamentMarker = 1000001;

}  // namespace

CTournament::CTournament() : options_(std::make_shared<COptions>()) {
  options_->SetStyle(eosTournament);
  name_ = "My Tournament";
  SetLevels(options_->TournamentDefaultLevels());
  for (int16_t i = 1; i <= Levels(); ++i) {
    levels_[static_cast<std::size_t>(i - 1)]->SetRounds(options_->TournamentDefaultRounds(i));
  }
}

void CTournament::Clone(CTournament& Tournament) const {
  if (&Tournament == this) return;
  Tournament.name_ = name_;
  Tournament.levels_.resize(levels_.size());
  for (std::size_t i = 0; i < levels_.size(); ++i) {
    auto& target = Tournament.levels_[i];
    if (!target || target == levels_[i]) target = std::make_shared<CLevel>();
    levels_[i]->Clone(*target);
  }
  if (!options_) {
    Tournament.options_.reset();
  } else {
    if (!Tournament.options_ || Tournament.options_ == options_) {
      Tournament.options_ = std::make_shared<COptions>();
    }
    options_->Clone(*Tournament.options_);
  }
}

std::shared_ptr<CLevel> CTournament::Level(int16_t Index) const {
  if (Index < 1 || Index > Levels()) return nullptr;
  return levels_[static_cast<std::size_t>(Index - 1)];
}

void CTournament::SetLevels(int16_t value) {
  if (value < 2 || value > 4) return;
  levels_.resize(static_cast<std::size_t>(value));
  for (std::size_t i = 0; i < levels_.size(); ++i) {
    if (levels_[i]) continue;
    levels_[i] = std::make_shared<CLevel>();
    levels_[i]->SetBrackets(static_cast<int16_t>(2 << i));  // 2 to the power i+1
  }
}

void CTournament::WriteToStream(CStream& stream) {
  stream.WriteLng(kTournamentMarker);
  stream.WriteStr(name_);
  stream.WriteInt(Levels());
  for (const auto& level : levels_) level->WriteToStream(stream);
  if (options_) {
    options_->Save(&stream);
  } else {
    COptions blank;
    blank.Save(&stream);
  }
}

void CTournament::ReadFromStream(CStream& stream) {
  stream.ReadLng();  // the marker; not checked
  SetName(stream.ReadStr());
  SetLevels(stream.ReadInt());
  for (const auto& level : levels_) level->ReadFromStream(stream);
  if (!options_) options_ = std::make_shared<COptions>();
  options_->Load(&stream);
}

}  // namespace ringbook
