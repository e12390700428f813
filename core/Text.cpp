#include "core/Text.h"

#include <array>
#include <cstdint>
#include <cstring>

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

bool IsAscii(std::string_view s) {
  std::size_t i = 0;
  for (; i + 8 <= s.size(); i += 8) {
    uint64_t word;
    std::memcpy(&word, s.data() + i, 8);
    if ((word & 0x8080808080808080ull) != 0) return false;
  }
  for (; i < s.size(); ++i) {
    if (static_cast<unsigned char>(s[i]) >= 0x80) return false;
  }
  return true;
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

std::string ToAnsi(std::string_view utf8) {
  // Most texts are plain ASCII, which is the same in both encodings.
  if (IsAscii(utf8)) return std::string(utf8);
  // One byte per character: never longer than the UTF-8 text.
  std::string out(utf8.size(), '\0');
  char* o = out.data();
  for (std::size_t i = 0; i < utf8.size();) {
    const int b = AnsiByte(Decode(utf8, i));
    *o++ = b < 0 ? '?' : static_cast<char>(b);
  }
  out.resize(static_cast<std::size_t>(o - out.data()));
  return out;
}

std::string FromAnsi(std::string_view ansi) {
  if (IsAscii(ansi)) return std::string(ansi);
  // At most three UTF-8 bytes per character: short texts are converted on
  // the stack in one pass and copied out once.
  constexpr std::size_t kShort = 64;
  char stack[3 * kShort];
  std::string heap;
  char* const start = ansi.size() <= kShort ? stack : (heap.resize(3 * ansi.size()), heap.data());
  char* o = start;
  for (const char c : ansi) {
    const auto b = static_cast<unsigned char>(c);
    const char32_t cp = b >= 0x80 && b < 0xA0 ? kHighTable[b - 0x80] : b;
    if (cp < 0x80) {
      *o++ = c;
    } else if (cp < 0x800) {
      *o++ = static_cast<char>(0xC0 | (cp >> 6));
      *o++ = static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      *o++ = static_cast<char>(0xE0 | (cp >> 12));
      *o++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      *o++ = static_cast<char>(0x80 | (cp & 0x3F));
    }
  }
  if (start != stack) {
    heap.resize(static_cast<std::size_t>(o - start));
    return heap;
  }
  return std::string(stack, static_cast<std::size_t>(o - stack));
}

int CompareNoCase(std::string_view a, std::string_view b) {
  return CompareBy(a, b, FoldCase);
}

int CompareBinary(std::string_view a, std::string_view b) {
  return CompareBy(a, b, [](char32_t c) { return c; });
}

}  // namespace ringbook::text
