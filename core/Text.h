#pragma once

#include <cstddef>
#include <string>
#include <string_view>

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

/// Converts to the files' code page, Windows-1252: one byte per character,
/// `?` for a character that has no Windows-1252 byte.
RINGBOOK_EXPORT std::string ToAnsi(std::string_view utf8);

/// Converts Windows-1252 bytes to UTF-8. The five bytes the code page leaves
/// undefined map to the control characters of the same number, so every byte
/// survives a round trip.
RINGBOOK_EXPORT std::string FromAnsi(std::string_view ansi);

/// Compares without regard to letter case (ASCII and Latin-1 letters), as the
/// database and the runtime's text compare do. Returns <0, 0 or >0.
RINGBOOK_EXPORT int CompareNoCase(std::string_view a, std::string_view b);

/// Compares by character code (code point order). Returns <0, 0 or >0.
RINGBOOK_EXPORT int CompareBinary(std::string_view a, std::string_view b);

}  // namespace ringbook::text
