#pragma once

#include <QStyledItemDelegate>

namespace orvane {

class CallListFilter;

// Draws the call history: the band of a group, and the cells of a call in front of what the view
// has drawn behind them.
class CallListDelegate : public QStyledItemDelegate {
 public:
  CallListDelegate(const CallListFilter& calls, QWidget* parent);

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  void PaintGroup(QPainter& painter, const QStyleOptionViewItem& row, const QModelIndex& group,
                  bool expanded) const;
  // The ground of a call's row.
  void PaintGround(QPainter& painter, const QStyleOptionViewItem& row) const;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 private:
  const CallListFilter& calls_;
};

}  // namespace orvane
