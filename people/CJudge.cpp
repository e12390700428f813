#include "people/CJudge.h"

namespace ringbook {
namespace {
// Marker history of the judge's record: 1000002 added a 16-bit bias, 1000003
// widened it to 32 bits. Older records carry no bias at all.
constexpr int32_t kMarkerShortBias = 1000002;
constexpr int32_t kMarkerLongBias = 1000003;
}  // namespace

void CJudge::Clone(CJudge& target) const {
  target.SetID(id_);
  target.SetFirstName(FirstName());
  target.SetLastName(LastName());
  target.SetBias(bias_);
  target.SetEra(era_);
}

void CJudge::WriteToStream(CStream& stream) {
  stream.WriteLng(kMarkerLongBias);
  stream.WriteLng(id_);
  names_.Write(stream);
  stream.WriteInt(era_);
  stream.WriteLng(bias_);
}

void CJudge::ReadFromStream(CStream& stream) {
  const int32_t marker = stream.ReadLng();
  SetID(stream.ReadLng());
  names_.Read(stream);
  SetEra(stream.ReadInt());
  if (marker == kMarkerShortBias) {
    SetBias(stream.ReadInt());
  } else if (marker >= kMarkerLongBias) {
    SetBias(stream.ReadLng());
  }
  // Any other marker is an older record without a bias: keep the current one.
}

}  // namespace ringbook
