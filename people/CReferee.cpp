#include "people/CReferee.h"

#include "people/PersonName.h"

namespace ringbook {
namespace {
constexpr int32_t kRecordMarker = 1000001;
}  // namespace

void CReferee::SetFirstName(const std::string& value) {
  first_name_ = value;
  BuildName();
}

void CReferee::SetLastName(const std::string& value) {
  last_name_ = value;
  BuildName();
}

void CReferee::BuildName() {
  name_ = people::JoinFirstLast(first_name_, last_name_);
}

void CReferee::Clone(CReferee& target) const {
  // Rating stays with the target by design.
  target.SetID(id_);
  target.SetFirstName(first_name_);
  target.SetLastName(last_name_);
  target.SetEra(era_);
  target.SetActiveRetired(active_retired_);
  target.SetFouls(fouls_);
  target.SetJudgement(judgement_);
  target.SetStoppage(stoppage_);
}

void CReferee::WriteToStream(CStream& stream) {
  stream.WriteLng(kRecordMarker);
  stream.WriteLng(id_);
  stream.WriteStr(first_name_);
  stream.WriteStr(last_name_);
  stream.WriteInt(era_);
  stream.WriteInt(active_retired_);
  stream.WriteInt(fouls_);
  stream.WriteInt(judgement_);
  stream.WriteInt(rating_);
  stream.WriteInt(stoppage_);
}

void CReferee::ReadFromStream(CStream& stream) {
  stream.ReadLng();  // record marker: one version so far
  SetID(stream.ReadLng());
  SetFirstName(stream.ReadStr());
  SetLastName(stream.ReadStr());
  SetEra(stream.ReadInt());
  SetActiveRetired(stream.ReadInt());
  SetFouls(stream.ReadInt());
  SetJudgement(stream.ReadInt());
  SetRating(stream.ReadInt());
  SetStoppage(stream.ReadInt());
}

}  // namespace ringbook
