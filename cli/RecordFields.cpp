#include "cli/RecordFields.h"

namespace ringbook::cli {
namespace {

constexpr FieldKind kText = FieldKind::Text;
constexpr FieldKind kI2 = FieldKind::Int16;
constexpr FieldKind kI4 = FieldKind::Int32;
constexpr FieldKind kR4 = FieldKind::Float;

// The composed display name of a person: shown, never set.
template <class R>
Field<R> NameField() {
  return ReadOnlyField<R>("Name", kText, &R::Name);
}

// The first and last name, which a list shows only as the composed name.
template <class R>
std::vector<Field<R>> PersonNames() {
  std::vector<Field<R>> out = {
      MakeField<R>("FirstName", kText, &R::FirstName, &R::SetFirstName),
      MakeField<R>("LastName", kText, &R::LastName, &R::SetLastName),
  };
  for (auto& f : out) f.listed = false;
  return out;
}

template <class R>
std::vector<Field<R>> Join(std::vector<Field<R>> a, const std::vector<Field<R>>& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

}  // namespace

const std::vector<Field<CLocation>>& LocationFields() {
  using R = CLocation;
  static const std::vector<Field<R>> fields = [] {
    std::vector<Field<R>> f = {
        KeyField<R>(),
        MakeField<R>("Arena", kText, &R::Arena, &R::SetArena),
        MakeField<R>("City", kText, &R::City, &R::SetCity),
        MakeField<R>("Country", kText, &R::Country, &R::SetCountry),
        MakeField<R>("Era", kI2, &R::Era, &R::SetEra),
        MakeField<R>("PriceIndex", kI4, &R::PriceIndex, &R::SetPriceIndex),
        MakeField<R>("SiteRating", kI4, &R::SiteRating, &R::SetSiteRating),
        NameField<R>(),
    };
    f.back().listed = false;
    return f;
  }();
  return fields;
}

const std::vector<Field<CGroup>>& GroupFields() {
  using R = CGroup;
  static const std::vector<Field<R>> fields = {
      KeyField<R>(),
      MakeField<R>("Name", kText, &R::Name, &R::SetName),
  };
  return fields;
}

const std::vector<Field<CTitle>>& TitleFields() {
  using R = CTitle;
  static const std::vector<Field<R>> fields = {
      KeyField<R>(),
      MakeField<R>("Name", kText, &R::Name, &R::SetName),
  };
  return fields;
}

const std::vector<Field<CJudge>>& JudgeFields() {
  using R = CJudge;
  static const std::vector<Field<R>> fields =
      Join<R>(Join<R>({KeyField<R>(), NameField<R>()}, PersonNames<R>()),
              {
                  MakeField<R>("Era", kI2, &R::Era, &R::SetEra),
                  MakeField<R>("Bias", kI4, &R::Bias, &R::SetBias),
              });
  return fields;
}

const std::vector<Field<CReferee>>& RefereeFields() {
  using R = CReferee;
  static const std::vector<Field<R>> fields =
      Join<R>(Join<R>({KeyField<R>(), NameField<R>()}, PersonNames<R>()),
              {
                  MakeField<R>("Era", kI2, &R::Era, &R::SetEra),
                  MakeField<R>("ActiveRetired", kI2, &R::ActiveRetired, &R::SetActiveRetired),
                  MakeField<R>("Fouls", kI2, &R::Fouls, &R::SetFouls),
                  MakeField<R>("Stoppage", kI2, &R::Stoppage, &R::SetStoppage),
                  MakeField<R>("Judgement", kI2, &R::Judgement, &R::SetJudgement),
                  MakeField<R>("Rating", kI2, &R::Rating, &R::SetRating),
              });
  return fields;
}

const std::vector<Field<CAnnouncer>>& AnnouncerFields() {
  using R = CAnnouncer;
  static const std::vector<Field<R>> fields =
      Join<R>(Join<R>({KeyField<R>(), NameField<R>()}, PersonNames<R>()),
              {MakeField<R>("Era", kI2, &R::Era, &R::SetEra)});
  return fields;
}

const std::vector<Field<CCornerman>>& CornermanFields() {
  using R = CCornerman;
  static const std::vector<Field<R>> fields = [] {
    std::vector<Field<R>> f = Join<R>({KeyField<R>(), NameField<R>()}, PersonNames<R>());
    f.push_back(MakeField<R>("NickName", kText, &R::NickName, &R::SetNickName));
    f.back().listed = false;
    return Join<R>(
        std::move(f),
        {
            MakeField<R>("Era", kI2, &R::Era, &R::SetEra),
            MakeField<R>("Specialty", kI2, &R::Specialty, &R::SetSpecialty),
            MakeField<R>("Discipline", kI2, &R::Discipline, &R::SetDiscipline),
            MakeField<R>("Motivate", kI2, &R::Motivate, &R::SetMotivate),
            MakeField<R>("Strategy", kI2, &R::Strategy, &R::SetStrategy),
            MakeField<R>("CloseCuts", kI2, &R::CloseCuts, &R::SetCloseCuts),
            MakeField<R>("ReduceSwelling", kI2, &R::ReduceSwelling, &R::SetReduceSwelling),
            MakeField<R>("TrainingOffense", kI2, &R::TrainingOffense, &R::SetTrainingOffense),
            MakeField<R>("TrainingDefense", kI2, &R::TrainingDefense, &R::SetTrainingDefense),
            MakeField<R>("TrainingAverage", kI2, &R::TrainingAverage, &R::SetTrainingAverage),
        });
  }();
  return fields;
}

const std::vector<Field<CFighter>>& FighterFields() {
  using R = CFighter;
  static const std::vector<Field<R>> fields = [] {
    constexpr int P = kProfileSection;
    constexpr int C = kCareerSection;
    // "GroupID" is text in the record and a whole number everywhere else.
    Field<R> group;
    group.name = "GroupID";
    group.kind = kI4;
    group.section = P;
    group.get = [](const R& r) { return Json(std::stoll(r.GroupID())); };
    group.set = [](R& r, const Json& v) { r.SetGroupID(std::to_string(v.get<int64_t>())); };
    Field<R> performance;
    performance.name = "Performance";
    performance.kind = FieldKind::Value;
    performance.section = C;
    performance.get = [](const R& r) -> Json {
      const Variant& v = r.Performance();
      if (v.IsEmpty() || v.IsNull()) return Json(nullptr);
      if (v.IsNumeric()) return Json(v.ToDouble());
      return Json(v.ToString());
    };
    performance.set = [](R& r, const Json& v) {
      if (v.is_null()) {
        r.SetPerformance(Variant());
      } else if (v.is_number()) {
        r.SetPerformance(Variant(v.get<double>()));
      } else {
        r.SetPerformance(Variant(v.get<std::string>()));
      }
    };
    Field<R> name;
    name.name = "Name";
    name.kind = kText;
    name.get = [](const R& r) { return Json(r.Name()); };

    std::vector<Field<R>> f = {
        KeyField<R>(),
        name,
        group,
        MakeField<R>("FirstName", kText, &R::FirstName, &R::SetFirstName, P),
        MakeField<R>("LastName", kText, &R::LastName, &R::SetLastName, P),
        MakeField<R>("NickName", kText, &R::NickName, &R::SetNickName, P),
        MakeField<R>("Division", kI2, &R::Division, &R::SetDivision, P),
        MakeField<R>("Rating", kI2, &R::Rating, &R::SetRating, P),
        MakeField<R>("Style", kI2, &R::Style, &R::SetStyle, P),
        MakeField<R>("ActiveRetired", kI2, &R::ActiveRetired, &R::SetActiveRetired, P),
        MakeField<R>("Sex", kI2, &R::Sex, &R::SetSex, P),
        MakeField<R>("SouthPaw", kI2, &R::SouthPaw, &R::SetSouthPaw, P),
        MakeField<R>("SkinColor", kI2, &R::SkinColor, &R::SetSkinColor, P),
        MakeField<R>("Cfb", kI2, &R::Cfb, &R::SetCfb, P),
        MakeField<R>("Cfs", kI2, &R::Cfs, &R::SetCfs, P),
        MakeField<R>("Hp", kI2, &R::Hp, &R::SetHp, P),
        MakeField<R>("Kdr1", kI2, &R::Kdr1, &R::SetKdr1, P),
        MakeField<R>("Kdr2", kI2, &R::Kdr2, &R::SetKdr2, P),
        MakeField<R>("Kor", kI2, &R::Kor, &R::SetKor, P),
        MakeField<R>("Agg", kI2, &R::Agg, &R::SetAgg, P),
        MakeField<R>("Ki", kI2, &R::Ki, &R::SetKi, P),
        MakeField<R>("Tko", kI2, &R::Tko, &R::SetTko, P),
        MakeField<R>("E10", kI2, &R::E10, &R::SetE10, P),
        MakeField<R>("Defn", kI2, &R::Defn, &R::SetDefn, P),
        MakeField<R>("Cuts", kI2, &R::Cuts, &R::SetCuts, P),
        MakeField<R>("Fouls", kI2, &R::Fouls, &R::SetFouls, P),
        MakeField<R>("Icor", kI2, &R::Icor, &R::SetIcor, P),
        MakeField<R>("FastSlow", kI2, &R::FastSlow, &R::SetFastSlow, P),
        MakeField<R>("Fi", kI2, &R::Fi, &R::SetFi, P),
        MakeField<R>("Fo", kI2, &R::Fo, &R::SetFo, P),
        MakeField<R>("Cu", kI2, &R::Cu, &R::SetCu, P),
        MakeField<R>("Ko", kI2, &R::Ko, &R::SetKo, P),
        MakeField<R>("Pl", kI2, &R::Pl, &R::SetPl, P),
        MakeField<R>("Cp", kI2, &R::Cp, &R::SetCp, P),
        MakeField<R>("Pm", kI2, &R::Pm, &R::SetPm, P),
        MakeField<R>("Cl", kI2, &R::Cl, &R::SetCl, P),
        MakeField<R>("Rm", kI2, &R::Rm, &R::SetRm, P),
        MakeField<R>("J3", kR4, &R::J3, &R::SetJ3, P),
        MakeField<R>("J2", kR4, &R::J2, &R::SetJ2, P),
        MakeField<R>("H3", kR4, &R::H3, &R::SetH3, P),
        MakeField<R>("H2", kR4, &R::H2, &R::SetH2, P),
        MakeField<R>("Cr3", kR4, &R::Cr3, &R::SetCr3, P),
        MakeField<R>("Cr2", kR4, &R::Cr2, &R::SetCr2, P),
        MakeField<R>("Cb3", kR4, &R::Cb3, &R::SetCb3, P),
        MakeField<R>("Cb2", kR4, &R::Cb2, &R::SetCb2, P),
        MakeField<R>("U3", kR4, &R::U3, &R::SetU3, P),
        MakeField<R>("U2", kR4, &R::U2, &R::SetU2, P),
        MakeField<R>("Conditioning", kI2, &R::Conditioning, &R::SetConditioning, P),
        MakeField<R>("Intellect", kI2, &R::Intellect, &R::SetIntellect, P),
        MakeField<R>("DrawPower", kI2, &R::DrawPower, &R::SetDrawPower, P),
        MakeField<R>("Proficiency", kI2, &R::Proficiency, &R::SetProficiency, P),
        MakeField<R>("CutManID", kI4, &R::CutManID, &R::SetCutManID, P),
        MakeField<R>("TrainerID", kI4, &R::TrainerID, &R::SetTrainerID, P),
        MakeField<R>("PicturePath", kText, &R::PicturePath, &R::SetPicturePath, P),
        MakeField<R>("Rank", kI4, &R::Rank, &R::SetRank, C),
        MakeField<R>("Won", kI4, &R::Won, &R::SetWon, C),
        MakeField<R>("Lost", kI4, &R::Lost, &R::SetLost, C),
        MakeField<R>("Draw", kI4, &R::Draw, &R::SetDraw, C),
        MakeField<R>("Kos", kI4, &R::Kos, &R::SetKos, C),
        MakeField<R>("Tkos", kI4, &R::Tkos, &R::SetTkos, C),
        MakeField<R>("HasPerformance", FieldKind::Bool, &R::HasPerformance, &R::SetHasPerformance,
                     C),
        performance,
        MakeField<R>("DisplayPerf", kR4, &R::DisplayPerf, &R::SetDisplayPerf, C),
        MakeField<R>("KdsFor", kI4, &R::KdsFor, &R::SetKdsFor, C),
        MakeField<R>("TotalPl", kI4, &R::TotalPl, &R::SetTotalPl, C),
        MakeField<R>("TotalPm", kI4, &R::TotalPm, &R::SetTotalPm, C),
        MakeField<R>("TotalCuts", kI4, &R::TotalCuts, &R::SetTotalCuts, C),
        MakeField<R>("TotalRounds", kI4, &R::TotalRounds, &R::SetTotalRounds, C),
        MakeField<R>("OpKdsFor", kI4, &R::OpKdsFor, &R::SetOpKdsFor, C),
        MakeField<R>("OpTotalPl", kI4, &R::OpTotalPl, &R::SetOpTotalPl, C),
        MakeField<R>("OpTotalPm", kI4, &R::OpTotalPm, &R::SetOpTotalPm, C),
        MakeField<R>("OpTotalCuts", kI4, &R::OpTotalCuts, &R::SetOpTotalCuts, C),
        MakeField<R>("TitleIDs", kText, &R::TitleIDs, &R::SetTitleIDs, C),
        ReadOnlyField<R>("Record", kText, &R::Record),
        ReadOnlyField<R>("TotalBouts", kI4, &R::TotalBouts),
        ReadOnlyField<R>("KoPct", kR4, &R::KoPct),
        ReadOnlyField<R>("WonLostPct", kR4, &R::WonLostPct),
        ReadOnlyField<R>("AvgRounds", kR4, &R::AvgRounds),
        ReadOnlyField<R>("PunchAccuracy", kR4, &R::PunchAccuracy),
        ReadOnlyField<R>("OpAccuracy", kR4, &R::OpAccuracy),
    };
    return f;
  }();
  return fields;
}

const std::vector<Field<CHistory>>& HistoryFields() {
  using R = CHistory;
  static const std::vector<Field<R>> fields = {
      MakeField<R>("FightDate", FieldKind::Date, &R::FightDate, &R::SetFightDate),
      MakeField<R>("Opponent", kText, &R::Opponent, &R::SetOpponent),
      MakeField<R>("WonLost", kText, &R::WonLost, &R::SetWonLost),
      MakeField<R>("Decision", kText, &R::Decision, &R::SetDecision),
      MakeField<R>("Division", kText, &R::Division, &R::SetDivision),
      MakeField<R>("LastRound", kI2, &R::LastRound, &R::SetLastRound),
      MakeField<R>("ScheduledRounds", kI2, &R::ScheduledRounds, &R::SetScheduledRounds),
      MakeField<R>("Notes", kText, &R::Notes, &R::SetNotes),
  };
  return fields;
}

}  // namespace ringbook::cli
