#include <gtest/gtest.h>

#include "platform/desktop/qt_locale_format.h"

namespace orvane {

TEST(QtLocaleFormat, LongTimeHasSecondsAndNoZone) {
  for (const auto& [locale, text] :
       {std::pair{QLocale(QLocale::German, QLocale::Germany), "09:05:07"},
        {QLocale(QLocale::German, QLocale::Austria), "09:05:07"},
        {QLocale(QLocale::Finnish), "9.05.07"},
        {QLocale(QLocale::Russian), "09:05:07"},
        {QLocale::c(), "09:05:07"}}) {
    EXPECT_EQ(QtLocaleFormat(locale).Time({2024, 4, 3, 9, 5, 7, 12}), text);
  }
}

}  // namespace orvane
