#pragma once

#include <bit>
#include <cstdint>

#include "support/Bytes.h"

namespace ringbook::test {

/// Hand-built layouts of the records that cards, tournaments and options
/// carry inside their files, for tests that compare a save byte for byte.

/// An 8-byte date (IEEE double, little-endian).
inline Bytes& AppendDate(Bytes& b, double date) {
  const auto u = std::bit_cast<uint64_t>(date);
  for (int i = 0; i < 8; ++i) b.Byte(static_cast<uint8_t>(u >> (8 * i)));
  return b;
}

/// The records of new, empty officials and site.
inline Bytes& BlankReferee(Bytes& b) {
  return b.Lng(1000001).Lng(0).Str("").Str("").Int(0).Int(0).Int(0).Int(0).Int(0).Int(0);
}
inline Bytes& BlankAnnouncer(Bytes& b) {
  return b.Lng(1000001).Lng(0).Str("").Str("").Int(0);
}
inline Bytes& BlankLocation(Bytes& b) {
  return b.Lng(1000001).Str("").Str("").Str("").Int(0).Lng(0).Int(0).Int(0);
}
inline Bytes& BlankJudge(Bytes& b) {
  return b.Lng(1000003).Lng(0).Str("").Str("").Int(0).Lng(0);
}

/// The options record of new options made without a game database: the
/// single-fight defaults with empty officials, up to and including `Style`
/// (style 0 has no tail; for other styles the caller appends it).
inline Bytes& DefaultOptionsRecord(Bytes& b, int32_t style = 0) {
  b.Lng(1000004);
  b.Bln(false).Bln(true).Bln(true).Bln(true).Bln(true).Bln(true).Bln(false);
  b.Lng(0).Lng(0).Int(0).Bln(false).Int(0).Int(0);
  BlankReferee(b);
  BlankAnnouncer(b);
  BlankLocation(b);
  b.Bln(false);
  BlankJudge(b);
  BlankJudge(b);
  BlankJudge(b);
  return b.Int(1).Bln(false).Int(10).Bln(true).Lng(style);
}

}  // namespace ringbook::test
