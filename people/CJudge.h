#pragma once

#include <cstdint>
#include <string>

#include "core/CStream.h"
#include "core/Export.h"
#include "core/Object.h"
#include "core/StreamRecord.h"
#include "people/PersonName.h"

namespace ringbook {

/// A judge: scores a bout and carries a bias. A plain value built and stored
/// by `NJudges`; a bout or card saves one inside its file.
class RINGBOOK_EXPORT CJudge : public Object, public StreamRecord {
 public:
  /// The judge's scoring bias (the display-text object names the codes).
  int32_t Bias() const { return bias_; }
  void SetBias(int32_t value) { bias_ = value; }

  /// Copies `ID` (through `SetID`), `FirstName`, `LastName`, `Bias` and
  /// `Era` into `target`, in that order.
  void Clone(CJudge& target) const;

  int16_t Era() const { return era_; }
  void SetEra(int16_t value) { era_ = value; }

  /// Stored as given; setting it rebuilds `Name`.
  const std::string& FirstName() const { return names_.First(); }
  void SetFirstName(const std::string& value) { names_.SetFirst(value); }

  /// Key of the row ("JudgeID"); 0 when not stored.
  int32_t ID() const { return id_; }
  /// Component-internal: used by the collection, `Clone` and the stream.
  void SetID(int32_t value) { id_ = value; }

  /// Stored as given; setting it rebuilds `Name`.
  const std::string& LastName() const { return names_.Last(); }
  void SetLastName(const std::string& value) { names_.SetLast(value); }

  /// The trimmed first name, one blank and the trimmed last name; the blank
  /// is always there (a judge with neither name is named " ").
  const std::string& Name() const { return names_.Name(); }

  /// Component-internal: the judge's record inside a saved file. Written as
  /// marker 1000003, `ID`, `FirstName`, `LastName`, `Era` (16-bit) and
  /// `Bias` (32-bit). Reading takes the marker, the ID, the names and the
  /// era, then the bias by the marker: 1000002 is followed by a 16-bit bias,
  /// 1000003 and above by a 32-bit bias, and any older marker by none, which
  /// leaves `Bias` as it was.
  void WriteToStream(CStream& stream) override;
  void ReadFromStream(CStream& stream) override;

 private:
  int32_t bias_ = 0;
  int16_t era_ = 0;
  int32_t id_ = 0;
  people::FirstLastName names_;
};

}  // namespace ringbook
