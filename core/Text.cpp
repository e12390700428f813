#include "core/Text.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "core/Coding.h"

namespace ringbook::text {
namespace {

// Decodes one code point at `i`, advancing `i`; an invalid or truncated
// sequence yields its first byte as one character (U+FFFD is not used so
// that counting and cutting agree byte for byte).
char32_t Decode(std::string_view s, std::size_t& i) {
  const auto b0 = static_cast<unsigned char>(s[i]);
  auto cont = [&](std::size_t k) {
    return i + k < s.size() && (static_cast<unsigned char>(s[i + k]) & 0xC0) == 0x80;
  };
  auto byte = [&](std::size_t k) { return static_cast<char32_t>(s[i + k] & 0x3F); };
  if (b0 < 0x80) {
    i += 1;
    return b0;
  }
  if (b0 >= 0xC2 && b0 <= 0xDF && cont(1)) {
    char32_t cp = ((b0 & 0x1F) << 6) | byte(1);
    i += 2;
    return cp;
  }
  if (b0 >= 0xE0 && b0 <= 0xEF && cont(1) && cont(2)) {
    char32_t cp = ((b0 & 0x0F) << 12) | (byte(1) << 6) | byte(2);
    if (cp >= 0x800 && (cp < 0xD800 || cp > 0xDFFF)) {
      i += 3;
      return cp;
    }
  }
  if (b0 >= 0xF0 && b0 <= 0xF4 && cont(1) && cont(2) && cont(3)) {
    char32_t cp = ((b0 & 0x07) << 18) | (byte(1) << 12) | (byte(2) << 6) | byte(3);
    if (cp >= 0x10000 && cp <= 0x10FFFF) {
      i += 4;
      return cp;
    }
  }
  i += 1;
  return 0xFFFD;  // invalid: one character, no Windows-1252 byte
}

// Windows-1252 bytes 0x80 to 0x9F; the undefined ones map to the C1 control
// of the same number.
constexpr std::array<char16_t, 32> kHighTable = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

int AnsiByte(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int>(cp);
  for (std::size_t k = 0; k < kHighTable.size(); ++k) {
    if (kHighTable[k] == cp) return static_cast<int>(0x80 + k);
  }
  return -1;
}

// Puts the Windows-1252 byte of the character at `at` (or '?') in `out` and
// returns its length in UTF-8: the general case of the conversion, kept out
// of its loop.
[[gnu::noinline]] std::size_t AnsiCharAt(std::string_view utf8, std::size_t at, char& out) {
  std::size_t next = at;
  const int ansi = AnsiByte(Decode(utf8, next));
  out = ansi < 0 ? '?' : static_cast<char>(ansi);
  return next - at;
}

char32_t FoldCase(char32_t cp) {
  if (cp >= 'a' && cp <= 'z') return cp - 32;
  // Latin-1 lower-case letters except the division sign and y-diaeresis.
  if (cp >= 0xE0 && cp <= 0xFE && cp != 0xF7) return cp - 32;
  if (cp == 0xFF) return 0x178;
  if (cp == 0x161 || cp == 0x17E || cp == 0x153) return cp - 1;  // š ž œ
  return cp;
}

template <class Map>
int CompareBy(std::string_view a, std::string_view b, Map map) {
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    const char32_t x = map(Decode(a, i));
    const char32_t y = map(Decode(b, j));
    if (x != y) return x < y ? -1 : 1;
  }
  if (i < a.size()) return 1;
  if (j < b.size()) return -1;
  return 0;
}

}  // namespace

std::size_t CharCount(std::string_view utf8) {
  std::size_t n = 0;
  for (std::size_t i = 0; i < utf8.size(); ++n) Decode(utf8, i);
  return n;
}

std::string Left(std::string_view utf8, std::size_t count) {
  std::size_t i = 0;
  for (std::size_t n = 0; n < count && i < utf8.size(); ++n) Decode(utf8, i);
  return std::string(utf8.substr(0, i));
}

std::string Trim(std::string_view s) {
  const auto first = s.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const auto last = s.find_last_not_of(' ');
  return std::string(s.substr(first, last - first + 1));
}

