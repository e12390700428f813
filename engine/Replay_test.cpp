// A bout replays: with the dice seeded, the same fighters, corners and options
// give the same adjusted ratings, knock-out decisions and punches. The
// recorded sequence below was taken once from this engine and is frozen: a
// change to it means the engine draws or decides differently than before,
// which breaks saved replays.

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "core/SeededDice.h"
#include "engine/CFighterInFight.h"
#include "options/COptions.h"
#include "support/ScriptedDice.h"
#include "support/TempSettings.h"

namespace ringbook {
namespace {

void SetUpCorner(CFighterInFight& f, int base, int16_t south_paw) {
  CFighter& fr = *f.FR();
  using C = CFighter;
  for (auto [set, value] : {std::pair{&C::SetPl, base + 4},
                            {&C::SetCp, base + 2},
                            {&C::SetHp, base},
                            {&C::SetDefn, base + 1},
                            {&C::SetE10, base + 6},
                            {&C::SetKdr1, 4},
                            {&C::SetKdr2, 5},
                            {&C::SetKor, base - 3},
                            {&C::SetKi, 6},
                            {&C::SetCfb, 5},
                            {&C::SetCfs, 6},
                            {&C::SetTko, 3},
                            {&C::SetConditioning, 6},
                            {&C::SetDivision, base - 5},
                            {&C::SetSouthPaw, int{south_paw}}}) {
    (fr.*set)(static_cast<int16_t>(value));
  }
  for (auto [set, value] : {std::pair{&C::SetJ3, 22.5f},
                            {&C::SetJ2, 9.25f},
                            {&C::SetH3, static_cast<float>(base)},
                            {&C::SetH2, 4.5f},
                            {&C::SetCr3, 6.0f},
                            {&C::SetCr2, 3.75f},
                            {&C::SetCb3, 5.0f},
                            {&C::SetCb2, 2.5f},
                            {&C::SetU3, 4.0f},
                            {&C::SetU2, 1.5f}}) {
    (fr.*set)(value);
  }
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
  for (const CFighter* fr : {red.FR().get(), blue.FR().get()}) {
    for (int16_t v : {fr->Pl(), fr->Cp(), fr->Hp(), fr->Defn(), fr->E10(), fr->Kdr1(), fr->Kdr2(),
                      fr->Kor(), fr->Ki(), fr->Tko(), fr->Cfb(), fr->Cfs()}) {
      replay.ratings.push_back(v);
    }
  }
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
  const Replay first = RunBout(1975);
  EXPECT_TRUE(first == RunBout(1975));
  // Red: Pl, Cp, Hp, Defn, E10, Kdr1, Kdr2, Kor, Ki, Tko, Cfb, Cfs; then blue.
  EXPECT_EQ(first.ratings, (std::vector<int16_t>{12, 9,  11, 19, 16, 6, 7, 10, 6, 4, 2, 3,
                                                 14, 12, 11, 12, 16, 4, 5, 7,  7, 4, 5, 6}));
  EXPECT_EQ(first.knockouts, (std::vector<int>{0, 0, 1, 0, 0, 0, 1, 1, 0, 1, 0, 0}));
  EXPECT_EQ(first.punches, (std::vector<int16_t>{3, 4, 1, 8, 1, 6, 1, 0, 2, 8, 4, 9,
                                                 6, 1, 7, 9, 1, 0, 9, 5, 0, 1, 1, 3}));
  EXPECT_FALSE(RunBout(1976) == first);  // another seed draws another bout
}

}  // namespace
}  // namespace ringbook
