#pragma once

#include <QCollator>
#include <QSortFilterProxyModel>
#include <QStringList>

#include "ui/dial/call_list_model.h"

namespace orvane {

// The calls that hold every word of a text in some column, sorted within their groups. The groups
// keep their order; a group without such a call is left out.
class CallListFilter : public QSortFilterProxyModel {
 public:
  // The calls outlive the filter.
  explicit CallListFilter(CallListModel& calls);

  void SetText(const QString& text);
  bool IsOn() const { return !words_.isEmpty(); }
  int ShownCalls() const;
  // As CallListModel::CallAt, for an index of the filter.
  const CallListModel::Call* CallAt(const QModelIndex& index) const;

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  const CallListModel& calls_;
  QStringList words_;
  QCollator order_;
};

}  // namespace orvane
