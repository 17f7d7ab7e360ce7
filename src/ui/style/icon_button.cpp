#include "ui/style/icon_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace orvane {
namespace {

constexpr int kTextGap = 8;

}  // namespace

IconButton::IconButton(QWidget* parent) : QPushButton(parent) {
  setAutoDefault(false);
}

void IconButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.icon = QIcon();
  painter.drawControl(QStyle::CE_PushButtonBevel, option);

  const QSize picture = icon().isNull() ? QSize(0, 0) : iconSize();
  const int gap = text().isEmpty() || picture.isEmpty() ? 0 : kTextGap;
  const int textWidth = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
  const int left = (width() - picture.width() - gap - textWidth) / 2;
  const QRect pictureArea(QPoint(left, (height() - picture.height()) / 2), picture);
  icon().paint(&painter, pictureArea, Qt::AlignCenter,
               isEnabled() ? QIcon::Normal : QIcon::Disabled);
  option.rect = QRect(left + picture.width() + gap, 0, textWidth, height());
  painter.drawControl(QStyle::CE_PushButtonLabel, option);
}

}  // namespace orvane
