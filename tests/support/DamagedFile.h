#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/Bytes.h"

namespace ringbook::test {

/// How a saved file is spoiled before it is loaded again: every `cut_step`-th
/// prefix of the good bytes, then `rounds` copies with `flips` bytes each
/// overwritten from a fixed-seed generator (so string counts may claim
/// gigabytes). The same seed always spoils the same bytes.
struct Damage {
  std::size_t cut_step = 1;
  int rounds = 0;
  int flips = 0;
  uint32_t seed = 1;
};

/// Writes each spoiled copy of `good` to `path` and calls `load()` on it; the
/// loader asserts whatever must still hold after a damaged load.
template <class Load>
void LoadDamagedCopies(const std::string& path, const std::vector<uint8_t>& good,
                       const Damage& damage, Load load) {
  for (std::size_t cut = 0; cut < good.size(); cut += damage.cut_step) {
    WriteFileBytes(path, std::vector<uint8_t>(good.begin(), good.begin() + cut));
    load();
  }
  uint32_t seed = damage.seed;
  for (int round = 0; round < damage.rounds && !good.empty(); ++round) {
    std::vector<uint8_t> damaged = good;
    for (int k = 0; k < damage.flips; ++k) {
      seed = seed * 1103515245u + 12345u;
      damaged[(seed >> 8) % damaged.size()] = static_cast<uint8_t>(seed >> 24);
    }
    WriteFileBytes(path, damaged);
    load();
  }
}

}  // namespace ringbook::test
