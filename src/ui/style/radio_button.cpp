#include "ui/style/radio_button.h"

#include <QPainter>
#include <QStyleOptionButton>

#include "ui/style/palette.h"

namespace orvane {

void RadioButton::paintEvent(QPaintEvent* event) {
  QRadioButton::paintEvent(event);
  if (!isChecked()) return;
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRect box = style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, this);
  const Palette palette = CurrentPalette();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(isEnabled() ? palette.heading : palette.disabledText);
  const qreal inset = box.width() / 4.0;
  painter.drawEllipse(QRectF(box).adjusted(inset, inset, -inset, -inset));
}

}  // namespace orvane
