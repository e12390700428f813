// A bout replays: with the dice seeded, the same fighters, corners and options
// give the same adjusted ratings, knock-out decisions and punches. The
// recorded sequence below was taken once from this engine and is frozen: a
// change to it means the engine draws or decides differently than before,
// which breaks saved replays.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "core/SeededDice.h"
#include "engine/CFighterInFight.h"
#include "options/COptions.h"
#include "support/ScriptedDice.h"
#include "support/TempSettings.h"

namespace ringbook {
namespace {

constexpr uint64_t kSeed = 1975;

void SetUpCorner(CFighterInFight& f, int16_t base, int16_t south_paw) {
  CFighter& fr = *f.FR();
  fr.SetPl(static_cast<int16_t>(base + 4));
  fr.SetCp(static_cast<int16_t>(base + 2));
  fr.SetHp(base);
  fr.SetDefn(static_cast<int16_t>(base + 1));
  fr.SetE10(static_cast<int16_t>(base + 6));
  fr.SetKdr1(4);
  fr.SetKdr2(5);
  fr.SetKor(static_cast<int16_t>(base - 3));
  fr.SetKi(6);
  fr.SetCfb(5);
  fr.SetCfs(6);
  fr.SetTko(3);
  fr.SetConditioning(6);
  fr.SetDivision(static_cast<int16_t>(base - 5));
  fr.SetSouthPaw(south_paw);
  fr.SetJ3(22.5f);
  fr.SetJ2(9.25f);
  fr.SetH3(static_cast<float>(base));
  fr.SetH2(4.5f);
  fr.SetCr3(6);
  fr.SetCr2(3.75f);
  fr.SetCb3(5);
  fr.SetCb2(2.5f);
  fr.SetU3(4);
  fr.SetU2(1.5f);
  f.Trainer()->SetTrainingAverage(7);
  f.Trainer()->SetMotivate(5);
  f.Trainer()->SetDiscipline(6);
  f.CutMan()->SetDiscipline(8);
}

struct Replay {
  std::vector<int16_t> ratings;  // both fighters' adjusted ratings
  std::vector<int> knockouts;    // 1 for a knock-out
  std::vector<int16_t> punches;

  bool operator==(const Replay&) const = default;
};

void AppendRatings(const CFighter& fr, std::vector<int16_t>& out) {
  for (int16_t v : {fr.Pl(), fr.Cp(), fr.Hp(), fr.Defn(), fr.E10(), fr.Kdr1(), fr.Kdr2(), fr.Kor(),
                    fr.Ki(), fr.Tko(), fr.Cfb(), fr.Cfs()}) {
    out.push_back(v);
  }
}

Replay RunBout(uint64_t seed) {
  test::DiceScope dice(std::make_shared<SeededDice>(seed));
  COptions options;
  options.SetAdjWeightClass(true);
  options.Referee()->SetStoppage(0);

  CFighterInFight red;
  CFighterInFight blue;
  SetUpCorner(red, 12, 0);
  SetUpCorner(blue, 10, 1);
  red.SetTraining(etfOffense);
  red.Trainer()->SetTrainingOffense(8);
  red.SetCareer(ecsVeteran);
  red.SetCondition(ecnSoft);
  blue.SetTraining(etfHardCamp);
  blue.SetCareer(ecsRising);
  blue.SetCondition(ecnPoor);

  red.MakePrefightAdjustments(blue, options);
  blue.MakePrefightAdjustments(red, options);

  Replay replay;
  AppendRatings(*red.FR(), replay.ratings);
  AppendRatings(*blue.FR(), replay.ratings);
  for (int i = 0; i < 12; ++i) {
    replay.knockouts.push_back((i % 2 == 0 ? red : blue).IsKnockedout() ? 1 : 0);
  }
  for (int i = 0; i < 24; ++i) {
    replay.punches.push_back((i % 2 == 0 ? red : blue).PunchType(i % 3 == 0));
  }
  return replay;
}

TEST(ReplayTest, ASeededBoutReplaysItsRecordedSequence) {
  test::TempSettings settings;
  const Replay first = RunBout(kSeed);
  const Replay again = RunBout(kSeed);
  EXPECT_TRUE(first == again);

  const Replay recorded = {
      // Red: Pl, Cp, Hp, Defn, E10, Kdr1, Kdr2, Kor, Ki, Tko, Cfb, Cfs; then blue.
      {12, 9, 11, 19, 16, 6, 7, 10, 6, 4, 2, 3, 14, 12, 11, 12, 16, 4, 5, 7, 7, 4, 5, 6},
      {0, 0, 1, 0, 0, 0, 1, 1, 0, 1, 0, 0},
      {3, 4, 1, 8, 1, 6, 1, 0, 2, 8, 4, 9, 6, 1, 7, 9, 1, 0, 9, 5, 0, 1, 1, 3},
  };
  EXPECT_EQ(first.ratings, recorded.ratings);
  EXPECT_EQ(first.knockouts, recorded.knockouts);
  EXPECT_EQ(first.punches, recorded.punches);

  // Another seed draws another bout.
  EXPECT_FALSE(RunBout(kSeed + 1) == first);
}

}  // namespace
}  // namespace ringbook
