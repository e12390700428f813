// Punch selection: one weighted draw over the record's ten punch ratings.

#include <cfloat>
#include <cstdint>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

}  // namespace

int CFighterInFight::RatingsPassed(int32_t roll) const {
  // The running sums never fall (the ratings are never negative), so the
  // number of sums the draw passes is the position of the first that covers
  // it; counting them all avoids a hard-to-predict branch per rating. A fixed
  // count lets the compiler unroll it into whole vector compares.
#if defined(__SSE2__)
  // Three compares of four sums each; a passed sum gives -1 in its lane.
  const __m128i draw = _mm_set1_epi32(roll);
  const auto* reach = reinterpret_cast<const __m128i*>(punch_reach_.data());
  __m128i count = _mm_add_epi32(_mm_cmpgt_epi32(draw, _mm_loadu_si128(reach)),
                                _mm_cmpgt_epi32(draw, _mm_loadu_si128(reach + 1)));
  count = _mm_add_epi32(count, _mm_cmpgt_epi32(draw, _mm_loadu_si128(reach + 2)));
  count = _mm_add_epi32(count, _mm_shuffle_epi32(count, 0x4E));
  count = _mm_add_epi32(count, _mm_shuffle_epi32(count, 0xB1));
  return -_mm_cvtsi128_si32(count);
#else
  int passed = 0;
  for (std::size_t i = 0; i < 10; ++i) passed += roll > punch_reach_[i] ? 1 : 0;
  return passed;
#endif
}

void CFighterInFight::RebuildPunchReach(const CFighter& fr) const {
  const float ratings[10] = {fr.J3(),  fr.J2(),  fr.H3(),  fr.H2(), fr.Cr3(),
                             fr.Cr2(), fr.Cb3(), fr.Cb2(), fr.U3(), fr.U2()};
  float sum = 0.0f;
  for (std::size_t i = 0; i < 10; ++i) {
    sum = AddRounded(sum, ratings[i]);
    punch_reach_[i] = LastRollCovered(sum);
  }
  punch_stamp_ = fr.PunchRatingsStamp();
}

int16_t CFighterInFight::PunchType(bool ForcePunch) const {
  const CFighter& fr = Record();
  if (fr.PunchRatingsStamp() != punch_stamp_) [[unlikely]]
    RebuildPunchReach(fr);
  // The two cases apart, so that the common one never waits on whether the
  // draw found a punch (a branch no predictor can learn), and needs no more
  // registers than one draw.
  if (ForcePunch) return ForcedPunchType();
  return kPunchOrder[RatingsPassed(Dice().Roll(kRolls, 1))];
}

int16_t CFighterInFight::ForcedPunchType() const {
  // Past the ten ratings' sum the draw is made again until a punch comes.
  IDice& dice = Dice();
  int16_t type = 0;
  do {
    type = kPunchOrder[RatingsPassed(dice.Roll(kRolls, 1))];
  } while (type == 0);
  return type;
}

}  // namespace ringbook
