#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ringbook::coding {

/// Little-endian encoding of the stream's fixed-width values, byte by byte,
/// independent of the host's byte order.

// On a little-endian host each value is one plain load or store; elsewhere
// its bytes are swapped first.
template <class T>
inline T ToLittle(T v) {
  if constexpr (std::endian::native == std::endian::little) {
    return v;
  } else {
    T r = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i)
      r = static_cast<T>(r << 8 | ((v >> (8 * i)) & 0xFF));
    return r;
  }
}

namespace detail {
// The stores go through integer types of alignment 1 rather than memcpy. A
// byte store may change any object, so after one the compiler reloads
// whatever a caller keeps in memory (the stream's cursor, between the values
// of a record); an integer store can only change an integer of its own type.
// The 64-bit one is `unsigned long long`, which on LP64 hosts is not the type
// of size_t.
#if defined(__GNUC__)
typedef uint16_t Store16 __attribute__((aligned(1)));
typedef uint32_t Store32 __attribute__((aligned(1)));
typedef unsigned long long Store64 __attribute__((aligned(1)));
static_assert(sizeof(Store64) == 8);

template <class T>
inline void StoreFixed(unsigned char* p, T v) {
  if constexpr (sizeof v == 2) {
    *reinterpret_cast<Store16*>(p) = v;
  } else if constexpr (sizeof v == 4) {
    *reinterpret_cast<Store32*>(p) = v;
  } else {
    static_assert(sizeof v == 8);
    *reinterpret_cast<Store64*>(p) = v;
  }
}
#else
template <class T>
inline void StoreFixed(unsigned char* p, T v) {
  std::memcpy(p, &v, sizeof v);
}
#endif
}  // namespace detail

template <class T>
inline void EncodeFixed(unsigned char* p, T v) {
  detail::StoreFixed(p, ToLittle(v));
}
template <class T>
inline T DecodeFixed(const unsigned char* p) {
  T v;
  std::memcpy(&v, p, sizeof v);
  return ToLittle(v);
}

inline void EncodeFixed16(unsigned char* p, uint16_t v) {
  EncodeFixed(p, v);
}
inline void EncodeFixed32(unsigned char* p, uint32_t v) {
  EncodeFixed(p, v);
}
inline void EncodeFixed64(unsigned char* p, uint64_t v) {
  EncodeFixed(p, v);
}
inline uint16_t DecodeFixed16(const unsigned char* p) {
  return DecodeFixed<uint16_t>(p);
}
inline uint32_t DecodeFixed32(const unsigned char* p) {
  return DecodeFixed<uint32_t>(p);
}
inline uint64_t DecodeFixed64(const unsigned char* p) {
  return DecodeFixed<uint64_t>(p);
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
