#include "platform/desktop/system_clock.h"

#include <QDateTime>

namespace orvane {

LocalTime SystemClock::Now() const {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  return {date.year(),   date.month(),  date.day(), time.hour(),
          time.minute(), time.second(), time.msec()};
}

}  // namespace orvane
