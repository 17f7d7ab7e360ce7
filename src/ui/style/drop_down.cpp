#include "ui/style/drop_down.h"

#include <QWheelEvent>

#include <QStylePainter>
#include <QStyledItemDelegate>

#include "ui/style/glyph.h"
#include "ui/style/palette.h"

namespace orvane {
namespace {

constexpr int kArrowSide = 9;
constexpr int kMostVisibleItems = 16;
constexpr int kArrowMargin = 9;

// An open list without a chosen entry takes its first one with Enter; that one looks chosen then.
class EntryDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->state.testFlag(QStyle::State_HasFocus)) option->state |= QStyle::State_Selected;
    option->state &= ~QStyle::State_HasFocus;
  }
};

}  // namespace

// The list shows all that fits the screen, drawn as the style sheet says.
DropDown::DropDown(QWidget* parent) : QComboBox(parent) {
  setMaxVisibleItems(kMostVisibleItems);
  setItemDelegate(new EntryDelegate(this));
}

// However long its entries are, the box elides them rather than widening the window.
QSize DropDown::minimumSizeHint() const {
  return {60, QComboBox::minimumSizeHint().height()};
}

void DropDown::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void DropDown::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);

  option.currentIcon = QIcon();
  const bool placeholder = currentIndex() < 0;
  if (placeholder) option.currentText = placeholderText();
  const QRect textArea =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  option.currentText =
      fontMetrics().elidedText(option.currentText, Qt::ElideRight, textArea.width() - 4);
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);

  const Palette palette = CurrentPalette();
  const QRectF arrow(width() - kArrowMargin - kArrowSide, (height() - kArrowSide) / 2.0, kArrowSide,
                     kArrowSide);
  PaintGlyph(painter, Glyph::kArrowDown, arrow,
             isEnabled() ? palette.mutedText : palette.disabledText);
}

}  // namespace orvane
