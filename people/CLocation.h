#pragma once

#include <cstdint>
#include <string>

#include "core/CStream.h"
#include "core/Export.h"
#include "core/Object.h"
#include "core/StreamRecord.h"

namespace ringbook {

/// A fight venue: an arena in a city and country, with its era, price index
/// and site rating. A plain value: the `NLocations` collection builds one
/// from a row and writes one back; a fight card saves one inside its file.
class RINGBOOK_EXPORT CLocation : public Object, public StreamRecord {
 public:
  /// The texts are stored exactly as given; setting any of the three
  /// rebuilds `Name`.
  const std::string& Arena() const { return arena_; }
  void SetArena(const std::string& value);
  const std::string& City() const { return city_; }
  void SetCity(const std::string& value);
  const std::string& Country() const { return country_; }
  void SetCountry(const std::string& value);

  /// Copies, in this order, `Arena`, `City`, `Country`, `ID`, `PriceIndex`,
  /// `SiteRating` and `Era` into `target` through its setters, so the
  /// target's `Name` is rebuilt.
  void Clone(CLocation& target) const;

  int16_t Era() const { return era_; }
  void SetEra(int16_t value) { era_ = value; }

  /// Key of the row ("LocationID"); 0 when not stored. Unlike the other
  /// records, the host may set a location's ID.
  int32_t ID() const { return id_; }
  void SetID(int32_t value) { id_ = value; }

  /// "Arena, City Country" from the trimmed parts: the city follows the
  /// arena after ", ", the country follows after one blank; a part that is
  /// empty after trimming is left out with its separator. Without an arena
  /// the name is empty, whatever the city and country.
  const std::string& Name() const { return name_; }

  int32_t PriceIndex() const { return price_index_; }
  void SetPriceIndex(int32_t value) { price_index_ = value; }
  int32_t SiteRating() const { return site_rating_; }
  void SetSiteRating(int32_t value) { site_rating_ = value; }

  /// Component-internal: the location's record inside a saved file. Marker
  /// 1000001, `Arena`, `City`, `Country`, `Era`, `ID`, then `PriceIndex` and
  /// `SiteRating` as their low 16 bits (no range check). Reading takes the
  /// same values in the same order without checking the marker, stores the
  /// texts through the setters and widens the two 16-bit values with their
  /// sign, so a price index of 70000 comes back as 4464.
  void WriteToStream(CStream& stream) override;
  void ReadFromStream(CStream& stream) override;

 private:
  void BuildName();

  std::string arena_;
  std::string city_;
  std::string country_;
  std::string name_;
  int16_t era_ = 0;
  int32_t id_ = 0;
  int32_t price_index_ = 0;
  int32_t site_rating_ = 0;
};

}  // namespace ringbook
