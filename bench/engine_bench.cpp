// The fight engine's per-punch calls against the bare cost of the dice they
// roll. A bout asks `PunchType` and `IsKnockedout` many thousand times; each
// makes one roll (`PunchType` without a forced punch always makes exactly
// one). The aim is to stay within twice the cost of the same rolls: compare
// BM_PunchType with BM_HostDiceRollPunchRange (the rolls as the engine makes
// them, through the thread's dice) and BM_DiceRollPunchRange (direct),
// BM_IsKnockedout with the two Percent rolls, and BM_PunchTypeForced with
// BM_HostDiceRollUntilPunch, medians from the same run.
#include <benchmark/benchmark.h>

#include <memory>

#include "core/HostServices.h"
#include "core/SeededDice.h"
#include "engine/CFighterInFight.h"

namespace {

using ringbook::CFighterInFight;
using ringbook::SeededDice;

constexpr uint64_t kSeed = 1975;

// A fighter whose ten punch ratings add up to 70: three draws in ten throw
// nothing, and the others spread over the whole walk.
void SetPunches(ringbook::CFighter& fr) {
  fr.SetJ3(12.5f);
  fr.SetJ2(7.5f);
  fr.SetH3(10);
  fr.SetH2(5);
  fr.SetCr3(8);
  fr.SetCr2(4);
  fr.SetCb3(6);
  fr.SetCb2(3);
  fr.SetU3(9);
  fr.SetU2(5);
  fr.SetKor(5);
}

// The thread's dice for one benchmark run, seeded afresh on every run (and so
// identically for the engine call and its references); the default comes back
// afterwards. The direct references roll the same object without `Dice()`.
struct SeededRun {
  std::shared_ptr<SeededDice> dice = std::make_shared<SeededDice>(kSeed);
  SeededRun() { ringbook::SetDice(dice); }
  ~SeededRun() { ringbook::SetDice(nullptr); }
};

// Every benchmark here is this one loop: one call per iteration, its result
// kept, so that an engine call and its reference differ only in the call.
template <class Call>
void PerCall(benchmark::State& state, Call call) {
  for (auto _ : state) benchmark::DoNotOptimize(call());
}

// ---- References: the bare rolls, direct and through the thread's dice ----

void BM_DiceRollPunchRange(benchmark::State& state) {
  SeededRun run;
  SeededDice& dice = *run.dice;
  PerCall(state, [&] { return dice.Roll(10000, 1); });
}
BENCHMARK(BM_DiceRollPunchRange);

void BM_DiceRollPercent(benchmark::State& state) {
  SeededRun run;
  SeededDice& dice = *run.dice;
  PerCall(state, [&] { return dice.Roll(100, 1); });
}
BENCHMARK(BM_DiceRollPercent);

// The same rolls through the calling thread's dice (`Dice()`), which is how
// the engine reaches them: the per-thread lookup and the virtual call.
void BM_HostDiceRollPunchRange(benchmark::State& state) {
  SeededRun run;
  PerCall(state, [] { return ringbook::Dice().Roll(10000, 1); });
}
BENCHMARK(BM_HostDiceRollPunchRange);

void BM_HostDiceRollPercent(benchmark::State& state) {
  SeededRun run;
  PerCall(state, [] { return ringbook::Dice().Roll(100, 1); });
}
BENCHMARK(BM_HostDiceRollPercent);

// The rolls a forced punch makes: again until one lands within the ratings'
// sum of 70 (rolls 1 to 7000), 1 / 0.7 rolls a call on average.
void BM_HostDiceRollUntilPunch(benchmark::State& state) {
  SeededRun run;
  PerCall(state, [] {
    int32_t roll = 0;
    do {
      roll = ringbook::Dice().Roll(10000, 1);
    } while (roll > 7000);
    return roll;
  });
}
BENCHMARK(BM_HostDiceRollUntilPunch);

// ---- The engine calls ----

void BM_PunchType(benchmark::State& state) {
  SeededRun run;
  CFighterInFight fighter;
  SetPunches(*fighter.FR());
  PerCall(state, [&] { return fighter.PunchType(); });
}
BENCHMARK(BM_PunchType);

// Against BM_HostDiceRollUntilPunch: the same rolls from the same seed.
void BM_PunchTypeForced(benchmark::State& state) {
  SeededRun run;
  CFighterInFight fighter;
  SetPunches(*fighter.FR());
  PerCall(state, [&] { return fighter.PunchType(true); });
}
BENCHMARK(BM_PunchTypeForced);

void BM_IsKnockedout(benchmark::State& state) {
  SeededRun run;
  CFighterInFight fighter;
  SetPunches(*fighter.FR());
  PerCall(state, [&] { return fighter.IsKnockedout(); });
}
BENCHMARK(BM_IsKnockedout);

}  // namespace
