#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "platform/common/qt_locale_format.h"
#include "platform/common/system_clock.h"

namespace orvane {
namespace {

TEST(QtLocaleFormat, LongTimeHasSecondsAndNoZone) {
  struct Case {
    QLocale locale;
    std::string text;
  };
  const Case cases[] = {
      {QLocale(QLocale::German, QLocale::Germany), "09:05:07"},
      {QLocale(QLocale::German, QLocale::Austria), "09:05:07"},
      {QLocale(QLocale::Finnish), "9.05.07"},
      {QLocale(QLocale::Russian), "09:05:07"},
      {QLocale::c(), "09:05:07"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.locale.name().toStdString());
    EXPECT_EQ(QtLocaleFormat(c.locale).Time({2024, 4, 3, 9, 5, 7, 12}), c.text);
  }
}

TEST(QtLocaleFormat, WeekdaysInTheUsersLanguage) {
  const QtLocaleFormat format{QLocale(QLocale::German)};
  EXPECT_EQ(format.WeekdayName(1), "Montag");
  EXPECT_EQ(format.WeekdayName(7), "Sonntag");
}

TEST(SystemClock, TellsLocalTime) {
  const LocalTime now = SystemClock().Now();
  std::tm parts{};
  parts.tm_year = now.year - 1900;
  parts.tm_mon = now.month - 1;
  parts.tm_mday = now.day;
  parts.tm_hour = now.hour;
  parts.tm_min = now.minute;
  parts.tm_sec = now.second;
  parts.tm_isdst = -1;
  EXPECT_NEAR(std::difftime(std::time(nullptr), std::mktime(&parts)), 0, 60);
}

}  // namespace
}  // namespace orvane
