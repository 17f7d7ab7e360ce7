#include "ui/dial/call_list_view.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <algorithm>

#include "ui/dial/call_list_delegate.h"
#include "ui/dial/search_text.h"
#include "ui/style/palette.h"
#include "ui/style/tabular_font.h"

namespace orvane {
namespace {

constexpr int kTimeColumn = static_cast<int>(CallColumn::kTime);
constexpr int kChevronArea = 24;
constexpr int kOrderWidth = 85;

// The tree of the toolkit would fold and unfold by these.
bool IsFoldingCharacter(const QKeyEvent& event) {
  const int key = event.key();
  const bool character = !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  return character && (key == Qt::Key_Asterisk || key == Qt::Key_Plus || key == Qt::Key_Minus);
}

}  // namespace

CallListView::CallListView(QWidget* parent)
    : QTreeView(parent), filter_(calls_), delegate_(new CallListDelegate(filter_, this)) {
  setFont(TabularDigitFont(font()));
  setItemDelegate(delegate_);
  setModel(&filter_);
  setRootIsDecorated(false);
  setIndentation(0);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setTextElideMode(Qt::ElideRight);
  SetUpHeader();
  connect(this, &QTreeView::collapsed, this,
          [this](const QModelIndex& group) { RememberFold(group, true); });
  connect(this, &QTreeView::expanded, this,
          [this](const QModelIndex& group) { RememberFold(group, false); });
}

void CallListView::SetUpHeader() {
  QHeaderView& head = *header();
  // The first column, too, may stand elsewhere.
  head.setFirstSectionMovable(true);
  head.resizeSection(static_cast<int>(CallColumn::kOrder), kOrderWidth);
  setColumnHidden(static_cast<int>(CallColumn::kOrder), true);
  const auto widthOf = [this](const char* sample) {
    return fontMetrics().horizontalAdvance(QString::fromUtf8(sample)) + 16;
  };
  CallColumns columns;
  columns.shown = {{CallColumn::kTime, widthOf("22.11.26 09:05")},
                   {CallColumn::kNumber, widthOf("0151 12345678") + 20},
                   {CallColumn::kCompany, widthOf("Havelwerk Maschinenbau GmbH")},
                   {CallColumn::kPlace, widthOf("Frankfurt am Main")},
                   {CallColumn::kPerson, widthOf("Lindner, Katharina")}};
  SetColumns(columns);
  head.setMinimumSectionSize(fontMetrics().averageCharWidth() * 4);
  setSortingEnabled(true);
}

void CallListView::Clear() {
  filled_ = false;
  calls_.SetGroups({});
}

void CallListView::SetGroups(const std::vector<GroupedCalls>& groups) {
  filled_ = true;
  calls_.SetGroups(groups);
  Unfold();
  SelectFirstCall();
}

void CallListView::SetFilterText(const QString& text) {
  filter_.SetText(text);
  Unfold();
  if (!currentIndex().isValid()) SelectFirstCall();
  // Left to the next painting, the new layout would have everything painted a second time.
  executeDelayedItemsLayout();
}

void CallListView::Unfold() {
  for (int row = 0; row < filter_.rowCount(); ++row) {
    const QModelIndex group = filter_.index(row, 0);
    setExpanded(group, filter_.IsOn() || !folded_.contains(group.data().toString()));
  }
}

// What is unfolded for a search folds again afterwards.
void CallListView::RememberFold(const QModelIndex& group, bool folded) {
  if (filter_.IsOn()) return;
  const QString caption = group.data().toString();
  if (folded) {
    folded_.insert(caption);
  } else {
    folded_.remove(caption);
  }
}

void CallListView::SelectFirstCall() {
  const QModelIndex group = filter_.index(0, kTimeColumn);
  const QModelIndex call = filter_.index(0, kTimeColumn, filter_.index(0, 0));
  setCurrentIndex(isExpanded(filter_.index(0, 0)) ? call : group);
  scrollToTop();
}

CallColumns CallListView::Columns() const {
  CallColumns columns;
  for (int place = 0; place < kCallColumns; ++place) {
    const int column = header()->logicalIndex(place);
    if (isColumnHidden(column)) continue;
    columns.shown.push_back({static_cast<CallColumn>(column), header()->sectionSize(column)});
  }
  columns.sortedBy = static_cast<CallColumn>(header()->sortIndicatorSection());
  columns.descending = header()->sortIndicatorOrder() == Qt::DescendingOrder;
  return columns;
}

void CallListView::SetColumns(const CallColumns& columns) {
  int place = 1;
  for (const auto& [column, width] : columns.shown) {
    const int section = static_cast<int>(column);
    header()->moveSection(header()->visualIndex(section), place++);
    header()->resizeSection(section, width);
  }
  header()->setSortIndicator(static_cast<int>(columns.sortedBy),
                             columns.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

// Finds the next call by what was typed in quick succession. One character over and over goes on to
// the next call each time, unless a text begins so.
void CallListView::keyboardSearch(const QString& typed) {
  // Backspace and Escape come with a text, too.
  if (typed.isEmpty() || !typed.front().isPrint()) {
    typed_.clear();
    return;
  }
  const bool goesOn =
      !typed_.isEmpty() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
  sinceTyped_.start();
  const QString text = goesOn ? typed_ + typed : typed;
  const bool repeated = text.count(text.front()) == text.size();
  if (!GoToCall(text, goesOn ? Search::kFromHere : Search::kBelow) && goesOn && repeated) {
    GoToCall(text.left(1), Search::kBelow);
  }
  // Going there has ended the search.
  typed_ = text;
}

// A call in a folded group is found, too.
bool CallListView::GoToCall(const QString& beginning, Search search) {
  const QString folded = FoldForSearch(beginning);
  QModelIndex at = currentIndex().siblingAtColumn(0);
  if (search == Search::kBelow || filter_.CallAt(at) == nullptr) at = CallAfter(at);
  for (int left = ShownCalls(); left > 0; --left, at = CallAfter(at)) {
    if (!StartsWith(at, folded)) continue;
    expand(at.parent());
    setCurrentIndex(at.siblingAtColumn(kTimeColumn));
    return true;
  }
  return false;
}

// The call below a row, or the first one.
QModelIndex CallListView::CallAfter(const QModelIndex& row) const {
  const QModelIndex group = filter_.CallAt(row) != nullptr ? row.parent() : row;
  const QModelIndex below = filter_.index(group == row ? 0 : row.row() + 1, 0, group);
  if (group.isValid() && below.isValid()) return below;
  const QModelIndex next = filter_.index(group.row() + 1, 0);
  return filter_.index(0, 0, next.isValid() ? next : filter_.index(0, 0));
}

bool CallListView::StartsWith(const QModelIndex& call, const QString& folded) const {
  const CallListModel::Call* shown = filter_.CallAt(call);
  return shown != nullptr && shown->searched.contains(CallListModel::kTextStart + folded);
}

void CallListView::TakeNumber() {
  if (const CallListModel::Call* call = CurrentCall()) Q_EMIT NumberTaken(call->number);
}

void CallListView::CopyNumber() {
  const CallListModel::Call* call = CurrentCall();
  if (call != nullptr && !call->number.isEmpty()) {
    QApplication::clipboard()->setText(call->number);
  }
}

// Moving about ends what was being typed.
void CallListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  typed_.clear();
  QTreeView::currentChanged(current, previous);
}

void CallListView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    CopyNumber();
  } else if (IsFoldingCharacter(*event)) {
    // Numbers are typed with them; the arrow keys fold.
    keyboardSearch(event->text());
  } else if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QTreeView::keyPressEvent(event);
  } else if (CurrentCall() != nullptr) {
    TakeNumber();
  } else if (currentIndex().isValid()) {
    const QModelIndex group = currentIndex().siblingAtColumn(0);
    setExpanded(group, !isExpanded(group));
  }
}

