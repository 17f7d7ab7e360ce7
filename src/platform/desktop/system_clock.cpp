#include "platform/desktop/system_clock.h"

#include <QDateTime>

#include "platform/text/day_numbers.h"

namespace orvane {

Moment SystemClock::Now() const {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  constexpr std::chrono::days kDaysToEpoch = std::chrono::sys_days() - kDayZero;
  return {{date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second(),
           time.msec()},
          static_cast<double>(kDaysToEpoch.count()) +
              static_cast<double>(now.toSecsSinceEpoch()) / static_cast<double>(kSecondsPerDay)};
}

}  // namespace orvane
