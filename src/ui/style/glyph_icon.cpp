#include "ui/style/glyph_icon.h"

#include <QIconEngine>
#include <QPainter>

namespace orvane {
namespace {

class GlyphEngine : public QIconEngine {
 public:
  GlyphEngine(Glyph glyph, QColor Palette::*colour, QColor Palette::*disc)
      : glyph_(glyph), colour_(colour), disc_(disc) {}

  QIconEngine* clone() const override { return new GlyphEngine(*this); }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const Palette palette = CurrentPalette();
    QRectF bounds = rect;
    if (disc_ != nullptr) {
      painter->save();
      painter->setRenderHint(QPainter::Antialiasing);
      painter->setPen(Qt::NoPen);
      painter->setBrush(palette.*(mode == QIcon::Disabled ? &Palette::disabledText : disc_));
      painter->drawEllipse(bounds);
      painter->restore();
      const qreal inset = bounds.width() * 0.17;
      bounds.adjust(inset, inset, -inset, -inset);
    }
    const auto disabled = disc_ != nullptr ? &Palette::disabledField : &Palette::disabledText;
    const QColor colour = palette.*(mode == QIcon::Disabled ? disabled : colour_);
    PaintGlyph(*painter, glyph_, bounds, colour);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixels(size);
    pixels.fill(Qt::transparent);
    QPainter painter(&pixels);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixels;
  }

 private:
  Glyph glyph_;
  QColor Palette::*colour_;
  QColor Palette::*disc_;
};

}  // namespace

QIcon GlyphIcon(Glyph glyph, QColor Palette::*colour) {
  return QIcon(new GlyphEngine(glyph, colour, nullptr));
}

QIcon DialPicture() {
  return QIcon(new GlyphEngine(Glyph::kHandset, &Palette::dial, &Palette::onCommand));
}

QIcon HangUpPicture() {
  return QIcon(new GlyphEngine(Glyph::kHandsetDown, &Palette::hangUp, &Palette::onCommand));
}

}  // namespace orvane
