#include <string>
#include <utility>

#include "core/HostServices.h"
#include "fighters/FighterColumns_impl.h"

namespace ringbook::fighters {
namespace {

using Column = RecordColumn<CFighter>;

Column Int16(std::string name, int16_t (CFighter::*get)() const, void (CFighter::*set)(int16_t),
             ERecordSection section) {
  return {std::move(name),
          [set](CFighter& f, const Variant& v) { (f.*set)(ColumnSum(v).ToInteger()); },
          [get](const CFighter& f) { return Variant((f.*get)()); }, section};
}

Column Int32(std::string name, int32_t (CFighter::*get)() const, void (CFighter::*set)(int32_t),
             ERecordSection section) {
  return {std::move(name),
          [set](CFighter& f, const Variant& v) { (f.*set)(ColumnSum(v).ToLong()); },
          [get](const CFighter& f) { return Variant((f.*get)()); }, section};
}

Column Single(std::string name, float (CFighter::*get)() const, void (CFighter::*set)(float),
              ERecordSection section) {
  return {std::move(name),
          [set](CFighter& f, const Variant& v) { (f.*set)(ColumnSum(v).ToSingle()); },
          [get](const CFighter& f) { return Variant((f.*get)()); }, section};
}

// Texts are joined to the empty text both ways: a Null column reads as "",
// and the property is never written as Null.
Column Text(std::string name, const std::string& (CFighter::*get)() const,
            void (CFighter::*set)(const std::string&), ERecordSection section) {
  Column column = TextField(std::move(name), get, set);
  column.Section = section;
  return column;
}

std::vector<Column> Columns() {
  constexpr ERecordSection P = ersProfile;
  constexpr ERecordSection C = ersCareer;
  return {
      {"GroupID", [](CFighter& f, const Variant& v) { f.SetGroupID(ColumnSum(v).ToString()); },
       [](const CFighter& f) { return Variant(f.GroupID()); }, P},
      {"FighterID", [](CFighter& f, const Variant& v) { f.SetID(ColumnSum(v).ToLong()); }, nullptr,
       0},
      Text("FirstName", &CFighter::FirstName, &CFighter::SetFirstName, P),
      Text("LastName", &CFighter::LastName, &CFighter::SetLastName, P),
      Text("NickName", &CFighter::NickName, &CFighter::SetNickName, P),
      Int16("Division", &CFighter::Division, &CFighter::SetDivision, P),
      Int16("Rating", &CFighter::Rating, &CFighter::SetRating, P),
      Int16("Style", &CFighter::Style, &CFighter::SetStyle, P),
      Int16("ActiveRetired", &CFighter::ActiveRetired, &CFighter::SetActiveRetired, P),
      Int16("Sex", &CFighter::Sex, &CFighter::SetSex, P),
      Int16("SouthPaw", &CFighter::SouthPaw, &CFighter::SetSouthPaw, P),
      Int16("SkinColor", &CFighter::SkinColor, &CFighter::SetSkinColor, P),
      Int16("Cfb", &CFighter::Cfb, &CFighter::SetCfb, P),
      Int16("Cfs", &CFighter::Cfs, &CFighter::SetCfs, P),
      Int16("Hp", &CFighter::Hp, &CFighter::SetHp, P),
      Int16("Kdr1", &CFighter::Kdr1, &CFighter::SetKdr1, P),
      Int16("Kdr2", &CFighter::Kdr2, &CFighter::SetKdr2, P),
      Int16("Kor", &CFighter::Kor, &CFighter::SetKor, P),
      Int16("Agg", &CFighter::Agg, &CFighter::SetAgg, P),
      Int16("Ki", &CFighter::Ki, &CFighter::SetKi, P),
      Int16("Tko", &CFighter::Tko, &CFighter::SetTko, P),
      Int16("E10", &CFighter::E10, &CFighter::SetE10, P),
      Int16("Defn", &CFighter::Defn, &CFighter::SetDefn, P),
      Int16("Cuts", &CFighter::Cuts, &CFighter::SetCuts, P),
      Int16("Fouls", &CFighter::Fouls, &CFighter::SetFouls, P),
      Int16("Icor", &CFighter::Icor, &CFighter::SetIcor, P),
      Int16("FastSlow", &CFighter::FastSlow, &CFighter::SetFastSlow, P),
      Int16("Fi", &CFighter::Fi, &CFighter::SetFi, P),
      Int16("Fo", &CFighter::Fo, &CFighter::SetFo, P),
      Int16("Cu", &CFighter::Cu, &CFighter::SetCu, P),
      Int16("Ko", &CFighter::Ko, &CFighter::SetKo, P),
      Int16("Pl", &CFighter::Pl, &CFighter::SetPl, P),
      Int16("Cp", &CFighter::Cp, &CFighter::SetCp, P),
      Int16("Pm", &CFighter::Pm, &CFighter::SetPm, P),
      Int16("Cl", &CFighter::Cl, &CFighter::SetCl, P),
      Int16("Rm", &CFighter::Rm, &CFighter::SetRm, P),
      Single("J3", &CFighter::J3, &CFighter::SetJ3, P),
      Single("J2", &CFighter::J2, &CFighter::SetJ2, P),
      Single("H3", &CFighter::H3, &CFighter::SetH3, P),
      Single("H2", &CFighter::H2, &CFighter::SetH2, P),
      Single("Cr3", &CFighter::Cr3, &CFighter::SetCr3, P),
      Single("Cr2", &CFighter::Cr2, &CFighter::SetCr2, P),
      Single("Cb3", &CFighter::Cb3, &CFighter::SetCb3, P),
      Single("Cb2", &CFighter::Cb2, &CFighter::SetCb2, P),
      Single("U3", &CFighter::U3, &CFighter::SetU3, P),
      Single("U2", &CFighter::U2, &CFighter::SetU2, P),
      Int16("Conditioning", &CFighter::Conditioning, &CFighter::SetConditioning, P),
      Int16("Intellect", &CFighter::Intellect, &CFighter::SetIntellect, P),
      Int16("DrawPower", &CFighter::DrawPower, &CFighter::SetDrawPower, P),
      Int16("Proficiency", &CFighter::Proficiency, &CFighter::SetProficiency, P),
      Int32("CutManID", &CFighter::CutManID, &CFighter::SetCutManID, P),
      Int32("TrainerID", &CFighter::TrainerID, &CFighter::SetTrainerID, P),
      // A stored picture is kept only when the utility's picture check
      // accepts it, in the form the check leaves it.
      {"PicturePath",
       [](CFighter& f, const Variant& v) {
         std::string path;
         if (!v.IsNull()) {
           path = v.ToText();
           if (!Utility().CheckPicturePath(path)) path.clear();
         }
         f.SetPicturePath(path);
       },
       [](const CFighter& f) { return Variant(f.PicturePath()); }, P},

      Int32("Rank", &CFighter::Rank, &CFighter::SetRank, C),
      Int32("Won", &CFighter::Won, &CFighter::SetWon, C),
      Int32("Lost", &CFighter::Lost, &CFighter::SetLost, C),
      Int32("Draw", &CFighter::Draw, &CFighter::SetDraw, C),
      Int32("Kos", &CFighter::Kos, &CFighter::SetKos, C),
      Int32("Tkos", &CFighter::Tkos, &CFighter::SetTkos, C),
      {"HasPerformance",
       [](CFighter& f, const Variant& v) { f.SetHasPerformance(ColumnSum(v).ToBool()); },
       [](const CFighter& f) { return Variant(f.HasPerformance()); }, C},
      // The one number column that may be Null: no performance yet.
      {"Performance",
       [](CFighter& f, const Variant& v) { f.SetPerformance(v.IsNull() ? Variant() : v); },
       [](const CFighter& f) {
         return IsNumericPerformance(f.Performance()) ? f.Performance() : Variant::Null();
       },
       C},
      Single("DisplayPerf", &CFighter::DisplayPerf, &CFighter::SetDisplayPerf, C),
      Int32("KdsFor", &CFighter::KdsFor, &CFighter::SetKdsFor, C),
      Int32("TotalPl", &CFighter::TotalPl, &CFighter::SetTotalPl, C),
      Int32("TotalPm", &CFighter::TotalPm, &CFighter::SetTotalPm, C),
      Int32("TotalCuts", &CFighter::TotalCuts, &CFighter::SetTotalCuts, C),
      Int32("TotalRounds", &CFighter::TotalRounds, &CFighter::SetTotalRounds, C),
      Int32("OpKdsFor", &CFighter::OpKdsFor, &CFighter::SetOpKdsFor, C),
      Int32("OpTotalPl", &CFighter::OpTotalPl, &CFighter::SetOpTotalPl, C),
      Int32("OpTotalPm", &CFighter::OpTotalPm, &CFighter::SetOpTotalPm, C),
      Int32("OpTotalCuts", &CFighter::OpTotalCuts, &CFighter::SetOpTotalCuts, C),
      Text("TitleIDs", &CFighter::TitleIDs, &CFighter::SetTitleIDs, C),
      // Derived from "TitleIDs" on every write; never read back.
      {"NumTitles", nullptr, [](const CFighter& f) { return Variant(CountTitles(f.TitleIDs())); },
       C},
  };
}

}  // namespace

Variant ColumnSum(const Variant& value) {
  switch (value.Type()) {
    case VarType::Null:
      return value;
    case VarType::Empty:
      return Variant(int16_t{0});
    case VarType::String:
      return Variant(ParseNumber(value.ToString()));
    case VarType::Object:
      throw Error::TypeMismatch();
    default:
      return value;
  }
}

int32_t CountTitles(const std::string& TitleIDs) {
  if (TitleIDs.empty()) return 0;
  int32_t bars = 0;
  for (char c : TitleIDs) bars += c == '|';
  return bars - 1;
}

bool IsNumericPerformance(const Variant& value) {
  switch (value.Type()) {
    case VarType::Empty:
    case VarType::Null:
    case VarType::Date:
    case VarType::Object:
      return false;
    case VarType::String:
      try {
        ParseNumber(value.ToString());
        return true;
      } catch (const Error&) {
        return false;
      }
    default:
      return true;
  }
}

const CollectionDescription<CFighter>& FighterCollection() {
  static const CollectionDescription<CFighter> description{
      "qryFighters",
      "FighterID",
      "FighterID = ",
      "Stop in NFighters.UpdateRecord",
      BoundControl::AnyControl,
      "Name",
      Columns(),
      nullptr,  // the fighter list follows changes through the group query
  };
  return description;
}

}  // namespace ringbook::fighters
