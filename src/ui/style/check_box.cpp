#include "ui/style/check_box.h"

#include <QPainter>
#include <QStyleOptionButton>

#include "ui/style/glyph.h"
#include "ui/style/palette.h"

namespace orvane {

void CheckBox::paintEvent(QPaintEvent* event) {
  QCheckBox::paintEvent(event);
  if (!isChecked()) return;
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRect box = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
  const Palette palette = CurrentPalette();
  QPainter painter(this);
  PaintGlyph(painter, Glyph::kCheckMark, QRectF(box).adjusted(2, 2, -2, -2),
             isEnabled() ? palette.onFrame : palette.disabledText);
}

}  // namespace orvane
