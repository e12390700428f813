#include "fighters/NFighters.h"

#include "core/HostServices.h"
#include "fighters/FighterColumns_impl.h"

namespace ringbook {
namespace {

constexpr const char* kGroupQuery = "qryFightersByGroupAndDivision";

}  // namespace

NFighters::NFighters() : RecordCollection(fighters::FighterCollection()) {
  group_query_ = DatabaseConnection()->QueryDefs(kGroupQuery);
  group_query_->SetParameter("Enter GroupID", Variant(int16_t{1}));
  group_query_->SetParameter("Enter Division", Variant(int16_t{0}));
  const ProficiencyBounds bounds = Lookup().Proficiency(0);
  group_query_->SetParameter("Enter Low Proficiency", Variant(bounds.Low));
  group_query_->SetParameter("Enter High Proficiency", Variant(bounds.High));
  group_rows_ = group_query_->OpenRecordset(RecordsetType::Snapshot);
}

NFighters::~NFighters() {
  try {
    if (group_query_) group_query_->Close();
    if (group_rows_) group_rows_->Close();
    if (histories_) histories_->Close();
  } catch (...) {
    // Closing releases memory only; nothing is left to report to.
  }
}

std::shared_ptr<CFighter> NFighters::Item(int32_t ID) {
  Recordset& rows = Rows();
  rows.FindFirst(Criterion(ID));
  if (rows.NoMatch()) return std::make_shared<CFighter>();
  return pvtReadRecord();
}

std::shared_ptr<CFighter> NFighters::UpdatePartialRecord(std::shared_ptr<CFighter> Fighter,
                                                         ERecordSection RecordSection) {
  if (!Fighter) throw Error::ObjectNotSet();
  Recordset& rows = Rows();
  rows.FindFirst(Criterion(Fighter->ID()));
  if (rows.NoMatch()) {
    ShowMessage("Stop in NFighters.UpdatePartialRecord");
    return nullptr;
  }
  rows.Edit();
  const bool whole = RecordSection == ersAll;
  const bool known = whole || RecordSection == ersProfile || RecordSection == ersCareer;
  pvtWriteFieldsWhere(
      Fighter.get(), [&](int32_t section) { return known && (whole || section == RecordSection); });
  // The history row goes in while the fighter's row is still being edited,
  // through a recordset of its own.
  pvtUpdateFightHistories(*Fighter, RecordSection);
  rows.Update();
  rows.Requery();
  return nullptr;
}

void NFighters::pvtUpdateList(EUpdateListbox kind, const CFighter& fighter, bool select) {
  if (kind != updListAdd && kind != updListUpdate) {
    RecordCollection::pvtUpdateList(kind, fighter, select);
    return;
  }
  const std::shared_ptr<IListControl> list = BoundList();
  if (!list) return;

  // The fighter's place: his row's number in the group query for his group
  // and division (the proficiency bounds stay those of the last fill). A
  // fighter the query does not return counts to its end.
  group_query_->SetParameter("Enter GroupID", Variant(fighter.GroupID()));
  group_query_->SetParameter("Enter Division", Variant(fighter.Division()));
  group_rows_ = group_query_->OpenRecordset(RecordsetType::Snapshot);
  Recordset& rows = *group_rows_;
  int32_t position = 0;
  while (!rows.Eof()) {
    ++position;
    if (FieldEquals(rows, "FighterID", fighter.ID())) break;
    rows.MoveNext();
  }

  if (kind == updListUpdate) {
    const int32_t count = list->ListCount();
    for (int32_t i = 0; i < count; ++i) {
      if (list->ItemData(i) == fighter.ID()) {
        list->RemoveItem(i);
        break;
      }
    }
  }
  list->AddItem(fighter.Name(false), position - 1);
  list->SetItemData(list->NewIndex(), fighter.ID());
  list->Refresh();
  BindTo(Variant(Utility().PrepareList(list)));
  if (select) {
    const std::shared_ptr<IListControl>& kept = BoundList();
    if (!kept) throw Error::ObjectNotSet();
    kept->SetSelected(kept->NewIndex(), true);
  }
}

}  // namespace ringbook
