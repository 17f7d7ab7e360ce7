#pragma once

#include <string>

namespace orvane {

// A moment of local time. Months and days from 1, hours 0 to 23.
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

class Clock {
 public:
  virtual ~Clock() = default;
  virtual LocalTime Now() const = 0;
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
