#include "ui/dial/call_list_model.h"

#include <QLocale>
#include <QStringList>
#include <limits>

#include "ui/dial/search_text.h"
#include "ui/logic/call_days.h"

namespace orvane {
namespace {

constexpr std::array<const char*, kCallColumns> kTitles = {
    "Date4Order", "Zeitpunkt", "Rufnummer", "Firmeninfo", "Ort/Abteilung", "Personeninfo"};

QString TimeOf(const JournalCall& call) {
  if (!call.time) return {};
  const LocalTime time = ToLocalTime(*call.time);
  const auto twoDigits = [](int number) {
    return QString::number(number % 100).rightJustified(2, QLatin1Char('0'));
  };
  return twoDigits(time.day) + QLatin1Char('.') + twoDigits(time.month) + QLatin1Char('.') +
         twoDigits(time.year) + QLatin1Char(' ') + twoDigits(time.hour) + QLatin1Char(':') +
         twoDigits(time.minute);
}

CallListModel::Call ShownCall(const JournalCall& call) {
  // A name may hold line breaks; a row has one line.
  const auto line = [](const std::string& text) {
    return QString::fromStdString(text).simplified();
  };
  CallListModel::Call shown;
  shown.time = call.time.value_or(-std::numeric_limits<double>::infinity());
  shown.external = call.external;
  shown.number = QString::fromStdString(call.number);
  shown.texts = {QString(),          TimeOf(call),     line(call.number),
                 line(call.company), line(call.place), line(call.person)};
  shown.searched = FoldForSearch(
      QStringList(shown.texts.begin(), shown.texts.end()).join(CallListModel::kTextStart));
  return shown;
}

}  // namespace

void CallListModel::SetGroups(const std::vector<GroupedCalls>& groups) {
  beginResetModel();
  groups_.clear();
  for (const auto& [group, calls] : groups) {
    Group& shown = groups_.emplace_back();
    shown.caption = QString::fromStdString(group.caption);
    shown.calls.reserve(calls.size());
    for (const JournalCall& call : calls) shown.calls.push_back(ShownCall(call));
  }
  endResetModel();
}

int CallListModel::CallCount() const {
  std::size_t count = 0;
  for (const Group& group : groups_) count += group.calls.size();
  return static_cast<int>(count);
}

const CallListModel::Call* CallListModel::CallAt(const QModelIndex& index) const {
  if (!index.isValid() || !IsCall(index)) return nullptr;
  return &groups_[GroupOf(index)].calls[static_cast<std::size_t>(index.row())];
}

QModelIndex CallListModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  const int group = parent.isValid() ? parent.row() + 1 : 0;
  return createIndex(row, column, static_cast<quintptr>(group));
}

QModelIndex CallListModel::parent(const QModelIndex& index) const {
  if (!index.isValid() || !IsCall(index)) return {};
  return createIndex(static_cast<int>(GroupOf(index)), 0, quintptr{0});
}

int CallListModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(groups_.size());
  if (IsCall(parent) || parent.column() > 0) return 0;
  return static_cast<int>(groups_[static_cast<std::size_t>(parent.row())].calls.size());
}

int CallListModel::columnCount(const QModelIndex& /*parent*/) const {
  return kCallColumns;
}

QVariant CallListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Call* call = CallAt(index);
  if (call == nullptr) {
    const Group& group = groups_[static_cast<std::size_t>(index.row())];
    return role == Qt::DisplayRole ? QVariant(group.caption) : QVariant();
  }
  const QString& text = call->texts[static_cast<std::size_t>(index.column())];
  if (role == Qt::DisplayRole) return text;
  const bool isNumber = index.column() == static_cast<int>(CallColumn::kNumber);
  if (!isNumber || (role != Qt::ToolTipRole && role != Qt::AccessibleTextRole)) return {};
  const QString kind =
      call->external ? QStringLiteral("Externes Gespräch") : QStringLiteral("Internes Gespräch");
  return text.isEmpty() ? kind : text + QStringLiteral(", ") + kind;
}

QVariant CallListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= kCallColumns) return {};
  if (role == Qt::DisplayRole) {
    return QString::fromLatin1(kTitles[static_cast<std::size_t>(section)]);
  }
  if (role == Qt::TextAlignmentRole) return int{Qt::AlignLeft | Qt::AlignVCenter};
  return {};
}

}  // namespace orvane