void CallListView::mousePressEvent(QMouseEvent* event) {
  const QModelIndex group = indexAt(event->pos()).siblingAtColumn(0);
  const bool fold = event->button() == Qt::LeftButton && event->pos().x() < kChevronArea &&
                    group.isValid() && filter_.CallAt(group) == nullptr;
  QTreeView::mousePressEvent(event);
  if (fold) setExpanded(group, !isExpanded(group));
}

void CallListView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  if (event->button() == Qt::LeftButton && filter_.CallAt(index) != nullptr) {
    setCurrentIndex(index);
    TakeNumber();
  } else {
    QTreeView::mouseDoubleClickEvent(event);
  }
}

void CallListView::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
  const QModelIndex index = byKeyboard ? currentIndex() : indexAt(event->pos());
  if (filter_.CallAt(index) == nullptr) return;
  setCurrentIndex(index);
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(QStringLiteral("Rufnummer übernehmen\tEingabe"), this, &CallListView::TakeNumber);
  menu->addAction(QStringLiteral("Rufnummer kopieren\tStrg+C"), this, &CallListView::CopyNumber)
      ->setEnabled(!CurrentCall()->number.isEmpty());
  menu->popup(byKeyboard ? viewport()->mapToGlobal(visualRect(index).center())
                         : event->globalPos());
}

void CallListView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  row.rect.setWidth(std::max(row.rect.width(), viewport()->width()));
  row.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
  row.state.setFlag(QStyle::State_HasFocus,
                    hasFocus() && currentIndex().siblingAtColumn(0) == index.siblingAtColumn(0));
  row.state.setFlag(QStyle::State_Enabled, isEnabled());
  if (filter_.CallAt(index) == nullptr) {
    delegate_->PaintGroup(*painter, row, index.siblingAtColumn(0),
                          isExpanded(index.siblingAtColumn(0)));
    return;
  }
  delegate_->PaintGround(*painter, row);
  for (int column = 0; column < kCallColumns; ++column) {
    if (isColumnHidden(column)) continue;
    row.rect.setLeft(columnViewportPosition(column));
    row.rect.setWidth(columnWidth(column));
    delegate_->paint(painter, row, index.siblingAtColumn(column));
  }
}

void CallListView::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (!filled_ || filter_.rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(CurrentPalette().mutedText);
  painter.drawText(viewport()->rect().adjusted(12, 24, -12, 0), Qt::AlignHCenter | Qt::TextWordWrap,
                   QStringLiteral("Es gibt für diese Ansicht keine Anrufe."));
}

}  // namespace orvane
