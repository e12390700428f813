#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/Enums.h"
#include "core/Export.h"
#include "core/IListControl.h"
#include "core/Object.h"
#include "core/Variant.h"
#include "fighters/CHistory.h"

namespace ringbook {

/// The in-memory record of one boxer: identity, staff links and stored
/// ratings (the profile section), and career totals, titles and the latest
/// fight (the career section). A plain value: `NFighters` builds one from a
/// row and writes one back; the fight engine reads its ratings. The record
/// never touches the database.
///
/// Setters clamp rather than fail, and raise the change flag of their
/// section (see `Dirty`). The staff and selection fields (`CutManID`,
/// `TrainerID`, `DrawPower`, `Proficiency`, `Intellect`, `Training`,
/// `GroupID`) raise no flag; nor do `ID`, `TitleIDs` and `History`.
class RINGBOOK_EXPORT CFighter : public Object {
 public:
  // ---- Profile section ----

  int16_t ActiveRetired() const { return active_retired_; }
  void SetActiveRetired(int16_t value) { SetProfile(active_retired_, value); }
  int16_t Agg() const { return agg_; }
  void SetAgg(int16_t value) { SetProfile(agg_, value); }

  /// The ten float ratings (`Cb2`, `Cb3`, `Cr2`, `Cr3`, `H2`, `H3`, `J2`,
  /// `J3`, `U2`, `U3`) store anything that is not >= 0 (negative or NaN) as 0.
  float Cb2() const { return cb2_; }
  void SetCb2(float value) { SetPunchRating(cb2_, value); }
  float Cb3() const { return cb3_; }
  void SetCb3(float value) { SetPunchRating(cb3_, value); }

  int16_t Cfb() const { return cfb_; }
  void SetCfb(int16_t value) { SetProfile(cfb_, value); }
  int16_t Cfs() const { return cfs_; }
  void SetCfs(int16_t value) { SetProfile(cfs_, value); }
  int16_t Cl() const { return cl_; }
  void SetCl(int16_t value) { SetProfile(cl_, value); }
  int16_t Conditioning() const { return conditioning_; }
  void SetConditioning(int16_t value) { SetProfile(conditioning_, value); }
  int16_t Cp() const { return cp_; }
  void SetCp(int16_t value) { SetProfile(cp_, value); }

  float Cr2() const { return cr2_; }
  void SetCr2(float value) { SetPunchRating(cr2_, value); }
  float Cr3() const { return cr3_; }
  void SetCr3(float value) { SetPunchRating(cr3_, value); }

  /// Floors at 0.
  int16_t Cu() const { return cu_; }
  void SetCu(int16_t value) { SetProfileAtLeast(cu_, value, 0); }

  /// `ID` of the fighter's cut man (a cornerman). Raises no flag.
  int32_t CutManID() const { return cut_man_id_; }
  void SetCutManID(int32_t value) { cut_man_id_ = value; }

  int16_t Cuts() const { return cuts_; }
  void SetCuts(int16_t value) { SetProfile(cuts_, value); }
  int16_t Defn() const { return defn_; }
  void SetDefn(int16_t value) { SetProfile(defn_, value); }
  int16_t Division() const { return division_; }
  void SetDivision(int16_t value) { SetProfile(division_, value); }

  /// Raises no flag.
  int16_t DrawPower() const { return draw_power_; }
  void SetDrawPower(int16_t value) { draw_power_ = value; }

  /// Floors at 0.
  int16_t E10() const { return e10_; }
  void SetE10(int16_t value) { SetProfileAtLeast(e10_, value, 0); }

  int16_t FastSlow() const { return fast_slow_; }
  void SetFastSlow(int16_t value) { SetProfile(fast_slow_, value); }

  /// Floors at 0.
  int16_t Fi() const { return fi_; }
  void SetFi(int16_t value) { SetProfileAtLeast(fi_, value, 0); }

  /// Keeps the first 25 characters (code points) of `value`, trimmed of
  /// blanks, and recomposes the full name.
  const std::string& FirstName() const { return first_name_; }
  void SetFirstName(const std::string& value);

  /// Floors at 0.
  int16_t Fo() const { return fo_; }
  void SetFo(int16_t value) { SetProfileAtLeast(fo_, value, 0); }

  int16_t Fouls() const { return fouls_; }
  void SetFouls(int16_t value) { SetProfile(fouls_, value); }

  /// `ID` of the fighter's group, as decimal text without padding. The setter
  /// converts the first 12 characters of `value` to a 32-bit integer; text
  /// that is not a number fails with type mismatch (13), and one beyond the
  /// 32-bit range with overflow (6), leaving the group as it was. Raises no
  /// flag.
  std::string GroupID() const;
  void SetGroupID(const std::string& value);