namespace {

// The UTF-8 form of every Windows-1252 byte: up to three bytes, first byte
// lowest, and the length in the top byte, so that the conversion is one
// lookup and one four-byte store per character.
constexpr std::array<uint32_t, 256> kUtf8OfAnsi = [] {
  std::array<uint32_t, 256> table{};
  for (uint32_t b = 0; b < 256; ++b) {
    const uint32_t cp = b >= 0x80 && b < 0xA0 ? kHighTable[b - 0x80] : b;
    if (cp < 0x80) {
      table[b] = cp | 1u << 24;
    } else if (cp < 0x800) {
      table[b] = (0xC0 | cp >> 6) | (0x80 | (cp & 0x3F)) << 8 | 2u << 24;
    } else {
      table[b] = (0xE0 | cp >> 12) | (0x80 | (cp >> 6 & 0x3F)) << 8 | (0x80 | (cp & 0x3F)) << 16 |
                 3u << 24;
    }
  }
  return table;
}();

// Copies the eight bytes at `in` to `out` whole and returns how many of them
// lead as ASCII (8 when all do). Both conversions skip ASCII runs with it;
// the caller must have eight bytes of room at `out`.
std::size_t CopyAsciiRun(const unsigned char* in, char* out) {
  const uint64_t word = coding::DecodeFixed64(in);
  coding::EncodeFixed64(reinterpret_cast<unsigned char*>(out), word);
  const uint64_t high = word & 0x8080808080808080ull;
  return high == 0 ? 8 : static_cast<std::size_t>(std::countr_zero(high)) / 8;
}

}  // namespace

std::size_t detail::ToAnsiConverting(std::string_view utf8, char* out) noexcept {
  const auto* const begin = reinterpret_cast<const unsigned char*>(utf8.data());
  const auto* const end = begin + utf8.size();
  const auto* in = begin;
  char* o = out;
  while (in != end) {
    // ASCII runs go eight bytes at a time (the output never runs ahead of
    // the input, so it has the room).
    if (end - in >= 8) {
      const std::size_t run = CopyAsciiRun(in, o);
      in += run;
      o += run;
      if (run == 8) continue;
    } else if (*in < 0x80) {
      *o++ = static_cast<char>(*in++);
      continue;
    }
    // Latin-1 letters, the usual case, are two bytes starting C2 or C3.
    const unsigned char b = *in;
    if ((b & 0xFE) == 0xC2 && end - in >= 2 && (in[1] & 0xC0) == 0x80 &&
        (b == 0xC3 || in[1] >= 0xA0)) {
      *o++ = static_cast<char>((b & 0x1Fu) << 6 | (in[1] & 0x3Fu));
      in += 2;
      continue;
    }
    in += AnsiCharAt(utf8, static_cast<std::size_t>(in - begin), *o++);
  }
  return static_cast<std::size_t>(o - out);
}

std::string ToAnsi(std::string_view utf8) {
  if (IsAscii(utf8)) return std::string(utf8);
  std::string out(utf8.size(), '\0');
  out.resize(ToAnsi(utf8, out.data()));
  return out;
}

std::string detail::FromAnsiConverting(std::string_view ansi) {
  if (IsAscii(ansi)) return std::string(ansi);
  // At most three UTF-8 bytes per character, and a store may write up to
  // eight: short texts are converted on the stack and copied out once.
  constexpr std::size_t kShort = 64;
  char stack[3 * kShort + 8];
  std::string heap;
  char* const start =
      ansi.size() <= kShort ? stack : (heap.resize(3 * ansi.size() + 8), heap.data());
  const auto* in = reinterpret_cast<const unsigned char*>(ansi.data());
  const std::size_t n = ansi.size();
  char* o = start;
  for (std::size_t i = 0; i < n;) {
    if (n - i >= 8) {
      const std::size_t run = CopyAsciiRun(in + i, o);
      i += run;
      o += run;
      if (run == 8) continue;
    }
    const uint32_t utf8 = kUtf8OfAnsi[in[i++]];
    coding::EncodeFixed32(reinterpret_cast<unsigned char*>(o), utf8);  // the top byte is scratch
    o += utf8 >> 24;
  }
  if (start != stack) {
    heap.resize(static_cast<std::size_t>(o - start));
    return heap;
  }
  const std::string_view utf8(stack, static_cast<std::size_t>(o - stack));
  return utf8.size() <= kShortText ? ShortString(utf8) : std::string(utf8);
}

int CompareNoCase(std::string_view a, std::string_view b) {
  return CompareBy(a, b, FoldCase);
}

int CompareBinary(std::string_view a, std::string_view b) {
  return CompareBy(a, b, [](char32_t c) { return c; });
}

}  // namespace ringbook::text
