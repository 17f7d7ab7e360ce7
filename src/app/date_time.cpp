#include "app/date_time.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace orvane {
namespace {

constexpr int kMillisecondsPerSecond = 1000;

std::int64_t WholeSecondsOfDay(const LocalTime& time) {
  return (time.hour * 60 + time.minute) * std::int64_t{60} + time.second;
}

}  // namespace

std::string TimeText(const LocalTime& time) {
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%02d/%02d/%04d %02d:%02d:%02d", time.month, time.day,
                time.year, time.hour, time.minute, time.second);
  return text.data();
}

double ToDateTime(const LocalTime& time) {
  using namespace std::chrono;
  const auto day =
      sys_days(year_month_day(year(time.year), month(static_cast<unsigned>(time.month)),
                              std::chrono::day(static_cast<unsigned>(time.day))));
  return static_cast<double>((day - kDayZero).count()) +
         static_cast<double>(WholeSecondsOfDay(time)) / static_cast<double>(kSecondsPerDay);
}

double SecondsOfDay(const LocalTime& time) {
  return static_cast<double>(WholeSecondsOfDay(time)) +
         static_cast<double>(time.millisecond) / kMillisecondsPerSecond;
}

}  // namespace orvane
