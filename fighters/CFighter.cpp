#include "fighters/CFighter.h"

#include <atomic>

#include "core/Error.h"
#include "core/Text.h"
#include "store/NTitles.h"
#include "store/VariantArray2D.h"

namespace ringbook {
namespace {

constexpr std::size_t kNameChars = 25;
constexpr std::size_t kNickNameChars = 30;
constexpr std::size_t kGroupIDChars = 12;

// The float ratings keep only values >= 0; written this way round so that
// NaN is floored too.
float NonNegative(float value) {
  return value >= 0 ? value : 0.0f;
}

// A 32-bit sum as the runtime adds Longs: past the range is an overflow.
int32_t AddLong(int32_t a, int32_t b) {
  const int64_t sum = static_cast<int64_t>(a) + b;
  if (sum < INT32_MIN || sum > INT32_MAX) throw Error::Overflow();
  return static_cast<int32_t>(sum);
}

float Quotient(double numerator, double denominator) {
  return static_cast<float>(numerator / denominator);
}

// Share of punches landed, discounted to 60 % of the raw ratio.
float Accuracy(int32_t landed, int32_t missed) {
  const int32_t thrown = AddLong(landed, missed);
  if (thrown <= 0) return 0;
  const double ratio = static_cast<double>(landed) / thrown;
  return static_cast<float>(ratio - ratio * 0.4);
}

}  // namespace

void CFighter::SetPunchRating(float& field, float value) {
  // One counter for every record of every thread keeps stamps unique.
  static std::atomic<uint64_t> last_stamp{0};
  SetProfile(field, NonNegative(value));
  punch_stamp_ = last_stamp.fetch_add(1, std::memory_order_relaxed) + 1;
}

void CFighter::SetProfileName(std::string& field, const std::string& value, std::size_t chars) {
  SetProfile(field, text::Trim(text::Left(value, chars)));
  RebuildFullName();
}

void CFighter::SetFirstName(const std::string& value) {
  SetProfileName(first_name_, value, kNameChars);
}
void CFighter::SetLastName(const std::string& value) {
  SetProfileName(last_name_, value, kNameChars);
}
void CFighter::SetNickName(const std::string& value) {
  SetProfileName(nick_name_, value, kNickNameChars);
}

void CFighter::RebuildFullName() {
  if (nick_name_.empty()) {
    full_name_ = text::Trim(first_name_ + " " + last_name_);
  } else {
    full_name_ = text::Trim(first_name_ + " " + nick_name_ + " " + last_name_);
  }
}

std::string CFighter::GroupID() const {
  return std::to_string(group_id_);
}

void CFighter::SetGroupID(const std::string& value) {
  // The runtime's text-to-Long conversion: type mismatch for text that is
  // not a number, overflow past the 32-bit range, halves rounded to even.
  group_id_ = Variant(text::Left(value, kGroupIDChars)).ToLong();
}

int32_t CFighter::TotalBouts() const {
  return AddLong(AddLong(won_, lost_), draw_);
}

float CFighter::AvgRounds() const {
  const int32_t bouts = TotalBouts();
  return bouts == 0 ? 0.0f : Quotient(total_rounds_, bouts);
}

float CFighter::KoPct() const {
  const int32_t bouts = TotalBouts();
  return bouts == 0 ? 0.0f : Quotient(AddLong(kos_, tkos_), bouts);
}

float CFighter::WonLostPct() const {
  const int32_t bouts = TotalBouts();
  return bouts == 0 ? 0.0f : Quotient(won_, bouts);
}

float CFighter::PunchAccuracy() const {
  return Accuracy(total_pl_, total_pm_);
}

float CFighter::OpAccuracy() const {
  return Accuracy(op_total_pl_, op_total_pm_);
}

std::string CFighter::Record() const {
  return std::to_string(won_) + " - " + std::to_string(lost_) + " - " + std::to_string(draw_);
}

std::string CFighter::Name(bool IgnoreNickName) const {
  if (IgnoreNickName) return text::Trim(first_name_ + " " + last_name_);
  return full_name_;
}

void CFighter::FillListWithTitles(const Variant& ListControl) const {
  const std::shared_ptr<IListControl> list = ListControl.As<IListControl>();
  if (!list) throw Error::ObjectNotSet();
  list->Clear();
  if (title_ids_.empty()) {
    list->AddItem("None");
  } else {
    VariantArray2D titles;
    NTitles().FillArray(titles);
    if (titles.IsDimensioned()) {
      for (int32_t row = titles.LBound(1); row <= titles.UBound(1); ++row) {
        const Variant& id = titles(row, 1);
        // Binary search for the enclosed key, so "|1|" never matches "|12|".
        if (title_ids_.find("|" + id.ToText() + "|") == std::string::npos) continue;
        list->AddItem(titles(row, 0).ToText());
        list->SetItemData(list->NewIndex(), id.ToLong());
      }
    }
  }
  list->SetFontBold(!title_ids_.empty());
}

void CFighter::Clone(CFighter& Fighter, ERecordSection RecordSection) const {
  const bool profile = RecordSection == ersAll || RecordSection == ersProfile;
  const bool career = RecordSection == ersAll || RecordSection == ersCareer;

  if (profile) {
    Fighter.SetGroupID(GroupID());
    Fighter.SetID(id_);
    Fighter.SetFirstName(first_name_);
    Fighter.SetLastName(last_name_);
    Fighter.SetNickName(nick_name_);
    Fighter.SetDivision(division_);
    Fighter.SetRating(rating_);
    Fighter.SetStyle(style_);
    Fighter.SetActiveRetired(active_retired_);
    Fighter.SetSex(sex_);
    Fighter.SetSouthPaw(south_paw_);
    Fighter.SetSkinColor(skin_color_);
    Fighter.SetCfb(cfb_);
    Fighter.SetCfs(cfs_);
    Fighter.SetHp(hp_);
    Fighter.SetKdr1(kdr1_);
    Fighter.SetKdr2(kdr2_);
    Fighter.SetKor(kor_);
    Fighter.SetAgg(agg_);
    Fighter.SetKi(ki_);
    Fighter.SetTko(tko_);
    Fighter.SetE10(e10_);
    Fighter.SetDefn(defn_);
    Fighter.SetCuts(cuts_);
    Fighter.SetFouls(fouls_);
    Fighter.SetIcor(icor_);
    Fighter.SetFastSlow(fast_slow_);
    Fighter.SetFi(fi_);
    Fighter.SetFo(fo_);
    Fighter.SetCu(cu_);
    Fighter.SetKo(ko_);
    Fighter.SetPl(pl_);
    Fighter.SetCp(cp_);
    Fighter.SetPm(pm_);
    Fighter.SetCl(cl_);
    Fighter.SetRm(rm_);
    Fighter.SetJ3(j3_);
    Fighter.SetJ2(j2_);
    Fighter.SetH3(h3_);
    Fighter.SetH2(h2_);
    Fighter.SetCr3(cr3_);
    Fighter.SetCr2(cr2_);
    Fighter.SetCb3(cb3_);
    Fighter.SetCb2(cb2_);
    Fighter.SetU3(u3_);
    Fighter.SetU2(u2_);
    Fighter.SetConditioning(conditioning_);
    Fighter.SetIntellect(intellect_);
    Fighter.SetDrawPower(draw_power_);
    Fighter.SetProficiency(proficiency_);
    Fighter.SetCutManID(cut_man_id_);
    Fighter.SetTrainerID(trainer_id_);
    Fighter.SetPicturePath(picture_path_);
  }

  if (career) {
    Fighter.SetRank(rank_);
    Fighter.SetWon(won_);
    Fighter.SetLost(lost_);
    Fighter.SetDraw(draw_);
    Fighter.SetKos(kos_);
    Fighter.SetTkos(tkos_);
    Fighter.SetHasPerformance(has_performance_);
    Fighter.SetPerformance(performance_);
    Fighter.SetDisplayPerf(display_perf_);
    Fighter.SetKdsFor(kds_for_);
    Fighter.SetTotalPl(total_pl_);
    Fighter.SetTotalPm(total_pm_);
    Fighter.SetTotalCuts(total_cuts_);
    Fighter.SetTotalRounds(total_rounds_);
    Fighter.SetOpKdsFor(op_kds_for_);
    Fighter.SetOpTotalPl(op_total_pl_);
    Fighter.SetOpTotalPm(op_total_pm_);
    Fighter.SetOpTotalCuts(op_total_cuts_);
    Fighter.SetTitleIDs(title_ids_);
    // Held by a local so that cloning a fighter into himself still copies.
    if (const std::shared_ptr<CHistory> history = history_) {
      Fighter.SetHistory(std::make_shared<CHistory>());
      history->Clone(Fighter.History());
    }
  }
}

}  // namespace ringbook