  float H2() const { return h2_; }
  void SetH2(float value) { SetPunchRating(h2_, value); }
  float H3() const { return h3_; }
  void SetH3(float value) { SetPunchRating(h3_, value); }

  int16_t Hp() const { return hp_; }
  void SetHp(int16_t value) { SetProfile(hp_, value); }

  /// Key of the row ("FighterID"); 0 when not stored.
  int32_t ID() const { return id_; }
  /// Component-internal: used by the collection and by `Clone`. Raises no flag.
  void SetID(int32_t value) { id_ = value; }

  int16_t Icor() const { return icor_; }
  void SetIcor(int16_t value) { SetProfile(icor_, value); }

  float J2() const { return j2_; }
  void SetJ2(float value) { SetPunchRating(j2_, value); }
  float J3() const { return j3_; }
  void SetJ3(float value) { SetPunchRating(j3_, value); }

  int16_t Kdr1() const { return kdr1_; }
  void SetKdr1(int16_t value) { SetProfile(kdr1_, value); }
  int16_t Kdr2() const { return kdr2_; }
  void SetKdr2(int16_t value) { SetProfile(kdr2_, value); }
  int16_t Ki() const { return ki_; }
  void SetKi(int16_t value) { SetProfile(ki_, value); }

  /// Floors at 0.
  int16_t Ko() const { return ko_; }
  void SetKo(int16_t value) { SetProfileAtLeast(ko_, value, 0); }

  /// Deliberately the other way round from every other rating: reading
  /// `Kor` raises the profile flag, setting it raises none.
  int16_t Kor() const {
    profile_dirty_ = true;
    return kor_;
  }
  void SetKor(int16_t value) { kor_ = value; }

  /// As `FirstName`.
  const std::string& LastName() const { return last_name_; }
  void SetLastName(const std::string& value);

  /// Keeps the first 30 characters of `value`, trimmed, and recomposes the
  /// full name.
  const std::string& NickName() const { return nick_name_; }
  void SetNickName(const std::string& value);

  /// Stored as given.
  const std::string& PicturePath() const { return picture_path_; }
  void SetPicturePath(const std::string& value) { SetProfile(picture_path_, value); }

  int16_t Pl() const { return pl_; }
  void SetPl(int16_t value) { SetProfile(pl_, value); }
  int16_t Pm() const { return pm_; }
  void SetPm(int16_t value) { SetProfile(pm_, value); }

  /// Raises no flag.
  int16_t Proficiency() const { return proficiency_; }
  void SetProficiency(int16_t value) { proficiency_ = value; }

  int16_t Rating() const { return rating_; }
  void SetRating(int16_t value) { SetProfile(rating_, value); }
  int16_t Rm() const { return rm_; }
  void SetRm(int16_t value) { SetProfile(rm_, value); }

  /// `Sex`, `SkinColor` and `SouthPaw` are stored in one byte: the setter
  /// keeps the low byte of `value` (257 reads back as 1, -1 as 255).
  int16_t Sex() const { return sex_; }
  void SetSex(int16_t value) { SetProfileLowByte(sex_, value); }
  int16_t SkinColor() const { return skin_color_; }
  void SetSkinColor(int16_t value) { SetProfileLowByte(skin_color_, value); }
  /// 0 for an orthodox fighter, anything else for a south-paw.
  int16_t SouthPaw() const { return south_paw_; }
  void SetSouthPaw(int16_t value) { SetProfileLowByte(south_paw_, value); }

  int16_t Style() const { return style_; }
  void SetStyle(int16_t value) { SetProfile(style_, value); }

  /// Floors at 1 (not 0, unlike the other clamped ratings): a TKO rating
  /// below 1 would never let a stoppage happen.
  int16_t Tko() const { return tko_; }
  void SetTko(int16_t value) { SetProfileAtLeast(tko_, value, 1); }

  float U2() const { return u2_; }
  void SetU2(float value) { SetPunchRating(u2_, value); }
  float U3() const { return u3_; }
  void SetU3(float value) { SetPunchRating(u3_, value); }

  /// Raise no flag.
  int16_t Intellect() const { return intellect_; }
  void SetIntellect(int16_t value) { intellect_ = value; }
  /// `ID` of the fighter's trainer (a cornerman).
  int32_t TrainerID() const { return trainer_id_; }
  void SetTrainerID(int32_t value) { trainer_id_ = value; }
  int16_t Training() const { return training_; }
  void SetTraining(int16_t value) { training_ = value; }

  // ---- Career section: every setter raises the career flag, stored as given ----

