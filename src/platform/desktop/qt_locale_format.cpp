#include "platform/desktop/qt_locale_format.h"

#include <QTime>

namespace orvane {
namespace {

// The toolkit's long formats name the time zone ("HH:mm:ss t", in some languages in parentheses),
// the system's own long time does not.
QString WithoutTimeZone(const QString& format) {
  QString kept;
  bool quoted = false;
  for (const QChar c : format) {
    if (c == u'\'') quoted = !quoted;
    const bool zone = c == u't' || c == u'(' || c == u')' || c == u'[' || c == u']';
    if (quoted || !zone) kept += c;
  }
  return kept.trimmed();
}

}  // namespace

QtLocaleFormat::QtLocaleFormat(const QLocale& locale)
    : locale_(locale), timeFormat_(WithoutTimeZone(locale.timeFormat(QLocale::LongFormat))) {}

std::string QtLocaleFormat::Time(const LocalTime& time) const {
  return locale_.toString(QTime(time.hour, time.minute, time.second), timeFormat_).toStdString();
}

std::string QtLocaleFormat::WeekdayName(int isoWeekday) const {
  return locale_.standaloneDayName(isoWeekday, QLocale::LongFormat).toStdString();
}

}  // namespace orvane
