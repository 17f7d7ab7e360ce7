#include "ui/logic/call_days.h"

#include <chrono>
#include <cmath>

#include "app/date_time.h"

namespace orvane {
namespace {

namespace chrono = std::chrono;

int DayNumber(const chrono::sys_days& day) {
  return static_cast<int>((day - kDayZero).count());
}

}  // namespace

CallDays CallDaysOf(const LocalTime& date) {
  const chrono::year_month month =
      chrono::year(date.year) / chrono::month(static_cast<unsigned>(date.month));
  const int today = DayNumber(month / chrono::day(static_cast<unsigned>(date.day)));
  return {today, today - IsoWeekday(today) + 1, DayNumber(month / 1),
          DayNumber((month - chrono::months(1)) / 1)};
}

int IsoWeekday(int day) {
  return static_cast<int>(chrono::weekday(kDayZero + chrono::days(day)).iso_encoding());
}

LocalTime ToLocalTime(double dateTime) {
  const auto moment = chrono::sys_seconds(kDayZero) +
                      chrono::seconds(std::llround(dateTime * double{kSecondsPerDay}));
  const auto day = chrono::floor<chrono::days>(moment);
  const chrono::year_month_day date(day);
  const chrono::hh_mm_ss time(moment - day);
  LocalTime result;
  result.year = static_cast<int>(date.year());
  result.month = static_cast<int>(static_cast<unsigned>(date.month()));
  result.day = static_cast<int>(static_cast<unsigned>(date.day()));
  result.hour = static_cast<int>(time.hours().count());
  result.minute = static_cast<int>(time.minutes().count());
  result.second = static_cast<int>(time.seconds().count());
  return result;
}

}  // namespace orvane