  float DisplayPerf() const { return display_perf_; }
  void SetDisplayPerf(float value) { SetCareer(display_perf_, value); }
  int32_t Draw() const { return draw_; }
  void SetDraw(int32_t value) { SetCareer(draw_, value); }
  bool HasPerformance() const { return has_performance_; }
  void SetHasPerformance(bool value) { SetCareer(has_performance_, value); }
  int32_t KdsFor() const { return kds_for_; }
  void SetKdsFor(int32_t value) { SetCareer(kds_for_, value); }
  int32_t Kos() const { return kos_; }
  void SetKos(int32_t value) { SetCareer(kos_, value); }
  int32_t Lost() const { return lost_; }
  void SetLost(int32_t value) { SetCareer(lost_, value); }
  int32_t OpTotalCuts() const { return op_total_cuts_; }
  void SetOpTotalCuts(int32_t value) { SetCareer(op_total_cuts_, value); }
  int32_t OpKdsFor() const { return op_kds_for_; }
  void SetOpKdsFor(int32_t value) { SetCareer(op_kds_for_, value); }
  int32_t OpTotalPl() const { return op_total_pl_; }
  void SetOpTotalPl(int32_t value) { SetCareer(op_total_pl_, value); }
  int32_t OpTotalPm() const { return op_total_pm_; }
  void SetOpTotalPm(int32_t value) { SetCareer(op_total_pm_, value); }
  /// A copy of whatever value is given (number, text, Empty).
  const Variant& Performance() const { return performance_; }
  void SetPerformance(const Variant& value) { SetCareer(performance_, value); }
  int32_t Rank() const { return rank_; }
  void SetRank(int32_t value) { SetCareer(rank_, value); }
  int32_t Tkos() const { return tkos_; }
  void SetTkos(int32_t value) { SetCareer(tkos_, value); }
  int32_t TotalCuts() const { return total_cuts_; }
  void SetTotalCuts(int32_t value) { SetCareer(total_cuts_, value); }
  int32_t TotalPl() const { return total_pl_; }
  void SetTotalPl(int32_t value) { SetCareer(total_pl_, value); }
  int32_t TotalPm() const { return total_pm_; }
  void SetTotalPm(int32_t value) { SetCareer(total_pm_, value); }
  int32_t TotalRounds() const { return total_rounds_; }
  void SetTotalRounds(int32_t value) { SetCareer(total_rounds_, value); }
  int32_t Won() const { return won_; }
  void SetWon(int32_t value) { SetCareer(won_, value); }

  /// The `ID`s of the titles held, each enclosed in "|" ("|3|17|"); empty
  /// when none. A plain field: raises no flag.
  const std::string& TitleIDs() const { return title_ids_; }
  void SetTitleIDs(const std::string& value) { title_ids_ = value; }

  /// The latest fight, which the collection adds to the fight history when
  /// the career section is saved; nullptr when not set. Raises no flag.
  const std::shared_ptr<CHistory>& History() const { return history_; }
  void SetHistory(std::shared_ptr<CHistory> value) { history_ = std::move(value); }

  // ---- Derived figures ----
  // Quotients are worked in double precision and rounded to float. Sums of
  // career totals beyond the 32-bit range fail with overflow (6).

  /// `Won` + `Lost` + `Draw`.
  int32_t TotalBouts() const;
  /// `TotalRounds` / `TotalBouts`; 0 without bouts.
  float AvgRounds() const;
  /// (`Kos` + `Tkos`) / `TotalBouts` as a fraction; 0 without bouts.
  float KoPct() const;
  /// `Won` / `TotalBouts` as a fraction (draws count); 0 without bouts.
  float WonLostPct() const;
  /// 60 % of `TotalPl` / (`TotalPl` + `TotalPm`); 0 when the sum is 0 or less.
  float PunchAccuracy() const;
  /// The same rule on the opponents' totals.
  float OpAccuracy() const;
  /// "Won - Lost - Draw", for example "12 - 3 - 1".
  std::string Record() const;
  /// With `IgnoreNickName`: first name, one blank and last name, trimmed.
  /// Otherwise the full name: first name, nickname (when there is one) and
  /// last name, joined by blanks and trimmed; the nickname gets no quotes.
  std::string Name(bool IgnoreNickName = false) const;
  /// Fills the host's list control `ListControl` with the titles this
  /// fighter holds: clears it, then adds the name of every title of the
  /// game database ("qryTitles" order) whose "|ID|" occurs in `TitleIDs`,
  /// with the title's `ID` as its `ItemData`. With `TitleIDs` empty the list
  /// shows the single item "None". The font is bold exactly when `TitleIDs`
  /// is not empty. `ListControl` must hold a list control (type mismatch
  /// otherwise, object not set for Nothing); failures of the control or of
  /// the database reach the caller.
  void FillListWithTitles(const Variant& ListControl) const;
  /// Always false, whatever `TitleIDs` holds: callers test `TitleIDs` or use
  /// `FillListWithTitles`.
  bool HasTitles() const { return false; }
  /// True once any setter that raises a flag has run (or `Kor` was read).
  /// Nothing in the record lowers the flags again.
  bool Dirty() const { return profile_dirty_ || career_dirty_; }
  /// Component-internal: the flag of each section.
  bool ProfileDirty() const { return profile_dirty_; }
  bool CareerDirty() const { return career_dirty_; }
  /// Component-internal: a stamp of the ten punch ratings, renewed by each of
  /// their setters (and so by `Clone` of the profile). Stamps are never
  /// reused, and a copy of a record carries its stamp with its ratings, so two
  /// records with the same stamp hold the same ratings; a new record's stamp
  /// is 0 with every rating 0. Lets a cache of the ratings tell it is current
  /// without reading them.
  uint64_t PunchRatingsStamp() const { return punch_stamp_; }

