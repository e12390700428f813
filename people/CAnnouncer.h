#pragma once

#include <cstdint>
#include <string>

#include "core/CStream.h"
#include "core/Export.h"
#include "core/Object.h"
#include "core/StreamRecord.h"
#include "people/PersonName.h"

namespace ringbook {

/// A ring announcer: a name and an era. A plain value built and stored by
/// `NAnnouncers`; the options save one inside their record.
class RINGBOOK_EXPORT CAnnouncer : public Object, public StreamRecord {
 public:
  /// Copies `ID` (through `SetID`), `FirstName`, `LastName` and `Era` into
  /// `target`, in that order.
  void Clone(CAnnouncer& target) const;

  int16_t Era() const { return era_; }
  void SetEra(int16_t value) { era_ = value; }

  /// Stored as given; setting it rebuilds `Name`.
  const std::string& FirstName() const { return names_.First(); }
  void SetFirstName(const std::string& value) { names_.SetFirst(value); }

  /// Key of the row ("AnnouncerID"); 0 when not stored.
  int32_t ID() const { return id_; }
  /// Component-internal: used by the collection, `Clone` and the stream.
  void SetID(int32_t value) { id_ = value; }

  /// Stored as given; setting it rebuilds `Name`.
  const std::string& LastName() const { return names_.Last(); }
  void SetLastName(const std::string& value) { names_.SetLast(value); }

  /// The trimmed first name, one blank and the trimmed last name; the blank
  /// is always there (an announcer with neither name is named " ").
  const std::string& Name() const { return names_.Name(); }

  /// Component-internal: the announcer's record inside a saved file. Marker
  /// 1000001, `ID`, `FirstName`, `LastName`, `Era` (16-bit); read back in
  /// the same order, the marker not checked.
  void WriteToStream(CStream& stream) override;
  void ReadFromStream(CStream& stream) override;

 private:
  int16_t era_ = 0;
  int32_t id_ = 0;
  people::FirstLastName names_;
};

}  // namespace ringbook
