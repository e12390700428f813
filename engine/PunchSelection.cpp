// Punch selection: one weighted draw over the record's ten punch ratings.

#include <cfloat>
#include <cstdint>

#include "core/HostServices.h"
#include "engine/CFighterInFight.h"

namespace ringbook {
namespace {

// Punch types in the order their ratings are walked: each family's "3"
// rating, then its "2" rating. Entry 10 is the draw past every rating.
constexpr int16_t kPunchOrder[11] = {1, 6, 2, 7, 3, 8, 4, 9, 5, 10, 0};

constexpr int32_t kRolls = 10000;  // the draw p is a roll of 1 to 10000, / 100

// The running sum must be rounded to a 32-bit float at every step, as the
// game's figures have always been: a draw that lands exactly on a boundary
// depends on it. Where the compiler may keep floats in wider registers (x87),
// a store through volatile forces the rounding; elsewhere a plain float sum
// already rounds at each step.
inline float AddRounded(float sum, float rating) {
#if defined(FLT_EVAL_METHOD) && FLT_EVAL_METHOD != 0
  volatile float rounded = sum + rating;
  return rounded;
#else
  return sum + rating;
#endif
}

// The highest roll whose draw p = roll / 100 (worked in double precision) is
// still at most `sum`; 0 when none is. Since p grows with the roll, "p <= sum"
// is exactly "roll <= LastRollCovered(sum)".
int32_t LastRollCovered(float sum) {
  const double s = sum;
  if (!(s < kRolls / 100.0)) return kRolls;  // 100 and beyond cover every roll
  auto roll = static_cast<int32_t>(s * 100.0);
  if (roll < 0) roll = 0;
  // The product may be off by one from the quotient's rounding either way.
  while (roll < kRolls && static_cast<double>(roll + 1) / 100.0 <= s) ++roll;
  while (roll > 0 && static_cast<double>(roll) / 100.0 > s) --roll;
  return roll;
}

std::array<float, 10> PunchRatings(const CFighter& fr) {
  return {fr.J3(),  fr.J2(),  fr.H3(),  fr.H2(), fr.Cr3(),
          fr.Cr2(), fr.Cb3(), fr.Cb2(), fr.U3(), fr.U2()};
}

}  // namespace

int CFighterInFight::RatingsPassed(int32_t roll) const {
  // The running sums never fall (the ratings are never negative), so the
  // number of sums the draw passes is the position of the first that covers
  // it; counting them all avoids a hard-to-predict branch per rating.
  int passed = 0;
  for (int32_t reach : punch_reach_) passed += roll > reach ? 1 : 0;
  return passed;
}

void CFighterInFight::RebuildPunchReach(const std::array<float, 10>& ratings) const {
  float sum = 0.0f;
  for (std::size_t i = 0; i < ratings.size(); ++i) {
    sum = AddRounded(sum, ratings[i]);
    punch_reach_[i] = LastRollCovered(sum);
  }
}

int16_t CFighterInFight::PunchType(bool ForcePunch) const {
  const CFighter& fr = Record();
  if (fr.PunchRatingsStamp() != punch_stamp_) {
    RebuildPunchReach(PunchRatings(fr));
    punch_stamp_ = fr.PunchRatingsStamp();
  }
  IDice& dice = Dice();
  // The two cases apart, so that the common one never waits on whether the
  // draw found a punch (a branch no predictor can learn).
  if (!ForcePunch) return kPunchOrder[RatingsPassed(dice.Roll(kRolls, 1))];
  // Past the ten ratings' sum the draw is made again until a punch comes.
  int16_t type = 0;
  do {
    type = kPunchOrder[RatingsPassed(dice.Roll(kRolls, 1))];
  } while (type == 0);
  return type;
}

}  // namespace ringbook
