#include "ui/style/tabular_font.h"

#include <QFontDatabase>
#include <QFontMetricsF>

namespace orvane {
namespace {

bool HasTabularDigits(const QFont& font) {
  const QFontMetricsF metrics(font);
  const qreal width = metrics.horizontalAdvance(QLatin1Char('0'));
  for (char digit = '1'; digit <= '9'; ++digit) {
    if (!qFuzzyCompare(metrics.horizontalAdvance(QLatin1Char(digit)), width)) return false;
  }
  return true;
}

}  // namespace

QFont TabularDigitFont(const QFont& font) {
  if (HasTabularDigits(font)) return font;
  for (const char* family : {"Segoe UI", "Noto Sans", "DejaVu Sans", "Liberation Sans"}) {
    const QString name = QString::fromLatin1(family);
    if (!QFontDatabase::hasFamily(name)) continue;
    QFont candidate = font;
    candidate.setFamily(name);
    if (HasTabularDigits(candidate)) return candidate;
  }
  QFont fixed = font;
  fixed.setFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
  return fixed;
}

}  // namespace orvane
