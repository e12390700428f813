#include "people/CLocation.h"

#include "core/Text.h"

namespace ringbook {
namespace {
constexpr int32_t kRecordMarker = 1000001;
}  // namespace

void CLocation::SetArena(const std::string& value) {
  arena_ = value;
  BuildName();
}

void CLocation::SetCity(const std::string& value) {
  city_ = value;
  BuildName();
}

void CLocation::SetCountry(const std::string& value) {
  country_ = value;
  BuildName();
}

void CLocation::BuildName() {
  name_.clear();
  const std::string arena = text::Trim(arena_);
  if (!arena.empty()) {
    const std::string city = text::Trim(city_);
    name_ = city.empty() ? arena : arena + ", " + city;
  }
  // The country is joined by a blank, not a comma, and only to a name that
  // already has an arena.
  const std::string country = text::Trim(country_);
  if (!name_.empty() && !country.empty()) name_ += " " + country;
}

void CLocation::Clone(CLocation& target) const {
  target.SetArena(arena_);
  target.SetCity(city_);
  target.SetCountry(country_);
  target.SetID(id_);
  target.SetPriceIndex(price_index_);
  target.SetSiteRating(site_rating_);
  target.SetEra(era_);
}

void CLocation::WriteToStream(CStream& stream) {
  stream.WriteLng(kRecordMarker);
  stream.WriteStr(arena_);
  stream.WriteStr(city_);
  stream.WriteStr(country_);
  stream.WriteInt(era_);
  stream.WriteLng(id_);
  // Only the low 16 bits of the two 32-bit figures fit the record.
  stream.WriteInt(static_cast<int16_t>(static_cast<uint16_t>(price_index_ & 0xFFFF)));
  stream.WriteInt(static_cast<int16_t>(static_cast<uint16_t>(site_rating_ & 0xFFFF)));
}

void CLocation::ReadFromStream(CStream& stream) {
  stream.ReadLng();  // record marker: one version so far
  SetArena(stream.ReadStr());
  SetCity(stream.ReadStr());
  SetCountry(stream.ReadStr());
  SetEra(stream.ReadInt());
  SetID(stream.ReadLng());
  SetPriceIndex(stream.ReadInt());
  SetSiteRating(stream.ReadInt());
}

}  // namespace ringbook
