#include "ui/style/application_style.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QProxyStyle>

#include "ui/style/glyph_icon.h"
#include "ui/style/style_sheet.h"

namespace orvane {
namespace {

// The toolkit's own style with the program's pictures in message boxes, sharp at every scale.
class BaseStyle : public QProxyStyle {
 public:
  BaseStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

  QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                     const QWidget* widget) const override {
    if (picture == SP_MessageBoxWarning) {
      return GlyphIcon(Glyph::kWarning, &Palette::internalMarker);
    }
    if (picture == SP_MessageBoxCritical) return GlyphIcon(Glyph::kStop, &Palette::hangUp);
    return QProxyStyle::standardIcon(picture, option, widget);
  }
};

}  // namespace

ApplicationStyle::ApplicationStyle(QApplication& application) : application_(application) {
  QApplication::setStyle(new BaseStyle);
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
