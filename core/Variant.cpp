#include "core/Variant.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "core/DateTime.h"
#include "core/Text.h"

namespace ringbook {
namespace {

template <class... Fs>
struct Overloaded : Fs... {
  using Fs::operator()...;
};
template <class... Fs>
Overloaded(Fs...) -> Overloaded<Fs...>;

// Rounds a number to a whole number in [lo, hi] or fails with overflow.
int64_t ToWhole(double v, int64_t lo, int64_t hi) {
  const double r = RoundHalfEven(v);
  if (!(r >= static_cast<double>(lo) && r <= static_cast<double>(hi))) throw Error::Overflow();
  return static_cast<int64_t>(r);
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

}  // namespace

double RoundHalfEven(double value) {
  if (!std::isfinite(value)) return value;
  const double floor = std::floor(value);
  const double diff = value - floor;
  if (diff > 0.5) return floor + 1;
  if (diff < 0.5) return floor;
  return std::fmod(floor, 2.0) == 0 ? floor : floor + 1;
}

std::string NumberText(double value, int significant_digits) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  if (value == 0) return "0";
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*e", significant_digits - 1, value);
  // buf is "-d.ddddde+XX": split mantissa digits and exponent.
  std::string s(buf);
  const auto e = s.find('e');
  const int exponent = std::atoi(s.c_str() + e + 1);
  std::string digits;
  bool negative = false;
  for (std::size_t k = 0; k < e; ++k) {
    if (s[k] == '-') negative = true;
    if (s[k] >= '0' && s[k] <= '9') digits.push_back(s[k]);
  }
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  std::string out = negative ? "-" : "";
  if (exponent >= significant_digits || exponent < -5) {
    // Beyond plain decimal range the runtime writes 1.5E+20 / 1.5E-07.
    out += digits[0];
    if (digits.size() > 1) out += "." + digits.substr(1);
    char exp[16];
    std::snprintf(exp, sizeof exp, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
    return out + exp;
  }
  if (exponent < 0) {
    out += "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
  } else if (static_cast<int>(digits.size()) <= exponent + 1) {
    out += digits + std::string(static_cast<std::size_t>(exponent + 1) - digits.size(), '0');
  } else {
    out += digits.substr(0, exponent + 1) + "." + digits.substr(exponent + 1);
  }
  return out;
}

double ParseNumber(std::string_view text) {
  std::size_t b = 0, e = text.size();
  while (b < e && IsBlank(text[b])) ++b;
  while (e > b && IsBlank(text[e - 1])) --e;
  std::string_view t = text.substr(b, e - b);
  if (t.empty()) throw Error::TypeMismatch();

  if (t.size() > 2 && t[0] == '&' && (t[1] == 'H' || t[1] == 'h' || t[1] == 'O' || t[1] == 'o')) {
    const int base = (t[1] == 'H' || t[1] == 'h') ? 16 : 8;
    std::string digits(t.substr(2));
    char* end = nullptr;
    errno = 0;
    const unsigned long long v = std::strtoull(digits.c_str(), &end, base);
    if (end == digits.c_str() || *end != '\0' || errno == ERANGE || v > 0xFFFFFFFFull) {
      throw Error::TypeMismatch();
    }
    // The runtime reads &H literals of up to four digits as 16-bit values.
    if (v <= 0xFFFF && digits.size() <= 4) return static_cast<int16_t>(v);
    return static_cast<int32_t>(static_cast<uint32_t>(v));
  }

  // Strict decimal grammar: [sign] digits [. digits] [(e|d) [sign] digits].
  std::string s;
  std::size_t i = 0;
  if (t[i] == '+' || t[i] == '-') s.push_back(t[i++]);
  bool any_digit = false;
  while (i < t.size() && t[i] >= '0' && t[i] <= '9') s.push_back(t[i++]), any_digit = true;
  if (i < t.size() && t[i] == '.') {
    s.push_back(t[i++]);
    while (i < t.size() && t[i] >= '0' && t[i] <= '9') s.push_back(t[i++]), any_digit = true;
  }
  if (!any_digit) throw Error::TypeMismatch();
  if (i < t.size() && (t[i] == 'e' || t[i] == 'E' || t[i] == 'd' || t[i] == 'D')) {
    s.push_back('e');
    ++i;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) s.push_back(t[i++]);
    bool exp_digit = false;
    while (i < t.size() && t[i] >= '0' && t[i] <= '9') s.push_back(t[i++]), exp_digit = true;
    if (!exp_digit) throw Error::TypeMismatch();
  }
  if (i != t.size()) throw Error::TypeMismatch();
  errno = 0;
  const double v = std::strtod(s.c_str(), nullptr);
  if (errno == ERANGE && std::isinf(v)) throw Error::Overflow();
  return v;
}

VarType Variant::Type() const noexcept {
  static constexpr VarType kTypes[] = {VarType::Empty,  VarType::Null,    VarType::Boolean,
                                       VarType::Byte,   VarType::Integer, VarType::Long,
                                       VarType::Single, VarType::Double,  VarType::Date,
                                       VarType::String, VarType::Object};
  return kTypes[value_.index()];
}

bool Variant::IsNumeric() const noexcept {
  switch (Type()) {
    case VarType::Boolean:
    case VarType::Byte:
    case VarType::Integer:
    case VarType::Long:
    case VarType::Single:
    case VarType::Double:
    case VarType::Date:
      return true;
    default:
      return false;
  }
}

double Variant::ToDouble() const {
  return std::visit(
      Overloaded{
          [](std::monostate) { return 0.0; },
          [](NullTag) -> double { throw Error::InvalidUseOfNull(); },
          [](bool b) { return b ? -1.0 : 0.0; }, [](uint8_t v) { return static_cast<double>(v); },
          [](int16_t v) { return static_cast<double>(v); },
          [](int32_t v) { return static_cast<double>(v); },
          [](float v) { return static_cast<double>(v); }, [](double v) { return v; },
          [](DateTag d) { return d.days; }, [](const std::string& s) { return ParseNumber(s); },
          [](const std::shared_ptr<Object>&) -> double { throw Error::TypeMismatch(); }},
      value_);
}

int32_t Variant::ToLong() const {
  switch (Type()) {
    case VarType::Integer:
      return std::get<int16_t>(value_);
    case VarType::Long:
      return std::get<int32_t>(value_);
    case VarType::Byte:
      return std::get<uint8_t>(value_);
    default:
      return static_cast<int32_t>(ToWhole(ToDouble(), std::numeric_limits<int32_t>::min(),
                                          std::numeric_limits<int32_t>::max()));
  }
}

int16_t Variant::ToInteger() const {
  return static_cast<int16_t>(ToWhole(ToDouble(), -32768, 32767));
}

uint8_t Variant::ToByte() const {
  return static_cast<uint8_t>(ToWhole(ToDouble(), 0, 255));
}

float Variant::ToSingle() const {
  const double v = ToDouble();
  if (std::isfinite(v) && std::fabs(v) > std::numeric_limits<float>::max()) {
    throw Error::Overflow();
  }
  return static_cast<float>(v);
}

double Variant::ToDate() const {
  return ToDouble();
}

bool Variant::ToBool() const {
  if (const auto* s = std::get_if<std::string>(&value_)) {
    const std::string t = text::Trim(*s);
    if (text::CompareNoCase(t, "True") == 0) return true;
    if (text::CompareNoCase(t, "False") == 0) return false;
    return ParseNumber(t) != 0;
  }
  if (const auto* b = std::get_if<bool>(&value_)) return *b;
  return ToDouble() != 0;
}

std::string Variant::ToString() const {
  return std::visit(
      Overloaded{
          [](std::monostate) { return std::string(); },
          [](NullTag) -> std::string { throw Error::InvalidUseOfNull(); },
          [](bool b) { return std::string(b ? "True" : "False"); },
          [](uint8_t v) { return std::to_string(v); }, [](int16_t v) { return std::to_string(v); },
          [](int32_t v) { return std::to_string(v); }, [](float v) { return NumberText(v, 7); },
          [](double v) { return NumberText(v, 15); },
          [](DateTag d) { return FormatDateTime(d.days); }, [](const std::string& s) { return s; },
          [](const std::shared_ptr<Object>&) -> std::string { throw Error::TypeMismatch(); }},
      value_);
}

std::string Variant::ToText() const {
  return IsNull() ? std::string() : ToString();
}

std::shared_ptr<Object> Variant::ToObject() const {
  if (const auto* o = std::get_if<std::shared_ptr<Object>>(&value_)) return *o;
  throw Error::TypeMismatch();
}

bool Variant::operator==(const Variant& other) const {
  return value_ == other.value_;
}

}  // namespace ringbook
