// The fight engine's per-punch calls against the bare cost of the dice they
// roll. A bout asks `PunchType` and `IsKnockedout` many thousand times; each
// makes one roll (`PunchType` without a forced punch always makes exactly
// one). The aim is to stay within twice the cost of one `SeededDice::Roll`
// with the same bounds; the rolls through the thread's dice are measured too,
// since every engine call pays that lookup.
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

// The thread's dice for one benchmark run, seeded; the default comes back
// afterwards.
struct SeededRun {
  SeededRun() { ringbook::SetDice(std::make_shared<SeededDice>(kSeed)); }
  ~SeededRun() { ringbook::SetDice(nullptr); }
};

void BM_DiceRollPunchRange(benchmark::State& state) {
  SeededDice dice(kSeed);
  for (auto _ : state) benchmark::DoNotOptimize(dice.Roll(10000, 1));
}
BENCHMARK(BM_DiceRollPunchRange);

void BM_DiceRollPercent(benchmark::State& state) {
  SeededDice dice(kSeed);
  for (auto _ : state) benchmark::DoNotOptimize(dice.Roll(100, 1));
}
BENCHMARK(BM_DiceRollPercent);

// The same rolls through the calling thread's dice (`Dice()`), which is how
// the engine reaches them: the per-thread lookup and the virtual call.
void BM_HostDiceRollPunchRange(benchmark::State& state) {
  SeededRun run;
  for (auto _ : state) benchmark::DoNotOptimize(ringbook::Dice().Roll(10000, 1));
}
BENCHMARK(BM_HostDiceRollPunchRange);

void BM_HostDiceRollPercent(benchmark::State& state) {
  SeededRun run;
  for (auto _ : state) benchmark::DoNotOptimize(ringbook::Dice().Roll(100, 1));
}
BENCHMARK(BM_HostDiceRollPercent);

void BM_PunchType(benchmark::State& state) {
  SeededRun run;
  CFighterInFight fighter;
  SetPunches(*fighter.FR());
  for (auto _ : state) benchmark::DoNotOptimize(fighter.PunchType());
}
BENCHMARK(BM_PunchType);

// Forced: 1 / 0.7 rolls a call on average; reported for completeness.
void BM_PunchTypeForced(benchmark::State& state) {
  SeededRun run;
  CFighterInFight fighter;
  SetPunches(*fighter.FR());
  for (auto _ : state) benchmark::DoNotOptimize(fighter.PunchType(true));
}
BENCHMARK(BM_PunchTypeForced);

void BM_IsKnockedout(benchmark::State& state) {
  SeededRun run;
  CFighterInFight fighter;
  SetPunches(*fighter.FR());
  for (auto _ : state) benchmark::DoNotOptimize(fighter.IsKnockedout());
}
BENCHMARK(BM_IsKnockedout);

}  // namespace
