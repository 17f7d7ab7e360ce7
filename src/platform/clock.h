#pragma once

#include <string>

namespace orvane {

// What the clock on the wall shows. Months and days from 1, hours 0 to 23.
struct LocalTime {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int millisecond = 0;

  bool operator==(const LocalTime&) const = default;
};

// When something happened: as it is shown and stored, and for the time between two moments.
struct Moment {
  LocalTime local;
  // Days since 1899-12-30 in universal time, which knows no daylight saving; whole seconds, the
  // same as those of `local`.
  double universal = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual Moment Now() const = 0;
};

// How the user's system writes times.
class LocaleFormat {
 public:
  virtual ~LocaleFormat() = default;
  // The time of day in the user's default long format, with seconds, for example "09:05:07".
  virtual std::string Time(const LocalTime& time) const = 0;
  // Long weekday name, 1 = Monday to 7 = Sunday.
  virtual std::string WeekdayName(int isoWeekday) const = 0;
};

}  // namespace orvane
