#pragma once

#include <QLabel>

#include "ui/style/glyph.h"
#include "ui/style/palette.h"

namespace orvane {

// One of the program's pictures as a control of its own.
class Picture : public QLabel {
 public:
  Picture(QWidget* parent, Glyph glyph, QColor Palette::*colour, int side);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Glyph glyph_;
  QColor Palette::*colour_;
};

}  // namespace orvane
