#include "ui/dial/call_list_delegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "ui/dial/call_list_filter.h"
#include "ui/style/glyph.h"
#include "ui/style/palette.h"

namespace orvane {
namespace {

constexpr int kRowHeight = 26;
constexpr int kMargin = 8;
constexpr int kMarkerSide = 12;
constexpr int kMarkerGap = 5;
constexpr int kChevronSide = 9;
constexpr int kCaptionLeft = 24;
constexpr int kCountGap = 7;

bool Has(const QStyleOptionViewItem& option, QStyle::StateFlag state) {
  return option.state.testFlag(state);
}

QColor TextColour(const QStyleOptionViewItem& option, QColor Palette::*colour) {
  return CurrentPalette().*(Has(option, QStyle::State_Enabled) ? colour : &Palette::disabledText);
}

QRectF MiddleLeft(const QRect& area, int left, int side) {
  return QRectF(area.left() + left, area.top() + (area.height() - side) / 2.0, side, side);
}

bool HasMarker(const QModelIndex& index) {
  return index.column() == static_cast<int>(CallColumn::kNumber);
}

// Where the text of a cell stands.
QRect TextArea(const QRect& cell, const QModelIndex& index) {
  return cell.adjusted(kMargin + (HasMarker(index) ? kMarkerSide + kMarkerGap : 0), 0, -4, 0);
}

void PaintFocus(QPainter& painter, const QStyleOptionViewItem& row) {
  if (!Has(row, QStyle::State_HasFocus)) return;
  painter.fillRect(QRect(row.rect.topLeft(), QSize(2, row.rect.height())), CurrentPalette().focus);
}

}  // namespace

CallListDelegate::CallListDelegate(const CallListFilter& calls, QWidget* parent)
    : QStyledItemDelegate(parent), calls_(calls) {}

QSize CallListDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  const int text = option.fontMetrics.horizontalAdvance(index.data().toString());
  const QRect inside = TextArea(QRect(0, 0, 100, 1), index);
  return {text + 100 - inside.width(), std::max(kRowHeight, option.fontMetrics.height() + 8)};
}

void CallListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  const CallListModel::Call* call = calls_.CallAt(index);
  if (call == nullptr) return;
  if (HasMarker(index)) {
    PaintGlyph(
        *painter, call->external ? Glyph::kExternal : Glyph::kInternal,
        MiddleLeft(option.rect, kMargin, kMarkerSide),
        TextColour(option, call->external ? &Palette::externalMarker : &Palette::internalMarker));
  }
  const QRect area = TextArea(option.rect, index);
  const QString text = option.fontMetrics.elidedText(
      call->texts[static_cast<std::size_t>(index.column())], Qt::ElideRight, area.width());
  painter->setFont(option.font);
  painter->setPen(TextColour(option, &Palette::text));
  painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

void CallListDelegate::PaintGroup(QPainter& painter, const QStyleOptionViewItem& row,
                                  const QModelIndex& group, bool expanded) const {
  const Palette palette = CurrentPalette();
  painter.fillRect(row.rect, Has(row, QStyle::State_Selected) ? palette.selection : palette.band);
  PaintFocus(painter, row);
  const QColor heading = TextColour(row, &Palette::heading);
  PaintGlyph(painter, expanded ? Glyph::kArrowDown : Glyph::kArrowRight,
             MiddleLeft(row.rect, kMargin, kChevronSide), heading);

  QFont bold = row.font;
  bold.setBold(true);
  const QString caption = group.data().toString();
  QRect area = row.rect.adjusted(kCaptionLeft, 0, 0, 0);
  painter.setFont(bold);
  painter.setPen(heading);
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter, caption);
  area.setLeft(area.left() + QFontMetrics(bold).horizontalAdvance(caption) + kCountGap);
  painter.setFont(row.font);
  painter.setPen(TextColour(row, &Palette::mutedText));
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter, QString::number(calls_.rowCount(group)));
}

void CallListDelegate::PaintGround(QPainter& painter, const QStyleOptionViewItem& row) const {
  const Palette palette = CurrentPalette();
  if (Has(row, QStyle::State_Selected)) painter.fillRect(row.rect, palette.selection);
  painter.fillRect(QRect(row.rect.bottomLeft(), QSize(row.rect.width(), 1)), palette.band);
  PaintFocus(painter, row);
}

bool CallListDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index) {
  const QString text = index.data().toString();
  const QString hint = index.data(Qt::ToolTipRole).toString();
  const QRect area = TextArea(option.rect, index);
  const bool fits = option.fontMetrics.horizontalAdvance(text) <= area.width();
  const QString shown = !hint.isEmpty() || fits ? hint : text;
  // Plain text, whatever characters a name holds; an empty hint takes the old one away.
  QToolTip::showText(
      event->globalPos(),
      shown.isEmpty() ? shown : QStringLiteral("<p>%1</p>").arg(shown.toHtmlEscaped()), view);
  return true;
}

}  // namespace orvane