  /// Copies the chosen section(s) of this record into `Fighter` through its
  /// setters, so the target's rules apply and its flags are raised. The
  /// profile copies `GroupID` (as text), `ID` and every profile field; the
  /// career copies the totals, the performance, `TitleIDs` and, when this
  /// record has a `History`, a fresh copy of it (otherwise the target keeps
  /// its own). A value other than the three sections copies nothing.
  void Clone(CFighter& Fighter, ERecordSection RecordSection = ersAll) const;

 private:
  template <class T>
  void SetProfile(T& field, const T& value) {
    field = value;
    profile_dirty_ = true;
  }
  template <class T>
  void SetCareer(T& field, const T& value) {
    field = value;
    career_dirty_ = true;
  }
  // The profile setters differ only in the floor they apply before raising
  // the profile flag.
  void SetProfileAtLeast(int16_t& field, int16_t value, int16_t floor) {
    SetProfile(field, value < floor ? floor : value);
  }
  void SetProfileLowByte(uint8_t& field, int16_t value) {
    SetProfile(field, static_cast<uint8_t>(value & 0xFF));
  }
  void SetPunchRating(float& field, float value);
  void SetProfileName(std::string& field, const std::string& value, std::size_t chars);
  void RebuildFullName();

  int16_t active_retired_ = 0;
  int16_t agg_ = 0;
  float cb2_ = 0;
  float cb3_ = 0;
  int16_t cfb_ = 0;
  int16_t cfs_ = 0;
  int16_t cl_ = 0;
  int16_t conditioning_ = 0;
  int16_t cp_ = 0;
  float cr2_ = 0;
  float cr3_ = 0;
  int16_t cu_ = 0;
  int32_t cut_man_id_ = 0;
  int16_t cuts_ = 0;
  int16_t defn_ = 0;
  int16_t division_ = 0;
  int16_t draw_power_ = 0;
  int16_t e10_ = 0;
  int16_t fast_slow_ = 0;
  int16_t fi_ = 0;
  std::string first_name_;
  int16_t fo_ = 0;
  int16_t fouls_ = 0;
  int32_t group_id_ = 0;
  float h2_ = 0;
  float h3_ = 0;
  int16_t hp_ = 0;
  int32_t id_ = 0;
  int16_t icor_ = 0;
  float j2_ = 0;
  float j3_ = 0;
  int16_t kdr1_ = 0;
  int16_t kdr2_ = 0;
  int16_t ki_ = 0;
  int16_t ko_ = 0;
  int16_t kor_ = 0;
  std::string last_name_;
  std::string nick_name_;
  std::string picture_path_;
  int16_t pl_ = 0;
  int16_t pm_ = 0;
  int16_t proficiency_ = 0;
  int16_t rating_ = 0;
  int16_t rm_ = 0;
  uint8_t sex_ = 0;
  uint8_t skin_color_ = 0;
  uint8_t south_paw_ = 0;
  int16_t style_ = 0;
  int16_t tko_ = 0;
  float u2_ = 0;
  float u3_ = 0;
  int16_t intellect_ = 0;
  int32_t trainer_id_ = 0;
  int16_t training_ = 0;

  float display_perf_ = 0;
  int32_t draw_ = 0;
  bool has_performance_ = false;
  int32_t kds_for_ = 0;
  int32_t kos_ = 0;
  int32_t lost_ = 0;
  int32_t op_total_cuts_ = 0;
  int32_t op_kds_for_ = 0;
  int32_t op_total_pl_ = 0;
  int32_t op_total_pm_ = 0;
  Variant performance_;
  int32_t rank_ = 0;
  int32_t tkos_ = 0;
  int32_t total_cuts_ = 0;
  int32_t total_pl_ = 0;
  int32_t total_pm_ = 0;
  int32_t total_rounds_ = 0;
  int32_t won_ = 0;
  std::string title_ids_;
  std::shared_ptr<CHistory> history_;

  std::string full_name_;
  uint64_t punch_stamp_ = 0;
  mutable bool profile_dirty_ = false;
  bool career_dirty_ = false;
};

}  // namespace ringbook
