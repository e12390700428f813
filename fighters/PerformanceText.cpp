#include "fighters/PerformanceText.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace ringbook {
namespace {

constexpr int kSignificantDigits = 15;
constexpr int kMaxDecimals = 3;
constexpr int kMinDecimals = 2;

// |value| as decimal digits with exactly three decimals, rounded half away
// from zero on its 15-significant-digit expansion: the whole digits (no
// leading zeros, possibly none) and the three decimals.
void FixedDigits(double magnitude, std::string& whole, std::string& decimals) {
  char buf[40];
  std::snprintf(buf, sizeof buf, "%.*e", kSignificantDigits - 1, magnitude);
  std::string digits(1, buf[0]);
  digits.append(buf + 2, kSignificantDigits - 1);
  const int exponent = std::atoi(std::strchr(buf, 'e') + 1);

  // `digits` with `whole_count` of them before the decimal point.
  int whole_count = exponent + 1;
  if (whole_count < 0) {
    digits.insert(0, static_cast<std::size_t>(-whole_count), '0');
    whole_count = 0;
  }
  const std::size_t kept = static_cast<std::size_t>(whole_count + kMaxDecimals);
  if (digits.size() <= kept) digits.resize(kept + 1, '0');
  const bool round_up = digits[kept] >= '5';
  digits.resize(kept);
  if (round_up) {
    std::size_t i = digits.size();
    while (i > 0 && digits[i - 1] == '9') digits[--i] = '0';
    if (i == 0) {
      digits.insert(0, 1, '1');
      ++whole_count;
    } else {
      ++digits[i - 1];
    }
  }
  whole = digits.substr(0, static_cast<std::size_t>(whole_count));
  whole.erase(0, whole.find_first_not_of('0') == std::string::npos ? whole.size()
                                                                   : whole.find_first_not_of('0'));
  decimals = digits.substr(static_cast<std::size_t>(whole_count));
}

std::string Pattern(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  std::string whole, decimals;
  FixedDigits(std::fabs(value), whole, decimals);
  // The optional third decimal goes when it is zero.
  if (decimals.size() > static_cast<std::size_t>(kMinDecimals) && decimals.back() == '0') {
    decimals.pop_back();
  }
  const bool zero = whole.empty() && decimals.find_first_not_of('0') == std::string::npos;
  return (value < 0 && !zero ? "-" : "") + whole + "." + decimals;
}

}  // namespace

std::string PerformanceText(const Variant& performance) {
  switch (performance.Type()) {
    case VarType::Empty:
    case VarType::Null:
      return {};
    case VarType::String: {
      const std::string text = performance.ToString();
      double number = 0;
      try {
        number = ParseNumber(text);
      } catch (const Error&) {
        return text;
      }
      return Pattern(number);
    }
    default:
      return Pattern(performance.ToDouble());
  }
}

}  // namespace ringbook
