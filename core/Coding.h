#pragma once

#include <bit>
#include <cstdint>

namespace ringbook::coding {

/// Little-endian encoding of the stream's fixed-width values, byte by byte,
/// independent of the host's byte order.

// Written out byte by byte so that compilers turn each one into a single
// load or store on little-endian machines.
inline void EncodeFixed16(unsigned char* p, uint16_t v) {
  p[0] = static_cast<unsigned char>(v);
  p[1] = static_cast<unsigned char>(v >> 8);
}
inline void EncodeFixed32(unsigned char* p, uint32_t v) {
  p[0] = static_cast<unsigned char>(v);
  p[1] = static_cast<unsigned char>(v >> 8);
  p[2] = static_cast<unsigned char>(v >> 16);
  p[3] = static_cast<unsigned char>(v >> 24);
}
inline void EncodeFixed64(unsigned char* p, uint64_t v) {
  EncodeFixed32(p, static_cast<uint32_t>(v));
  EncodeFixed32(p + 4, static_cast<uint32_t>(v >> 32));
}
inline uint16_t DecodeFixed16(const unsigned char* p) {
  return static_cast<uint16_t>(p[0] | (p[1] << 8));
}
inline uint32_t DecodeFixed32(const unsigned char* p) {
  return static_cast<uint32_t>(p[0]) | (static_cast<uint32_t>(p[1]) << 8) |
         (static_cast<uint32_t>(p[2]) << 16) | (static_cast<uint32_t>(p[3]) << 24);
}
inline uint64_t DecodeFixed64(const unsigned char* p) {
  return static_cast<uint64_t>(p[0]) | (static_cast<uint64_t>(p[1]) << 8) |
         (static_cast<uint64_t>(p[2]) << 16) | (static_cast<uint64_t>(p[3]) << 24) |
         (static_cast<uint64_t>(p[4]) << 32) | (static_cast<uint64_t>(p[5]) << 40) |
         (static_cast<uint64_t>(p[6]) << 48) | (static_cast<uint64_t>(p[7]) << 56);
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
