#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "core/Coding.h"
#include "core/Export.h"

namespace ringbook::text {

/// Text in the API is UTF-8; a "character" is one Unicode code point. Bytes
/// that are not valid UTF-8 count as one character each.

/// Number of characters (code points) of a UTF-8 text.
RINGBOOK_EXPORT std::size_t CharCount(std::string_view utf8);

/// The first `count` characters, never splitting one.
RINGBOOK_EXPORT std::string Left(std::string_view utf8, std::size_t count);

/// Removes leading and trailing blanks (U+0020 only, as the runtime's Trim).
RINGBOOK_EXPORT std::string Trim(std::string_view s);

/// True when every byte is below 0x80: such a text reads the same in UTF-8
/// and in Windows-1252. Most of the game's texts are, so the conversions and
/// the stream test for it first; inline, with overlapping loads in place of a
/// byte loop, because a text is usually shorter than 16 bytes.
inline bool IsAscii(std::string_view s) noexcept {
  const char* p = s.data();
  const std::size_t n = s.size();
  if (n >= 8) {
    auto word = [p](std::size_t at) {
      uint64_t w;
      std::memcpy(&w, p + at, 8);
      return w;
    };
    uint64_t any = word(n - 8);
    for (std::size_t i = 0; i + 8 < n; i += 8) any |= word(i);
    return (any & 0x8080808080808080ull) == 0;
  }
  if (n >= 4) {
    uint32_t a, b;
    std::memcpy(&a, p, 4);
    std::memcpy(&b, p + n - 4, 4);
    return ((a | b) & 0x80808080u) == 0;
  }
  if (n == 0) return true;
  return ((static_cast<unsigned char>(p[0]) | static_cast<unsigned char>(p[n / 2]) |
           static_cast<unsigned char>(p[n - 1])) &
          0x80) == 0;
}

/// Converts to the files' code page, Windows-1252: one byte per character,
/// `?` for a character that has no Windows-1252 byte.
RINGBOOK_EXPORT std::string ToAnsi(std::string_view utf8);

namespace detail {
RINGBOOK_EXPORT std::size_t ToAnsiConverting(std::string_view utf8, char* out) noexcept;

// Copies `n` bytes, at least one word's worth, as two overlapping words and
// returns the two ORed together. The stores are typed, so the caller's own
// bookkeeping (a string's length, a stream's cursor) stays in registers
// across them.
template <class Word>
inline Word CopyOverlapping(const char* in, std::size_t n, unsigned char* out) noexcept {
  Word head, tail;
  std::memcpy(&head, in, sizeof head);
  std::memcpy(&tail, in + n - sizeof tail, sizeof tail);
  coding::detail::StoreFixed(out, head);
  coding::detail::StoreFixed(out + n - sizeof tail, tail);
  return head | tail;
}

// Copies a text of at most 16 bytes (no call, no loop but for the shortest)
// and tells whether it was plain ASCII.
inline bool CopyShortIfAscii(const char* in, std::size_t n, char* out) noexcept {
  auto* const o = reinterpret_cast<unsigned char*>(out);
  if (n >= 8) return (CopyOverlapping<uint64_t>(in, n, o) & 0x8080808080808080ull) == 0;
  if (n >= 4) return (CopyOverlapping<uint32_t>(in, n, o) & 0x80808080u) == 0;
  unsigned char any = 0;
  for (std::size_t i = 0; i < n; ++i) {
    out[i] = in[i];
    any |= static_cast<unsigned char>(in[i]);
  }
  return any < 0x80;
}
}  // namespace detail

/// The same conversion into `out`, which must have room for `utf8.size()`
/// bytes (a character never takes more bytes in Windows-1252 than in UTF-8).
/// Returns the number of bytes written. The bytes of `out` past that count
/// may be overwritten too. Inline for the usual short ASCII text, which the
/// stream writes straight into its buffer.
inline std::size_t ToAnsi(std::string_view utf8, char* out) noexcept {
  const std::size_t n = utf8.size();
  if (n <= 16) {
    if (detail::CopyShortIfAscii(utf8.data(), n, out)) return n;
  } else if (IsAscii(utf8)) {
    std::memcpy(out, utf8.data(), n);
    return n;
  }
  return detail::ToAnsiConverting(utf8, out);
}

namespace detail {
/// The UTF-8 form of a text that is not short ASCII.
RINGBOOK_EXPORT std::string FromAnsiConverting(std::string_view ansi);

/// Texts of up to this many bytes fit a string's own inline buffer.
inline constexpr std::size_t kShortText = 15;

/// A copy of a text of at most `kShortText` bytes, built in the string's own
/// buffer without a call: it starts at the full inline size, takes the
/// bytes and is cut to length.
[[gnu::always_inline]] inline std::string ShortString(std::string_view bytes) {
  std::string s(kShortText, '\0');
  CopyShortIfAscii(bytes.data(), bytes.size(), s.data());
  s.erase(bytes.size());
  return s;
}
}  // namespace detail

/// Converts Windows-1252 bytes to UTF-8. The five bytes the code page leaves
/// undefined map to the control characters of the same number, so every byte
/// survives a round trip. Inline for the usual short ASCII text, which the
/// stream reads straight from its buffer.
[[gnu::always_inline]] inline std::string FromAnsi(std::string_view ansi) {
  if (ansi.size() <= detail::kShortText && IsAscii(ansi)) return detail::ShortString(ansi);
  return detail::FromAnsiConverting(ansi);
}

/// Compares without regard to letter case (ASCII and Latin-1 letters), as the
/// database and the runtime's text compare do. Returns <0, 0 or >0.
RINGBOOK_EXPORT int CompareNoCase(std::string_view a, std::string_view b);

/// Compares by character code (code point order). Returns <0, 0 or >0.
RINGBOOK_EXPORT int CompareBinary(std::string_view a, std::string_view b);

}  // namespace ringbook::text
