#pragma once

#include "platform/clock.h"

namespace orvane {

// The days that the call history is divided by, counted from 1899-12-30.
struct CallDays {
  int today = 0;
  int monday = 0;
  int month = 0;
  int previousMonth = 0;

  bool operator==(const CallDays&) const = default;
};

// The days around a date: itself, the Monday of its week, the first day of its month and that of
// the month before.
CallDays CallDaysOf(const LocalTime& date);

// 1 = Monday to 7 = Sunday.
int IsoWeekday(int day);

// A date-time rounded to the second, taken apart. `dateTime` is days since 1899-12-30.
LocalTime ToLocalTime(double dateTime);

}  // namespace orvane
