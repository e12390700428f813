#pragma once

#include <bit>
#include <cstdint>

namespace ringbook::coding {

/// Little-endian encoding of the stream's fixed-width values, byte by byte,
/// independent of the host's byte order.

inline void EncodeFixed16(unsigned char* p, uint16_t v) {
  p[0] = static_cast<unsigned char>(v);
  p[1] = static_cast<unsigned char>(v >> 8);
}
inline void EncodeFixed32(unsigned char* p, uint32_t v) {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<unsigned char>(v >> (8 * i));
}
inline void EncodeFixed64(unsigned char* p, uint64_t v) {
  for (int i = 0; i < 8; ++i) p[i] = static_cast<unsigned char>(v >> (8 * i));
}
inline uint16_t DecodeFixed16(const unsigned char* p) {
  return static_cast<uint16_t>(p[0] | (p[1] << 8));
}
inline uint32_t DecodeFixed32(const unsigned char* p) {
  uint32_t v = 0;
  for (int i = 3; i >= 0; --i) v = (v << 8) | p[i];
  return v;
}
inline uint64_t DecodeFixed64(const unsigned char* p) {
  uint64_t v = 0;
  for (int i = 7; i >= 0; --i) v = (v << 8) | p[i];
  return v;
}
inline uint32_t FloatBits(float f) {
  return std::bit_cast<uint32_t>(f);
}
inline float FloatFromBits(uint32_t v) {
  return std::bit_cast<float>(v);
}
inline uint64_t DoubleBits(double d) {
  return std::bit_cast<uint64_t>(d);
}
inline double DoubleFromBits(uint64_t v) {
  return std::bit_cast<double>(v);
}

}  // namespace ringbook::coding
