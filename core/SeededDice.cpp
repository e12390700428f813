#include "core/SeededDice.h"

#include <chrono>
#include <cstdlib>
#include <string>

namespace ringbook {

SeededDice::SeededDice() : SeededDice(SeedFromEnvironment()) {}

SeededDice::SeededDice(uint64_t seed) {
  Reseed(seed);
}

void SeededDice::Reseed(uint64_t seed) {
  // PCG32 initialisation (O'Neill): fixed stream, seed mixed in by two steps.
  increment_ = (0xda3e39cb94b95bdbULL << 1u) | 1u;
  state_ = 0;
  Next();
  state_ += seed;
  Next();
}

uint32_t SeededDice::Next() {
  const uint64_t old = state_;
  state_ = old * 6364136223846793005ULL + increment_;
  const auto xorshifted = static_cast<uint32_t>(((old >> 18u) ^ old) >> 27u);
  const auto rot = static_cast<uint32_t>(old >> 59u);
  return (xorshifted >> rot) | (xorshifted << ((32u - rot) & 31u));
}

int32_t SeededDice::Roll(int32_t upper, int32_t lower) {
  if (upper < lower) std::swap(upper, lower);
  const uint64_t span = static_cast<uint64_t>(static_cast<int64_t>(upper) - lower) + 1;
  if (span > 0xFFFFFFFFull) return static_cast<int32_t>(Next());
  // Lemire's multiply-and-reject: no modulo bias, usually one draw.
  const auto range = static_cast<uint32_t>(span);
  uint64_t product = static_cast<uint64_t>(Next()) * range;
  auto low = static_cast<uint32_t>(product);
  if (low < range) {
    const uint32_t threshold = (0u - range) % range;
    while (low < threshold) {
      product = static_cast<uint64_t>(Next()) * range;
      low = static_cast<uint32_t>(product);
    }
  }
  return static_cast<int32_t>(lower + static_cast<int64_t>(product >> 32));
}

uint64_t SeededDice::SeedFromEnvironment() {
  if (const char* env = std::getenv("RINGBOOK_SEED"); env != nullptr && *env != '\0') {
    char* end = nullptr;
    const unsigned long long seed = std::strtoull(env, &end, 10);
    if (end != env && *end == '\0') return seed;
  }
  return static_cast<uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) ^
         static_cast<uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

}  // namespace ringbook
