#pragma once

#include <array>
#include <cstdio>
#include <string>

#include "app/date_time.h"
#include "platform/clock.h"

namespace orvane {

class FixedClock : public Clock {
 public:
  Moment Now() const override { return {now, ToDateTime(now) - aheadOfUniversal}; }
  LocalTime now{2024, 4, 3, 9, 5, 7, 0};
  // Days; changes with daylight saving.
  double aheadOfUniversal = 0;
};

// German times, whatever the machine's locale.
class GermanFormat : public LocaleFormat {
 public:
  std::string Time(const LocalTime& time) const override {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", time.hour % 24, time.minute % 60,
                  time.second % 60);
    return text.data();
  }
  std::string WeekdayName(int isoWeekday) const override {
    return "Wochentag " + std::to_string(isoWeekday);
  }
};

}  // namespace orvane
