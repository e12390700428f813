#include "fighters/CFighter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/Error.h"
#include "support/GameDatabaseFixture.h"
#include "support/ListBoxDouble.h"

namespace ringbook {
namespace {

TEST(CFighterTest, NewRecordIsEmptyAndClean) {
  CFighter f;
  EXPECT_EQ(f.TotalBouts(), 0);
  EXPECT_EQ(f.AvgRounds(), 0.0f);
  EXPECT_EQ(f.KoPct(), 0.0f);
  EXPECT_EQ(f.WonLostPct(), 0.0f);
  EXPECT_EQ(f.PunchAccuracy(), 0.0f);
  EXPECT_EQ(f.OpAccuracy(), 0.0f);
  EXPECT_EQ(f.Record(), "0 - 0 - 0");
  EXPECT_EQ(f.Name(), "");
  EXPECT_EQ(f.Name(true), "");
  EXPECT_EQ(f.GroupID(), "0");
  EXPECT_EQ(f.Tko(), 0);  // the floor of 1 applies only to what is set
  EXPECT_TRUE(f.Performance().IsEmpty());
  EXPECT_EQ(f.History(), nullptr);
  EXPECT_FALSE(f.Dirty());
}

TEST(CFighterTest, CareerFractionsAreWorkedInDoubleAndRoundedToFloat) {
  CFighter f;
  f.SetWon(3);
  f.SetLost(1);
  f.SetDraw(0);
  f.SetKos(2);
  f.SetTkos(1);
  f.SetTotalRounds(22);
  EXPECT_EQ(f.TotalBouts(), 4);
  EXPECT_FLOAT_EQ(f.KoPct(), 0.75f);
  EXPECT_FLOAT_EQ(f.WonLostPct(), 0.75f);
  EXPECT_FLOAT_EQ(f.AvgRounds(), 5.5f);

  f.SetDraw(2);  // draws count in the divisor
  EXPECT_EQ(f.WonLostPct(), static_cast<float>(3.0 / 6.0));
  EXPECT_EQ(f.KoPct(), static_cast<float>(3.0 / 6.0));
  EXPECT_EQ(f.AvgRounds(), static_cast<float>(22.0 / 6.0));
  EXPECT_EQ(f.Record(), "3 - 1 - 2");
}

TEST(CFighterTest, AccuracyIsSixtyPercentOfTheLandedShare) {
  CFighter f;
  f.SetTotalPl(60);
  f.SetTotalPm(40);
  EXPECT_EQ(f.PunchAccuracy(), static_cast<float>(0.6 - 0.6 * 0.4));
  EXPECT_FLOAT_EQ(f.PunchAccuracy(), 0.36f);
  EXPECT_EQ(f.OpAccuracy(), 0.0f);

  f.SetOpTotalPl(1);
  f.SetOpTotalPm(2);
  const double a = 1.0 / 3.0;
  EXPECT_EQ(f.OpAccuracy(), static_cast<float>(a - a * 0.4));

  // A sum of 0 or less gives 0, whatever the parts.
  f.SetTotalPl(5);
  f.SetTotalPm(-10);
  EXPECT_EQ(f.PunchAccuracy(), 0.0f);
}

TEST(CFighterTest, SumsBeyondThe32BitRangeOverflow) {
  CFighter f;
  f.SetWon(std::numeric_limits<int32_t>::max());
  f.SetLost(1);
  try {
    f.TotalBouts();
    FAIL() << "no overflow";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kOverflow);
  }
  f.SetLost(0);
  f.SetKos(std::numeric_limits<int32_t>::max());
  f.SetTkos(1);
  EXPECT_THROW(f.KoPct(), Error);
}

TEST(CFighterTest, NamesAreCutByCharactersThenTrimmed) {
  CFighter f;
  f.SetFirstName("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmn");  // 40 characters
  EXPECT_EQ(f.FirstName(), "ABCDEFGHIJKLMNOPQRSTUVWXY");
  // The cut comes before the trim: leading blanks use up characters.
  f.SetFirstName("     ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_EQ(f.FirstName(), "ABCDEFGHIJKLMNOPQRST");
  f.SetFirstName("  Jack  ");
  EXPECT_EQ(f.FirstName(), "Jack");
  // A cut counts code points and never splits one: 24 letters and two "é".
  f.SetLastName("ABCDEFGHIJKLMNOPQRSTUVWX\xC3\xA9\xC3\xA9");
  EXPECT_EQ(f.LastName(), "ABCDEFGHIJKLMNOPQRSTUVWX\xC3\xA9");
  f.SetNickName(std::string(31, 'n'));
  EXPECT_EQ(f.NickName(), std::string(30, 'n'));
}

TEST(CFighterTest, NameWithAndWithoutTheNickName) {
  CFighter f;
  f.SetFirstName("Jack");
  f.SetLastName("Dunn");
  EXPECT_EQ(f.Name(), "Jack Dunn");
  EXPECT_EQ(f.Name(true), f.Name());

  f.SetNickName(" The Hammer ");
  EXPECT_EQ(f.Name(), "Jack The Hammer Dunn");
  EXPECT_EQ(f.Name(true), "Jack Dunn");

  f.SetFirstName("");
  EXPECT_EQ(f.Name(), "The Hammer Dunn");
  EXPECT_EQ(f.Name(true), "Dunn");
  f.SetLastName("");
  f.SetNickName("");
  EXPECT_EQ(f.Name(), "");
}

TEST(CFighterTest, ClampedRatings) {
  CFighter f;
  f.SetTko(0);
  EXPECT_EQ(f.Tko(), 1);
  f.SetTko(-5);
  EXPECT_EQ(f.Tko(), 1);
  f.SetTko(3);
  EXPECT_EQ(f.Tko(), 3);

  f.SetCu(-3);
  f.SetE10(-1);
  f.SetFi(-32768);
  f.SetFo(-2);
  f.SetKo(-9);
  EXPECT_EQ(f.Cu(), 0);
  EXPECT_EQ(f.E10(), 0);
  EXPECT_EQ(f.Fi(), 0);
  EXPECT_EQ(f.Fo(), 0);
  EXPECT_EQ(f.Ko(), 0);
  f.SetKo(4);
  EXPECT_EQ(f.Ko(), 4);

  // Unclamped ratings keep negatives.
  f.SetAgg(-4);
  EXPECT_EQ(f.Agg(), -4);

  f.SetCb2(-0.5f);
  EXPECT_EQ(f.Cb2(), 0.0f);
  f.SetU3(std::nanf(""));
  EXPECT_EQ(f.U3(), 0.0f);
  f.SetJ2(1.25f);
  EXPECT_EQ(f.J2(), 1.25f);
}

TEST(CFighterTest, ByteFieldsKeepTheLowByte) {
  CFighter f;
  f.SetSex(257);
  EXPECT_EQ(f.Sex(), 1);
  f.SetSkinColor(-1);
  EXPECT_EQ(f.SkinColor(), 255);
  f.SetSouthPaw(256);
  EXPECT_EQ(f.SouthPaw(), 0);
}

TEST(CFighterTest, GroupIDConvertsTheFirst12Characters) {
  CFighter f;
  f.SetGroupID("42");
  EXPECT_EQ(f.GroupID(), "42");
  f.SetGroupID(" 0007 ");
  EXPECT_EQ(f.GroupID(), "7");
  f.SetGroupID("-3");
  EXPECT_EQ(f.GroupID(), "-3");
  f.SetGroupID("000000000042999");  // only "000000000042" is read
  EXPECT_EQ(f.GroupID(), "42");

  try {
    f.SetGroupID("heavy");
    FAIL() << "no type mismatch";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kTypeMismatch);
  }
  EXPECT_THROW(f.SetGroupID(""), Error);
  EXPECT_EQ(f.GroupID(), "42");  // a failed set changes nothing
  EXPECT_FALSE(f.Dirty());       // and no set raises a flag
}

TEST(CFighterTest, ProfileSettersRaiseOnlyTheProfileFlag) {
  CFighter f;
  f.SetRating(5);
  EXPECT_TRUE(f.ProfileDirty());
  EXPECT_FALSE(f.CareerDirty());
  EXPECT_TRUE(f.Dirty());

  CFighter g;
  g.SetPicturePath("a.jpg");
  EXPECT_TRUE(g.ProfileDirty());
}

TEST(CFighterTest, CareerSettersRaiseOnlyTheCareerFlag) {
  CFighter f;
  f.SetPerformance(Variant("good"));
  EXPECT_TRUE(f.CareerDirty());
  EXPECT_FALSE(f.ProfileDirty());
  EXPECT_EQ(f.Performance(), Variant("good"));
}

TEST(CFighterTest, StaffAndPlainFieldsRaiseNoFlag) {
  CFighter f;
  f.SetCutManID(3);
  f.SetTrainerID(4);
  f.SetDrawPower(5);
  f.SetProficiency(6);
  f.SetIntellect(7);
  f.SetTraining(8);
  f.SetGroupID("9");
  f.SetID(10);
  f.SetTitleIDs("|4|");
  f.SetHistory(std::make_shared<CHistory>());
  f.SetKor(11);
  EXPECT_FALSE(f.Dirty());
  EXPECT_EQ(f.TrainerID(), 4);
  EXPECT_EQ(f.Training(), 8);
}

TEST(CFighterTest, ReadingKorRaisesTheProfileFlag) {
  CFighter f;
  EXPECT_EQ(f.Kor(), 0);
  EXPECT_TRUE(f.Dirty());
  EXPECT_TRUE(f.ProfileDirty());
  EXPECT_FALSE(f.CareerDirty());
}

TEST(CFighterTest, HasTitlesIsAlwaysFalse) {
  CFighter f;
  f.SetTitleIDs("|4|");
  EXPECT_FALSE(f.HasTitles());
}

CFighter MakeFighter() {
  CFighter f;
  f.SetGroupID("12");
  f.SetID(77);
  f.SetFirstName("Jack");
  f.SetLastName("Dunn");
  f.SetNickName("The Hammer");
  f.SetDivision(4);
  f.SetRating(80);
  f.SetStyle(2);
  f.SetActiveRetired(1);
  f.SetSex(1);
  f.SetSouthPaw(1);
  f.SetSkinColor(3);
  f.SetCfb(11);
  f.SetCfs(12);
  f.SetHp(13);
  f.SetKdr1(14);
  f.SetKdr2(15);
  f.SetKor(16);
  f.SetAgg(17);
  f.SetKi(18);
  f.SetTko(19);
  f.SetE10(20);
  f.SetDefn(21);
  f.SetCuts(22);
  f.SetFouls(23);
  f.SetIcor(24);
  f.SetFastSlow(25);
  f.SetFi(26);
  f.SetFo(27);
  f.SetCu(28);
  f.SetKo(29);
  f.SetPl(30);
  f.SetCp(31);
  f.SetPm(32);
  f.SetCl(33);
  f.SetRm(34);
  f.SetJ3(1.5f);
  f.SetJ2(2.5f);
  f.SetH3(3.5f);
  f.SetH2(4.5f);
  f.SetCr3(5.5f);
  f.SetCr2(6.5f);
  f.SetCb3(7.5f);
  f.SetCb2(8.5f);
  f.SetU3(9.5f);
  f.SetU2(10.5f);
  f.SetConditioning(35);
  f.SetIntellect(36);
  f.SetDrawPower(37);
  f.SetProficiency(38);
  f.SetCutManID(39);
  f.SetTrainerID(40);
  f.SetPicturePath("jack.jpg");

  f.SetRank(2);
  f.SetWon(20);
  f.SetLost(3);
  f.SetDraw(1);
  f.SetKos(10);
  f.SetTkos(5);
  f.SetHasPerformance(true);
  f.SetPerformance(Variant(1.75));
  f.SetDisplayPerf(0.5f);
  f.SetKdsFor(41);
  f.SetTotalPl(42);
  f.SetTotalPm(43);
  f.SetTotalCuts(44);
  f.SetTotalRounds(45);
  f.SetOpKdsFor(46);
  f.SetOpTotalPl(47);
  f.SetOpTotalPm(48);
  f.SetOpTotalCuts(49);
  f.SetTitleIDs("|3|17|");
  auto history = std::make_shared<CHistory>();
  history->SetOpponent("Joe Bell");
  history->SetLastRound(9);
  f.SetHistory(history);
  return f;
}

void ExpectSameProfile(const CFighter& a, const CFighter& b) {
  EXPECT_EQ(a.GroupID(), b.GroupID());
  EXPECT_EQ(a.ID(), b.ID());
  EXPECT_EQ(a.Name(), b.Name());
  EXPECT_EQ(a.NickName(), b.NickName());
  EXPECT_EQ(a.Division(), b.Division());
  EXPECT_EQ(a.Rating(), b.Rating());
  EXPECT_EQ(a.Style(), b.Style());
  EXPECT_EQ(a.ActiveRetired(), b.ActiveRetired());
  EXPECT_EQ(a.Sex(), b.Sex());
  EXPECT_EQ(a.SouthPaw(), b.SouthPaw());
  EXPECT_EQ(a.SkinColor(), b.SkinColor());
  EXPECT_EQ(a.Cfb(), b.Cfb());
  EXPECT_EQ(a.Cfs(), b.Cfs());
  EXPECT_EQ(a.Hp(), b.Hp());
  EXPECT_EQ(a.Kdr1(), b.Kdr1());
  EXPECT_EQ(a.Kdr2(), b.Kdr2());
  EXPECT_EQ(a.Kor(), b.Kor());
  EXPECT_EQ(a.Agg(), b.Agg());
  EXPECT_EQ(a.Ki(), b.Ki());
  EXPECT_EQ(a.Tko(), b.Tko());
  EXPECT_EQ(a.E10(), b.E10());
  EXPECT_EQ(a.Defn(), b.Defn());
  EXPECT_EQ(a.Cuts(), b.Cuts());
  EXPECT_EQ(a.Fouls(), b.Fouls());
  EXPECT_EQ(a.Icor(), b.Icor());
  EXPECT_EQ(a.FastSlow(), b.FastSlow());
  EXPECT_EQ(a.Fi(), b.Fi());
  EXPECT_EQ(a.Fo(), b.Fo());
  EXPECT_EQ(a.Cu(), b.Cu());
  EXPECT_EQ(a.Ko(), b.Ko());
  EXPECT_EQ(a.Pl(), b.Pl());
  EXPECT_EQ(a.Cp(), b.Cp());
  EXPECT_EQ(a.Pm(), b.Pm());
  EXPECT_EQ(a.Cl(), b.Cl());
  EXPECT_EQ(a.Rm(), b.Rm());
  EXPECT_EQ(a.J3(), b.J3());
  EXPECT_EQ(a.J2(), b.J2());
  EXPECT_EQ(a.H3(), b.H3());
  EXPECT_EQ(a.H2(), b.H2());
  EXPECT_EQ(a.Cr3(), b.Cr3());
  EXPECT_EQ(a.Cr2(), b.Cr2());
  EXPECT_EQ(a.Cb3(), b.Cb3());
  EXPECT_EQ(a.Cb2(), b.Cb2());
  EXPECT_EQ(a.U3(), b.U3());
  EXPECT_EQ(a.U2(), b.U2());
  EXPECT_EQ(a.Conditioning(), b.Conditioning());
  EXPECT_EQ(a.Intellect(), b.Intellect());
  EXPECT_EQ(a.DrawPower(), b.DrawPower());
  EXPECT_EQ(a.Proficiency(), b.Proficiency());
  EXPECT_EQ(a.CutManID(), b.CutManID());
  EXPECT_EQ(a.TrainerID(), b.TrainerID());
  EXPECT_EQ(a.PicturePath(), b.PicturePath());
}

void ExpectSameCareer(const CFighter& a, const CFighter& b) {
  EXPECT_EQ(a.Rank(), b.Rank());
  EXPECT_EQ(a.Record(), b.Record());
  EXPECT_EQ(a.Kos(), b.Kos());
  EXPECT_EQ(a.Tkos(), b.Tkos());
  EXPECT_EQ(a.HasPerformance(), b.HasPerformance());
  EXPECT_EQ(a.Performance(), b.Performance());
  EXPECT_EQ(a.DisplayPerf(), b.DisplayPerf());
  EXPECT_EQ(a.KdsFor(), b.KdsFor());
  EXPECT_EQ(a.TotalPl(), b.TotalPl());
  EXPECT_EQ(a.TotalPm(), b.TotalPm());
  EXPECT_EQ(a.TotalCuts(), b.TotalCuts());
  EXPECT_EQ(a.TotalRounds(), b.TotalRounds());
  EXPECT_EQ(a.OpKdsFor(), b.OpKdsFor());
  EXPECT_EQ(a.OpTotalPl(), b.OpTotalPl());
  EXPECT_EQ(a.OpTotalPm(), b.OpTotalPm());
  EXPECT_EQ(a.OpTotalCuts(), b.OpTotalCuts());
  EXPECT_EQ(a.TitleIDs(), b.TitleIDs());
}

TEST(CFighterTest, CloneAllCopiesBothSectionsAndAFreshHistory) {
  const CFighter source = MakeFighter();
  CFighter target;
  source.Clone(target);  // the section defaults to both
  ExpectSameProfile(source, target);
  ExpectSameCareer(source, target);
  EXPECT_EQ(target.Name(), "Jack The Hammer Dunn");
  ASSERT_NE(target.History(), nullptr);
  EXPECT_NE(target.History(), source.History());  // a copy, not the same object
  EXPECT_EQ(target.History()->Opponent(), "Joe Bell");
  EXPECT_EQ(target.History()->LastRound(), 9);
  // Copying goes through the setters, so both flags are raised.
  EXPECT_TRUE(target.ProfileDirty());
  EXPECT_TRUE(target.CareerDirty());
}

TEST(CFighterTest, CloneCareerLeavesTheProfileUntouched) {
  const CFighter source = MakeFighter();
  CFighter target;
  target.SetFirstName("Al");
  target.SetRating(3);
  target.SetGroupID("5");
  source.Clone(target, ersCareer);
  ExpectSameCareer(source, target);
  EXPECT_EQ(target.Name(), "Al");
  EXPECT_EQ(target.Rating(), 3);
  EXPECT_EQ(target.GroupID(), "5");
  EXPECT_EQ(target.ID(), 0);
}

TEST(CFighterTest, CloneProfileLeavesTheCareerUntouched) {
  const CFighter source = MakeFighter();
  CFighter target;
  target.SetWon(1);
  source.Clone(target, ersProfile);
  ExpectSameProfile(source, target);
  EXPECT_EQ(target.Record(), "1 - 0 - 0");
  EXPECT_EQ(target.TitleIDs(), "");
  EXPECT_EQ(target.History(), nullptr);
}

TEST(CFighterTest, CloneWithoutHistoryKeepsTheTargetsHistory) {
  CFighter source;
  source.SetWon(2);
  CFighter target;
  auto own = std::make_shared<CHistory>();
  target.SetHistory(own);
  source.Clone(target, ersCareer);
  EXPECT_EQ(target.History(), own);
  EXPECT_EQ(target.Won(), 2);
}

TEST(CFighterTest, CloneOfAnUnknownSectionCopiesNothing) {
  const CFighter source = MakeFighter();
  CFighter target;
  source.Clone(target, static_cast<ERecordSection>(3));
  EXPECT_EQ(target.ID(), 0);
  EXPECT_EQ(target.Won(), 0);
  EXPECT_FALSE(target.Dirty());
}

TEST(CFighterTest, CloneAppliesTheTargetsSetterRules) {
  CFighter source;  // a new record's Tko is 0, below the setter's floor
  CFighter target;
  source.Clone(target, ersProfile);
  EXPECT_EQ(target.Tko(), 1);
}

// The titles a fighter holds, listed from the game database.
class CFighterTitlesTest : public test::GameDatabaseFixture {
 protected:
  void AddTitles() {
    Sql("INSERT INTO Titles (TitleId, Name) VALUES (1, 'World'), (3, 'Commonwealth'),"
        " (12, 'European'), (17, 'National')");
  }
  std::shared_ptr<test::ListBoxDouble> list_ = std::make_shared<test::ListBoxDouble>();
};

TEST_F(CFighterTitlesTest, NoTitlesShowsNoneAndNoBold) {
  AddTitles();
  list_->AddItem("stale");
  list_->SetFontBold(true);
  CFighter f;
  f.FillListWithTitles(Variant(list_));
  EXPECT_EQ(list_->Texts(), std::vector<std::string>{"None"});
  EXPECT_FALSE(list_->FontBold());
}

TEST_F(CFighterTitlesTest, ListsHeldTitlesInQueryOrderWithTheirKeys) {
  AddTitles();
  CFighter f;
  f.SetTitleIDs("|17|3|");  // "|1|" is not held, though "1" occurs in "17"
  f.FillListWithTitles(Variant(list_));
  // "qryTitles" orders by name.
  EXPECT_EQ(list_->Texts(), (std::vector<std::string>{"Commonwealth", "National"}));
  EXPECT_EQ(list_->Data(), (std::vector<int32_t>{3, 17}));
  EXPECT_TRUE(list_->FontBold());
  EXPECT_EQ(list_->ClearCount(), 1);
}

TEST_F(CFighterTitlesTest, KeysThatMatchNoTitleLeaveTheListEmptyButBold) {
  CFighter f;
  f.SetTitleIDs("|99|");
  f.FillListWithTitles(Variant(list_));  // an empty title table
  EXPECT_EQ(list_->ListCount(), 0);
  EXPECT_TRUE(list_->FontBold());
}

TEST_F(CFighterTitlesTest, ListControlMustBeSet) {
  CFighter f;
  try {
    f.FillListWithTitles(Variant(std::shared_ptr<IListControl>()));
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errnum::kObjectNotSet);
  }
  EXPECT_THROW(f.FillListWithTitles(Variant("list")), Error);
}

}  // namespace
}  // namespace ringbook
