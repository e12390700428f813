#include "people/CAnnouncer.h"

#include "people/PersonName_impl.h"

namespace ringbook {
namespace {
constexpr int32_t kRecordMarker = 1000001;
}  // namespace

void CAnnouncer::SetFirstName(const std::string& value) {
  first_name_ = value;
  BuildName();
}

void CAnnouncer::SetLastName(const std::string& value) {
  last_name_ = value;
  BuildName();
}

void CAnnouncer::BuildName() {
  name_ = people_impl::JoinFirstLast(first_name_, last_name_);
}

void CAnnouncer::Clone(CAnnouncer& target) const {
  target.SetID(id_);
  target.SetFirstName(first_name_);
  target.SetLastName(last_name_);
  target.SetEra(era_);
}

void CAnnouncer::WriteToStream(CStream& stream) {
  stream.WriteLng(kRecordMarker);
  stream.WriteLng(id_);
  stream.WriteStr(first_name_);
  stream.WriteStr(last_name_);
  stream.WriteInt(era_);
}

void CAnnouncer::ReadFromStream(CStream& stream) {
  stream.ReadLng();  // record marker: one version so far
  SetID(stream.ReadLng());
  SetFirstName(stream.ReadStr());
  SetLastName(stream.ReadStr());
  SetEra(stream.ReadInt());
}

}  // namespace ringbook
