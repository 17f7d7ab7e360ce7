#pragma once

#include <QAbstractItemModel>
#include <array>
#include <vector>

#include "ui/logic/call_columns.h"
#include "ui/logic/call_groups.h"

namespace orvane {

// The calls of the history below their groups, in the columns of CallColumn.
class CallListModel : public QAbstractItemModel {
 public:
  // No text of a row holds it.
  static constexpr QChar kTextStart{u'\n'};

  struct Call {
    double time = 0;
    bool external = false;
    // As the journal holds it.
    QString number;
    // What the columns show, by the number of the column.
    std::array<QString, kCallColumns> texts;
    // All of it, folded for searching, kTextStart before each text.
    QString searched;
  };

  using QAbstractItemModel::QAbstractItemModel;

  void SetGroups(const std::vector<GroupedCalls>& groups);
  int CallCount() const;
  // Nothing for a group and for no index.
  const Call* CallAt(const QModelIndex& index) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  struct Group {
    QString caption;
    std::vector<Call> calls;
  };

  // The group that an index of a call lies in; an index of a group has none.
  static bool IsCall(const QModelIndex& index) { return index.internalId() != 0; }
  static std::size_t GroupOf(const QModelIndex& call) { return call.internalId() - 1; }

  std::vector<Group> groups_;
};

}  // namespace orvane
