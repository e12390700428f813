#pragma once

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace ringbook::test {

/// Builds the bytes a saved record should hold, value by value, in the
/// stream's little-endian encoding, so that tests spell out file layouts by
/// hand instead of trusting the writer they check.
class Bytes {
 public:
  /// 16-bit signed, two's complement.
  Bytes& Int(int16_t v) {
    auto u = static_cast<uint16_t>(v);
    bytes_.push_back(static_cast<uint8_t>(u));
    bytes_.push_back(static_cast<uint8_t>(u >> 8));
    return *this;
  }
  /// 32-bit signed, two's complement.
  Bytes& Lng(int32_t v) {
    auto u = static_cast<uint32_t>(v);
    for (int i = 0; i < 4; ++i) bytes_.push_back(static_cast<uint8_t>(u >> (8 * i)));
    return *this;
  }
  /// A boolean: FF FF or 00 00.
  Bytes& Bln(bool v) { return Int(v ? -1 : 0); }
  Bytes& Byte(uint8_t v) {
    bytes_.push_back(v);
    return *this;
  }
  /// A variable-length string: 32-bit count, then the bytes as given (pass
  /// Windows-1252 bytes for characters beyond ASCII).
  Bytes& Str(const std::string& ansi) {
    Lng(static_cast<int32_t>(ansi.size()));
    bytes_.insert(bytes_.end(), ansi.begin(), ansi.end());
    return *this;
  }
  const std::vector<uint8_t>& Get() const { return bytes_; }

 private:
  std::vector<uint8_t> bytes_;
};

/// The whole file's bytes; empty when it cannot be read.
inline std::vector<uint8_t> ReadFileBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::vector<uint8_t>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

/// Replaces the file with exactly `bytes`.
inline void WriteFileBytes(const std::string& path, const std::vector<uint8_t>& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
}

}  // namespace ringbook::test
