#include "ui/style/picture.h"

#include <QPainter>

namespace orvane {

Picture::Picture(QWidget* parent, Glyph glyph, QColor Palette::*colour, int side)
    : QLabel(parent), glyph_(glyph), colour_(colour) {
  setFixedSize(side, side);
}

void Picture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintGlyph(painter, glyph_, rect(), CurrentPalette().*colour_);
}

}  // namespace orvane
