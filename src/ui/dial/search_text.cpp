#include "ui/dial/search_text.h"

namespace orvane {

QString FoldForSearch(const QString& text) {
  return text.normalized(QString::NormalizationForm_KC)
      .toCaseFolded()
      .replace(QStringLiteral("ß"), QStringLiteral("ss"))
      .replace(QStringLiteral("ä"), QStringLiteral("ae"))
      .replace(QStringLiteral("ö"), QStringLiteral("oe"))
      .replace(QStringLiteral("ü"), QStringLiteral("ue"));
}

}  // namespace orvane
