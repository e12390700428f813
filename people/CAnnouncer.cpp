#include "people/CAnnouncer.h"

namespace ringbook {
namespace {
constexpr int32_t kRecordMarker = 1000001;
}  // namespace

void CAnnouncer::Clone(CAnnouncer& target) const {
  target.SetID(id_);
  target.SetFirstName(FirstName());
  target.SetLastName(LastName());
  target.SetEra(era_);
}

void CAnnouncer::WriteToStream(CStream& stream) {
  stream.WriteLng(kRecordMarker);
  stream.WriteLng(id_);
  names_.Write(stream);
  stream.WriteInt(era_);
}

void CAnnouncer::ReadFromStream(CStream& stream) {
  stream.ReadLng();  // record marker: one version so far
  SetID(stream.ReadLng());
  names_.Read(stream);
  SetEra(stream.ReadInt());
}

}  // namespace ringbook
