#pragma once

#include <cstdint>

#include "core/HostServices.h"

namespace ringbook {

/// The default dice: a PCG32 generator with an unbiased range reduction, so a
/// seed gives the same rolls on every platform and compiler.
class RINGBOOK_EXPORT SeededDice : public IDice {
 public:
  /// Seeds from `RINGBOOK_SEED` when it holds a number, else from the clock.
  SeededDice();
  explicit SeededDice(uint64_t seed);

  /// Restarts the sequence of `seed`.
  void Reseed(uint64_t seed);
  /// A whole number from `lower` to `upper` inclusive; the bounds may come in
  /// either order.
  int32_t Roll(int32_t upper, int32_t lower) override;
  /// The next raw 32-bit output.
  uint32_t Next();

  /// The seed `SeededDice()` would take now.
  static uint64_t SeedFromEnvironment();

 private:
  uint64_t state_ = 0;
  uint64_t increment_ = 0;
};

}  // namespace ringbook
