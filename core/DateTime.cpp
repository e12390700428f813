#include "core/DateTime.h"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <ctime>

#include "core/Error.h"

namespace ringbook {
namespace {

// Days since 1970-01-01 of a proleptic Gregorian date (H. Hinnant's algorithm).
int64_t DaysFromCivil(int64_t y, unsigned m, unsigned d) {
  y -= m <= 2;
  const int64_t era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<int64_t>(doe) - 719468;
}

void CivilFromDays(int64_t z, int& year, int& month, int& day) {
  z += 719468;
  const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const int64_t y = static_cast<int64_t>(yoe) + era * 400;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  year = static_cast<int>(y + (month <= 2));
}

const int64_t kEpochOffset = DaysFromCivil(1899, 12, 30);

int DaysInMonth(int year, int month) {
  static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : kDays[month - 1];
}

}  // namespace

double DateFromParts(int year, int month, int day, int hour, int minute, int second) {
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 ||
      day > DaysInMonth(year, month) || hour < 0 || hour > 23 || minute < 0 || minute > 59 ||
      second < 0 || second > 59) {
    throw Error::InvalidCall();
  }
  const double days = static_cast<double>(DaysFromCivil(year, month, day) - kEpochOffset);
  const double time = (hour * 3600.0 + minute * 60.0 + second) / 86400.0;
  return days < 0 ? days - time : days + time;
}

CivilDateTime DateToParts(double date) {
  // Dates outside the calendar of years 100 to 9999 (or not a number, as a
  // damaged file may hold) are pinned to its ends instead of overflowing.
  // Before the epoch the fraction counts forward from midnight, so the last
  // second of 1 January 100 is -657434.99999, not -657434.
  constexpr double kMinDate = -657434.99999;
  constexpr double kMaxDate = 2958465.99999;
  if (!(date >= kMinDate)) date = std::isnan(date) ? 0.0 : kMinDate;
  if (date > kMaxDate) date = kMaxDate;
  // Map the signed-fraction encoding onto a linear count of seconds.
  const double whole = std::trunc(date);
  const double linear = whole + std::fabs(date - whole);
  const int64_t total = static_cast<int64_t>(std::llround(linear * 86400.0));
  int64_t days = total / 86400;
  int64_t secs = total % 86400;
  if (secs < 0) {
    secs += 86400;
    days -= 1;
  }
  CivilDateTime out;
  CivilFromDays(days + kEpochOffset, out.Year, out.Month, out.Day);
  out.Hour = static_cast<int>(secs / 3600);
  out.Minute = static_cast<int>(secs / 60 % 60);
  out.Second = static_cast<int>(secs % 60);
  return out;
}

double NowDate() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  return DateFromParts(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                       local.tm_min, local.tm_sec > 59 ? 59 : local.tm_sec);
}

std::string FormatDate(double date) {
  const CivilDateTime p = DateToParts(date);
  char buf[32];
  std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", p.Year, p.Month, p.Day);
  return buf;
}

std::string FormatDateTime(double date) {
  const CivilDateTime p = DateToParts(date);
  if (p.Hour == 0 && p.Minute == 0 && p.Second == 0) return FormatDate(date);
  char buf[48];
  std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", p.Year, p.Month, p.Day, p.Hour,
                p.Minute, p.Second);
  return buf;
}

}  // namespace ringbook
