#pragma once

#include <QElapsedTimer>
#include <QSet>
#include <QTreeView>

#include "ui/dial/call_list_filter.h"
#include "ui/dial/call_list_model.h"

namespace orvane {

class CallListDelegate;

// The call history: calls in groups that fold, with columns that the user sizes, sorts and moves.
// Enter and a double click take the number of a call, Ctrl+C copies it, and typed characters find
// the next call that has a text which begins so and unfold its group.
class CallListView : public QTreeView {
  Q_OBJECT

 public:
  explicit CallListView(QWidget* parent);

  // Takes the calls away until others come.
  void Clear();
  // Replaces the calls; groups that the user has folded stay folded.
  void SetGroups(const std::vector<GroupedCalls>& groups);
  // Narrows the calls; while a text is set every group is unfolded.
  void SetFilterText(const QString& text);
  int ShownCalls() const { return filter_.ShownCalls(); }
  int AllCalls() const { return calls_.CallCount(); }

  CallColumns Columns() const;
  void SetColumns(const CallColumns& columns);

  void keyboardSearch(const QString& typed) override;

 Q_SIGNALS:
  void NumberTaken(const QString& number);

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void SetUpHeader();
  void Unfold();
  void RememberFold(const QModelIndex& group, bool folded);
  void SelectFirstCall();
  enum class Search { kFromHere, kBelow };
  bool GoToCall(const QString& beginning, Search search);
  QModelIndex CallAfter(const QModelIndex& row) const;
  bool StartsWith(const QModelIndex& call, const QString& folded) const;

  const CallListModel::Call* CurrentCall() const { return filter_.CallAt(currentIndex()); }
  void TakeNumber();
  void CopyNumber();

  CallListModel calls_;
  CallListFilter filter_;
  CallListDelegate* delegate_;
  // There may be no calls, but nobody waits for them.
  bool filled_ = false;
  QSet<QString> folded_;
  QString typed_;
  QElapsedTimer sinceTyped_;
};

}  // namespace orvane
