#include "fighters/CFighter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "core/Error.h"
#include "support/GameDatabaseFixture.h"
#include "support/ListBoxDouble.h"
#include "support/Raised.h"

namespace ringbook {
namespace {

using test::Raised;

// Which change flag a setter raises.
enum class Flag { kProfile, kCareer, kNone };

template <class T>
struct Field {
  const char* name;
  void (CFighter::*set)(T);
  T (CFighter::*get)() const;
  Flag flag;
};

// clang-format off
#define PROFILE(name) {#name, &CFighter::Set##name, &CFighter::name, Flag::kProfile}
#define CAREER(name) {#name, &CFighter::Set##name, &CFighter::name, Flag::kCareer}
#define PLAIN(name) {#name, &CFighter::Set##name, &CFighter::name, Flag::kNone}

// Every field `Clone` copies that a table can drive (names, `GroupID`,
// `Performance`, `TitleIDs` and `History` are checked by hand). `Kor` is
// left to its own test: reading it raises a flag. Values set by the tests
// stay within every floor and byte.
const Field<int16_t> kInt16Fields[] = {
    PROFILE(ActiveRetired), PROFILE(Agg), PROFILE(Cfb), PROFILE(Cfs), PROFILE(Cl),
    PROFILE(Conditioning), PROFILE(Cp), PROFILE(Cu), PROFILE(Cuts), PROFILE(Defn),
    PROFILE(Division), PROFILE(E10), PROFILE(FastSlow), PROFILE(Fi), PROFILE(Fo), PROFILE(Fouls),
    PROFILE(Hp), PROFILE(Icor), PROFILE(Kdr1), PROFILE(Kdr2), PROFILE(Ki), PROFILE(Ko), PROFILE(Pl),
    PROFILE(Pm), PROFILE(Rating), PROFILE(Rm), PROFILE(Sex), PROFILE(SkinColor), PROFILE(SouthPaw),
    PROFILE(Style), PROFILE(Tko), PLAIN(DrawPower), PLAIN(Proficiency), PLAIN(Intellect),
};
const Field<int32_t> kInt32Fields[] = {
    CAREER(Rank), CAREER(Won), CAREER(Lost), CAREER(Draw), CAREER(Kos), CAREER(Tkos),
    CAREER(KdsFor), CAREER(TotalPl), CAREER(TotalPm), CAREER(TotalCuts), CAREER(TotalRounds),
    CAREER(OpKdsFor), CAREER(OpTotalPl), CAREER(OpTotalPm), CAREER(OpTotalCuts), PLAIN(CutManID),
    PLAIN(TrainerID),
};
const Field<float> kFloatFields[] = {
    PROFILE(Cb2), PROFILE(Cb3), PROFILE(Cr2), PROFILE(Cr3), PROFILE(H2), PROFILE(H3), PROFILE(J2),
    PROFILE(J3), PROFILE(U2), PROFILE(U3), CAREER(DisplayPerf),
};
const Field<bool> kBoolFields[] = {CAREER(HasPerformance)};
// clang-format on

#undef PROFILE
#undef CAREER
#undef PLAIN

template <class T, std::size_t N, class Fn>
void ForEachField(const Field<T> (&fields)[N], Fn fn) {
  for (std::size_t i = 0; i < N; ++i) fn(fields[i], static_cast<int>(i));
}

template <class Fn>
void ForAllFields(Fn fn) {
  ForEachField(kInt16Fields, fn);
  ForEachField(kInt32Fields, fn);
  ForEachField(kFloatFields, fn);
  ForEachField(kBoolFields, fn);
}

// A distinct value for field `i` of type T, inside every floor and byte.
template <class T>
T ValueFor(int i) {
  if constexpr (std::is_same_v<T, bool>) {
    return true;
  } else if constexpr (std::is_same_v<T, float>) {
    return 1.5f + static_cast<float>(i);
  } else {
    return static_cast<T>(11 + i);
  }
}

TEST(CFighterTest, EverySetterStoresItsValueAndRaisesTheFlagOfItsSection) {
  ForAllFields([](const auto& field, int i) {
    CFighter f;
    const auto value = ValueFor<std::remove_cvref_t<decltype((f.*field.get)())>>(i);
    (f.*field.set)(value);
    SCOPED_TRACE(field.name);
    EXPECT_EQ(f.ProfileDirty(), field.flag == Flag::kProfile);
    EXPECT_EQ(f.CareerDirty(), field.flag == Flag::kCareer);
    EXPECT_EQ((f.*field.get)(), value);
  });
  CFighter f;
  f.SetTraining(8);
  f.SetID(10);
  f.SetTitleIDs("|4|");
  f.SetHistory(std::make_shared<CHistory>());
  f.SetKor(11);
  EXPECT_FALSE(f.Dirty());
  EXPECT_FALSE(f.HasTitles());  // whatever the title keys say
  EXPECT_EQ(f.Kor(), 11);       // reading it raises the profile flag
  EXPECT_TRUE(f.ProfileDirty());
  EXPECT_FALSE(f.CareerDirty());
  CFighter g;
  g.SetPerformance(Variant("good"));
  EXPECT_FALSE(g.ProfileDirty());
  EXPECT_TRUE(g.CareerDirty());
  g.SetPicturePath("a.jpg");
  EXPECT_TRUE(g.ProfileDirty());
}

TEST(CFighterTest, CareerFiguresAreWorkedInDoubleAndZeroWithoutBouts) {
  CFighter f;
  // No bouts and no punches: 0, never a division by zero.
  EXPECT_EQ(f.AvgRounds(), 0.0f);
  EXPECT_EQ(f.KoPct(), 0.0f);
  EXPECT_EQ(f.WonLostPct(), 0.0f);
  EXPECT_EQ(f.PunchAccuracy(), 0.0f);
  EXPECT_EQ(f.OpAccuracy(), 0.0f);
  EXPECT_EQ(f.Record(), "0 - 0 - 0");
  f.SetWon(3);
  f.SetLost(1);
  f.SetDraw(2);  // draws count in the divisor
  f.SetKos(2);
  f.SetTkos(1);
  f.SetTotalRounds(22);
  EXPECT_EQ(f.TotalBouts(), 6);
  EXPECT_EQ(f.WonLostPct(), static_cast<float>(3.0 / 6.0));
  EXPECT_EQ(f.KoPct(), static_cast<float>(3.0 / 6.0));
  EXPECT_EQ(f.AvgRounds(), static_cast<float>(22.0 / 6.0));
  EXPECT_EQ(f.Record(), "3 - 1 - 2");
  // Accuracy is 60 % of the landed share.
  f.SetTotalPl(60);
  f.SetTotalPm(40);
  EXPECT_EQ(f.PunchAccuracy(), static_cast<float>(0.6 - 0.6 * 0.4));
  f.SetOpTotalPl(1);
  f.SetOpTotalPm(2);
  const double a = 1.0 / 3.0;
  EXPECT_EQ(f.OpAccuracy(), static_cast<float>(a - a * 0.4));
  f.SetTotalPl(5);
  f.SetTotalPm(-10);  // a sum of 0 or less gives 0, whatever the parts
  EXPECT_EQ(f.PunchAccuracy(), 0.0f);
  // Sums beyond the 32-bit range overflow.
  f.SetWon(std::numeric_limits<int32_t>::max());
  EXPECT_EQ(Raised([&] { f.TotalBouts(); }).Number(), errnum::kOverflow);
  f.SetWon(0);
  f.SetKos(std::numeric_limits<int32_t>::max());
  EXPECT_THROW(f.KoPct(), Error);
}

TEST(CFighterTest, NamesAreCutByCharactersThenTrimmedAndJoined) {
  CFighter f;
  f.SetFirstName("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmn");  // 40 characters
  EXPECT_EQ(f.FirstName(), "ABCDEFGHIJKLMNOPQRSTUVWXY");
  // The cut comes before the trim: leading blanks use up characters.
  f.SetFirstName("     ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_EQ(f.FirstName(), "ABCDEFGHIJKLMNOPQRST");
  // A cut counts code points and never splits one: 24 letters and two "é".
  f.SetLastName("ABCDEFGHIJKLMNOPQRSTUVWX\xC3\xA9\xC3\xA9");
  EXPECT_EQ(f.LastName(), "ABCDEFGHIJKLMNOPQRSTUVWX\xC3\xA9");
  f.SetNickName(std::string(31, 'n'));
  EXPECT_EQ(f.NickName(), std::string(30, 'n'));
  EXPECT_TRUE(f.ProfileDirty());
  EXPECT_FALSE(f.CareerDirty());

  struct Case {
    const char *first, *nick, *last, *full, *plain;
  };
  for (const Case& c :
       {Case{"  Jack  ", "", "Dunn", "Jack Dunn", "Jack Dunn"},
        Case{"Jack", " The Hammer ", "Dunn", "Jack The Hammer Dunn", "Jack Dunn"},
        Case{"", "The Hammer", "Dunn", "The Hammer Dunn", "Dunn"}, Case{"", "", "", "", ""}}) {
    f.SetFirstName(c.first);
    f.SetNickName(c.nick);
    f.SetLastName(c.last);
    EXPECT_EQ(f.Name(), c.full);
    EXPECT_EQ(f.Name(true), c.plain);
  }
}

TEST(CFighterTest, SettersClampToTheirFloorsAndBytes) {
  const auto stored = [](void (CFighter::*set)(int16_t), int16_t (CFighter::*get)() const,
                         int16_t value) {
    CFighter f;
    (f.*set)(value);
    EXPECT_TRUE(f.ProfileDirty());
    return (f.*get)();
  };
  EXPECT_EQ(stored(&CFighter::SetTko, &CFighter::Tko, 0), 1);  // a TKO floor of 1, not 0
  EXPECT_EQ(stored(&CFighter::SetTko, &CFighter::Tko, -5), 1);
  EXPECT_EQ(stored(&CFighter::SetCu, &CFighter::Cu, -3), 0);
  EXPECT_EQ(stored(&CFighter::SetE10, &CFighter::E10, -1), 0);
  EXPECT_EQ(stored(&CFighter::SetFi, &CFighter::Fi, -32768), 0);
  EXPECT_EQ(stored(&CFighter::SetFo, &CFighter::Fo, -2), 0);
  EXPECT_EQ(stored(&CFighter::SetKo, &CFighter::Ko, -9), 0);
  EXPECT_EQ(stored(&CFighter::SetAgg, &CFighter::Agg, -4), -4);  // others keep negatives
  EXPECT_EQ(stored(&CFighter::SetSex, &CFighter::Sex, 257), 1);  // one byte each
  EXPECT_EQ(stored(&CFighter::SetSkinColor, &CFighter::SkinColor, -1), 255);
  EXPECT_EQ(stored(&CFighter::SetSouthPaw, &CFighter::SouthPaw, 256), 0);
  // Every float rating stores anything not >= 0 as 0, NaN included.
  for (const auto& field : kFloatFields) {
    if (field.flag != Flag::kProfile) continue;
    CFighter f;
    (f.*field.set)(-0.5f);
    EXPECT_EQ((f.*field.get)(), 0.0f) << field.name;
    (f.*field.set)(std::nanf(""));
    EXPECT_EQ((f.*field.get)(), 0.0f) << field.name;
  }
}

TEST(CFighterTest, GroupIDConvertsTheFirst12Characters) {
  CFighter f;
  EXPECT_EQ(f.GroupID(), "0");
  const std::pair<const char*, const char*> cases[] = {
      {"42", "42"}, {" 0007 ", "7"}, {"-3", "-3"}, {"000000000042999", "42"}};
  for (const auto& [text, stored] : cases) {
    f.SetGroupID(text);
    EXPECT_EQ(f.GroupID(), stored) << text;
  }
  EXPECT_EQ(Raised([&] { f.SetGroupID("heavy"); }).Number(), errnum::kTypeMismatch);
  EXPECT_THROW(f.SetGroupID(""), Error);
  EXPECT_EQ(f.GroupID(), "42");  // a failed set changes nothing
  EXPECT_FALSE(f.Dirty());       // and no set raises a flag
}

CFighter MakeFighter() {
  CFighter f;
  ForAllFields([&f](const auto& field, int i) {
    (f.*field.set)(ValueFor<std::remove_cvref_t<decltype((f.*field.get)())>>(i));
  });
  f.SetGroupID("12");
  f.SetID(77);
  f.SetFirstName("Jack");
  f.SetLastName("Dunn");
  f.SetNickName("The Hammer");
  f.SetKor(16);
  f.SetPicturePath("jack.jpg");
  f.SetPerformance(Variant(1.75));
  f.SetTitleIDs("|3|17|");
  f.SetHistory(std::make_shared<CHistory>());
  f.History()->SetOpponent("Joe Bell");
  return f;
}

void ExpectSameSection(const CFighter& a, const CFighter& b, Flag section) {
  ForAllFields([&](const auto& field, int) {
    // The staff fields travel with the profile.
    const Flag of = field.flag == Flag::kNone ? Flag::kProfile : field.flag;
    if (of == section) EXPECT_EQ((a.*field.get)(), (b.*field.get)()) << field.name;
  });
  if (section == Flag::kProfile) {
    EXPECT_EQ(a.GroupID(), b.GroupID());
    EXPECT_EQ(a.ID(), b.ID());
    EXPECT_EQ(a.Name(), b.Name());
    EXPECT_EQ(a.Kor(), b.Kor());
    EXPECT_EQ(a.PicturePath(), b.PicturePath());
  } else {
    EXPECT_EQ(a.Performance(), b.Performance());
    EXPECT_EQ(a.TitleIDs(), b.TitleIDs());
  }
}

TEST(CFighterTest, CloneAllCopiesBothSectionsThroughTheSetters) {
  const CFighter source = MakeFighter();
  CFighter target;
  source.Clone(target);  // the section defaults to both
  ExpectSameSection(source, target, Flag::kProfile);
  ExpectSameSection(source, target, Flag::kCareer);
  EXPECT_EQ(target.Name(), "Jack The Hammer Dunn");
  ASSERT_NE(target.History(), nullptr);
  EXPECT_NE(target.History(), source.History());  // a copy, not the same object
  EXPECT_EQ(target.History()->Opponent(), "Joe Bell");

  CFighter blank;  // a new record's Tko is 0, below the setter's floor
  blank.SetWon(2);
  auto own = std::make_shared<CHistory>();
  target.SetHistory(own);
  blank.Clone(target);
  EXPECT_EQ(target.Tko(), 1);
  EXPECT_TRUE(target.ProfileDirty());
  EXPECT_TRUE(target.CareerDirty());
  // Without a history of its own the source leaves the target's in place.
  EXPECT_EQ(target.History(), own);
}

TEST(CFighterTest, CloneOfOneSectionLeavesTheOtherUntouched) {
  const CFighter source = MakeFighter();
  CFighter career;
  career.SetFirstName("Al");
  career.SetRating(3);
  career.SetGroupID("5");
  source.Clone(career, ersCareer);
  ExpectSameSection(source, career, Flag::kCareer);
  EXPECT_EQ(career.Name(), "Al");
  EXPECT_EQ(career.Rating(), 3);
  EXPECT_EQ(career.GroupID(), "5");
  EXPECT_EQ(career.ID(), 0);

  CFighter profile;
  profile.SetWon(1);
  source.Clone(profile, ersProfile);
  ExpectSameSection(source, profile, Flag::kProfile);
  EXPECT_EQ(profile.Record(), "1 - 0 - 0");
  EXPECT_EQ(profile.TitleIDs(), "");
  EXPECT_EQ(profile.History(), nullptr);

  CFighter nothing;
  source.Clone(nothing, static_cast<ERecordSection>(3));  // no such section
  EXPECT_EQ(nothing.ID(), 0);
  EXPECT_EQ(nothing.Won(), 0);
  EXPECT_FALSE(nothing.Dirty());
}

class CFighterTitlesTest : public test::GameDatabaseFixture {};

TEST_F(CFighterTitlesTest, ListsHeldTitlesInQueryOrderOrNone) {
  auto list = std::make_shared<test::ListBoxDouble>();
  list->AddItem("stale");
  list->SetFontBold(true);
  CFighter f;
  f.FillListWithTitles(Variant(list));
  EXPECT_EQ(list->Texts(), std::vector<std::string>{"None"});
  EXPECT_FALSE(list->FontBold());

  f.SetTitleIDs("|99|");
  f.FillListWithTitles(Variant(list));  // an empty title table
  EXPECT_EQ(list->ListCount(), 0);
  EXPECT_TRUE(list->FontBold());

  Sql("INSERT INTO Titles (TitleId, Name) VALUES (1, 'World'), (3, 'Commonwealth'),"
      " (12, 'European'), (17, 'National')");
  f.SetTitleIDs("|17|3|");  // "|1|" is not held, though "1" occurs in "17"
  f.FillListWithTitles(Variant(list));
  // "qryTitles" orders by name.
  EXPECT_EQ(list->Texts(), (std::vector<std::string>{"Commonwealth", "National"}));
  EXPECT_EQ(list->Data(), (std::vector<int32_t>{3, 17}));
  EXPECT_TRUE(list->FontBold());
  EXPECT_EQ(list->ClearCount(), 3);

  EXPECT_EQ(
      Raised([&] { f.FillListWithTitles(Variant(std::shared_ptr<IListControl>())); }).Number(),
      errnum::kObjectNotSet);
  EXPECT_THROW(f.FillListWithTitles(Variant("list")), Error);
}

}  // namespace
}  // namespace ringbook
