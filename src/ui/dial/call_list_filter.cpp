#include "ui/dial/call_list_filter.h"

#include <algorithm>

#include "ui/dial/search_text.h"

namespace orvane {

CallListFilter::CallListFilter(CallListModel& calls)
    : calls_(calls), order_(QLocale(QLocale::German)) {
  order_.setCaseSensitivity(Qt::CaseInsensitive);
  setRecursiveFilteringEnabled(true);
  setSourceModel(&calls);
}

void CallListFilter::SetText(const QString& text) {
  QStringList words = FoldForSearch(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
  if (words == words_) return;
  words_ = std::move(words);
  invalidateFilter();
}

int CallListFilter::ShownCalls() const {
  int count = 0;
  for (int group = 0; group < rowCount(); ++group) count += rowCount(index(group, 0));
  return count;
}

const CallListModel::Call* CallListFilter::CallAt(const QModelIndex& index) const {
  return calls_.CallAt(mapToSource(index));
}

bool CallListFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
  const CallListModel::Call* call = calls_.CallAt(calls_.index(row, 0, parent));
  // A group is there for its calls only.
  return call != nullptr && std::all_of(words_.begin(), words_.end(), [call](const QString& word) {
           return call->searched.contains(word);
         });
}

bool CallListFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const CallListModel::Call* a = calls_.CallAt(left);
  const CallListModel::Call* b = calls_.CallAt(right);
  if (a == nullptr || b == nullptr) {
    return sortOrder() == Qt::AscendingOrder ? left.row() < right.row() : left.row() > right.row();
  }
  if (left.column() == static_cast<int>(CallColumn::kTime)) return a->time < b->time;
  const auto column = static_cast<std::size_t>(left.column());
  return order_.compare(a->texts[column], b->texts[column]) < 0;
}

}  // namespace orvane
