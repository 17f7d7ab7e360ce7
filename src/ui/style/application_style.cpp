#include "ui/style/application_style.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionHeader>

#include "ui/style/glyph.h"
#include "ui/style/glyph_icon.h"
#include "ui/style/palette.h"
#include "ui/style/style_sheet.h"

namespace orvane {
namespace {

constexpr int kSortArrowSide = 9;

// The toolkit's own style with the program's pictures in message boxes, sharp at every scale, and
// arrows in column titles that point up for rising on every system.
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

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    const auto* title = qstyleoption_cast<const QStyleOptionHeader*>(option);
    if (element != PE_IndicatorHeaderArrow || title == nullptr) {
      QProxyStyle::drawPrimitive(element, option, painter, widget);
      return;
    }
    // To the toolkit, rising means that values grow downwards.
    const bool rising = title->sortIndicator == QStyleOptionHeader::SortDown;
    QRectF area(0, 0, kSortArrowSide, kSortArrowSide);
    area.moveCenter(QRectF(title->rect).center());
    PaintGlyph(*painter, rising ? Glyph::kArrowUp : Glyph::kArrowDown, area,
               CurrentPalette().mutedText);
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
