#include "ui/style/application_style.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>

#include "ui/style/style_sheet.h"

namespace orvane {

ApplicationStyle::ApplicationStyle(QApplication& application) : application_(application) {
  QApplication::setStyle(QStringLiteral("Fusion"));
  Apply();
  application_.installEventFilter(this);
}

bool ApplicationStyle::eventFilter(QObject* watched, QEvent* event) {
  const bool desktopChanged = event->type() == QEvent::ApplicationPaletteChange ||
                              event->type() == QEvent::ApplicationFontChange;
  if (watched == &application_ && desktopChanged) Apply();
  return QObject::eventFilter(watched, event);
}

void ApplicationStyle::Apply() {
  const int fontPixels = QFontInfo(QApplication::font()).pixelSize();
  const QString sheet = StyleSheet(CurrentPalette(), fontPixels);
  if (sheet != application_.styleSheet()) application_.setStyleSheet(sheet);
}

}  // namespace orvane
