// Punch selection: one weighted draw over the record's ten punch ratings.

#include <cfloat>

#include "core/HostServices.h"
#include "engine/CFighterInFight.h"

namespace ringbook {
namespace {

// Punch types in the order their ratings are walked: each family's "3"
// rating, then its "2" rating.
constexpr int16_t kPunchOrder[10] = {1, 6, 2, 7, 3, 8, 4, 9, 5, 10};

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

}  // namespace

int16_t CFighterInFight::PunchType(bool ForcePunch) const {
  const CFighter& fr = Record();
  const float ratings[10] = {fr.J3(),  fr.J2(),  fr.H3(),  fr.H2(), fr.Cr3(),
                             fr.Cr2(), fr.Cb3(), fr.Cb2(), fr.U3(), fr.U2()};
  IDice& dice = Dice();
  for (;;) {
    // p runs from 0.01 to 100.00 in steps of 0.01.
    const double p = static_cast<double>(dice.Roll(10000, 1)) / 100.0;
    float sum = 0.0f;
    for (int i = 0; i < 10; ++i) {
      sum = AddRounded(sum, ratings[i]);
      if (p <= static_cast<double>(sum)) return kPunchOrder[i];
    }
    // Past the ten ratings' sum: no punch, unless one is forced.
    if (!ForcePunch) return 0;
  }
}

}  // namespace ringbook
