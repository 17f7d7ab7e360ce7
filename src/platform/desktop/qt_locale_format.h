#pragma once

#include <QLocale>

#include "platform/clock.h"

namespace orvane {

// Formats by the user's regional settings, or by another locale.
class QtLocaleFormat : public LocaleFormat {
 public:
  explicit QtLocaleFormat(const QLocale& locale = QLocale::system());

  std::string Time(const LocalTime& time) const override;
  std::string WeekdayName(int isoWeekday) const override;

 private:
  QLocale locale_;
  QString timeFormat_;
};

}  // namespace orvane
