#include "cli/Fields.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "core/DateTime.h"
#include "core/Error.h"

namespace ringbook::cli {
namespace {

bool ParseWhole(const std::string& text, int64_t& out) {
  const char* first = text.data();
  const char* last = first + text.size();
  if (first != last && *first == '+') ++first;
  auto [end, ec] = std::from_chars(first, last, out);
  return ec == std::errc() && end == last && first != last;
}

bool ParseReal(const std::string& text, double& out) {
  if (text.empty()) return false;
  const char* first = text.data();
  const char* last = first + text.size();
  auto [end, ec] = std::from_chars(first, last, out);
  return ec == std::errc() && end == last && std::isfinite(out);
}

Json CheckedWhole(int64_t value, int64_t low, int64_t high, const std::string& what) {
  if (value < low || value > high) {
    throw UsageError(what + ": " + std::to_string(value) + " is outside " + std::to_string(low) +
                     ".." + std::to_string(high));
  }
  return Json(value);
}

int64_t Low(FieldKind kind) {
  return kind == FieldKind::Int16 ? std::numeric_limits<int16_t>::min()
                                  : std::numeric_limits<int32_t>::min();
}
int64_t High(FieldKind kind) {
  return kind == FieldKind::Int16 ? std::numeric_limits<int16_t>::max()
                                  : std::numeric_limits<int32_t>::max();
}

// "yyyy-mm-dd", optionally followed by " hh:mm" or " hh:mm:ss" (or a "T").
bool ParseDateText(const std::string& text, double& out) {
  int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0;
  char sep = 0;
  int used = 0;
  if (std::sscanf(text.c_str(), "%4d-%2d-%2d%n", &y, &mo, &d, &used) != 3) return false;
  if (static_cast<std::size_t>(used) != text.size()) {
    int more = 0;
    const std::string rest = text.substr(static_cast<std::size_t>(used));
    const int got = std::sscanf(rest.c_str(), "%c%2d:%2d%n:%2d%n", &sep, &h, &mi, &more, &s, &more);
    if (got < 3 || (sep != ' ' && sep != 'T')) return false;
    if (static_cast<std::size_t>(more) != rest.size()) return false;
    if (h > 23 || mi > 59 || s > 59) return false;
  }
  try {
    out = DateFromParts(y, mo, d, h, mi, s);
  } catch (const Error&) {
    return false;
  }
  return true;
}

}  // namespace

std::string OptionName(const std::string& field_name) {
  std::string out = "--";
  for (std::size_t i = 0; i < field_name.size(); ++i) {
    const unsigned char c = static_cast<unsigned char>(field_name[i]);
    // A word starts at a capital that follows a small letter, or that
    // precedes one after a run of capitals ("GroupID" -> "group-id",
    // "IDNumber" -> "id-number").
    if (std::isupper(c) && i > 0) {
      const unsigned char prev = static_cast<unsigned char>(field_name[i - 1]);
      // ... but a plural "s" stays with its capitals ("TitleIDs" -> "title-ids").
      const bool plural = i + 2 == field_name.size() && field_name[i + 1] == 's';
      const bool next_lower = i + 1 < field_name.size() && !plural &&
                              std::islower(static_cast<unsigned char>(field_name[i + 1]));
      if (std::islower(prev) || std::isdigit(prev) || (std::isupper(prev) && next_lower)) {
        out.push_back('-');
      }
    }
    out.push_back(static_cast<char>(std::tolower(c)));
  }
  return out;
}

Json ParseValue(FieldKind kind, const std::string& text, const std::string& what) {
  switch (kind) {
    case FieldKind::Text:
      return Json(text);
    case FieldKind::Int16:
    case FieldKind::Int32: {
      int64_t v = 0;
      if (!ParseWhole(text, v)) throw UsageError(what + ": '" + text + "' is not a whole number");
      return CheckedWhole(v, Low(kind), High(kind), what);
    }
    case FieldKind::Float: {
      double v = 0;
      if (!ParseReal(text, v)) throw UsageError(what + ": '" + text + "' is not a number");
      return FloatJson(static_cast<float>(v));
    }
    case FieldKind::Bool: {
      if (text == "true" || text == "yes" || text == "1" || text == "on") return Json(true);
      if (text == "false" || text == "no" || text == "0" || text == "off") return Json(false);
      throw UsageError(what + ": '" + text + "' is not true or false");
    }
    case FieldKind::Date: {
      double v = 0;
      if (ParseDateText(text, v) || ParseReal(text, v)) return Json(v);
      throw UsageError(what + ": '" + text + "' is not a date (yyyy-mm-dd [hh:mm[:ss]])");
    }
    case FieldKind::Value: {
      if (text.empty()) return Json(nullptr);
      double v = 0;
      if (ParseReal(text, v)) return Json(v);
      return Json(text);
    }
  }
  return Json(text);
}

Json CheckValue(FieldKind kind, const Json& value, const std::string& what) {
  switch (kind) {
    case FieldKind::Text:
      if (!value.is_string()) throw UsageError(what + " must be a text");
      return value;
    case FieldKind::Int16:
    case FieldKind::Int32:
      if (value.is_number_integer()) {
        return CheckedWhole(value.get<int64_t>(), Low(kind), High(kind), what);
      }
      throw UsageError(what + " must be a whole number");
    case FieldKind::Float:
      if (!value.is_number()) throw UsageError(what + " must be a number");
      return FloatJson(value.get<float>());
    case FieldKind::Bool:
      if (!value.is_boolean()) throw UsageError(what + " must be true or false");
      return value;
    case FieldKind::Date:
      if (value.is_number()) return Json(value.get<double>());
      if (value.is_string()) return ParseValue(kind, value.get<std::string>(), what);
      throw UsageError(what + " must be a date");
    case FieldKind::Value:
      if (value.is_null() || value.is_number() || value.is_string()) return value;
      throw UsageError(what + " must be a number, a text or null");
  }
  return value;
}

Json FloatJson(float value) {
  char buf[32];
  auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value);
  if (ec != std::errc()) return Json(static_cast<double>(value));
  double shortest = 0;
  std::from_chars(buf, end, shortest);
  return Json(shortest);
}

Json WholeOrText(const std::string& text) {
  int64_t v = 0;
  if (text.empty() || text.front() == '+' || !ParseWhole(text, v)) return Json(text);
  if (v < std::numeric_limits<int32_t>::min() || v > std::numeric_limits<int32_t>::max()) {
    return Json(text);
  }
  return Json(v);
}

std::string CellText(const Json& value) {
  if (value.is_null()) return "";
  if (value.is_string()) return value.get<std::string>();
  if (value.is_boolean()) return value.get<bool>() ? "true" : "false";
  if (value.is_number_float()) {
    char buf[32];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value.get<double>());
    return ec == std::errc() ? std::string(buf, end) : value.dump();
  }
  return value.dump();
}

}  // namespace ringbook::cli
