#pragma once

#include <string>

#include "core/Export.h"

namespace ringbook {

/// Calendar parts of an Automation date.
struct CivilDateTime {
  int Year = 1899;
  int Month = 12;
  int Day = 30;
  int Hour = 0;
  int Minute = 0;
  int Second = 0;
  bool operator==(const CivilDateTime&) const = default;
};

/// Automation dates are doubles counting days since 30 December 1899. The
/// whole part is the day, the fraction the time of day; before the epoch the
/// fraction still counts forward from midnight (-1.25 is 29 December 1899,
/// 06:00).
///
/// Builds the date of the given parts. Months and days out of their range
/// fail with invalid procedure call (5); years 100 to 9999 are accepted.
RINGBOOK_EXPORT double DateFromParts(int year, int month, int day, int hour = 0, int minute = 0,
                                     int second = 0);

/// The calendar parts of a date, rounded to the nearest second.
RINGBOOK_EXPORT CivilDateTime DateToParts(double date);

/// The present local date and time.
RINGBOOK_EXPORT double NowDate();

/// The component's short date form, "yyyy-mm-dd".
RINGBOOK_EXPORT std::string FormatDate(double date);

/// "yyyy-mm-dd" when the time is midnight, otherwise "yyyy-mm-dd hh:mm:ss".
RINGBOOK_EXPORT std::string FormatDateTime(double date);

}  // namespace ringbook
