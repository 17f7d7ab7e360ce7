#include "ui/dial/history_controls.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QTabBar>
#include <algorithm>

#include "ui/dial/call_list_view.h"
#include "ui/style/check_box.h"
#include "ui/style/control_building.h"
#include "ui/style/drop_down.h"

namespace orvane {
namespace {

constexpr int kTabWidth = 690;
constexpr int kFieldHeight = 30;
// Padding and arrow of a drop-down list.
constexpr int kDropDownRoom = 48;

constexpr std::array<const char*, kCallPeriods> kPeriods = {"Die letzten 600 Telefonate",
                                                            "Die letzten 300 Telefonate",
                                                            "Die letzten 100 Telefonate",
                                                            "Die letzten 50 Telefonate",
                                                            "Die letzten 20 Telefonate",
                                                            "Die letzten 10 Telefonate",
                                                            "Nur heutige Telefonate",
                                                            "Nur gestrige Telefonate",
                                                            "Aktuelle Woche",
                                                            "Letzte Woche"};
constexpr std::array<const char*, kCallKinds> kKinds = {"Interne Gespräche", "Externe Gespräche",
                                                        "Mit Rufnummer", "Ohne Rufnummer"};

QFrame* BuildTabs(DialControls& c) {
  QFrame* strip = NewPanel(*c.history, nullptr, role::kStrip);
  c.callTabs = new QTabBar(strip);
  Name(*c.callTabs, "tabTab");
  c.callTabs->setAccessibleName(QStringLiteral("Richtung der Telefonate"));
  c.callTabs->setDrawBase(false);
  c.callTabs->setExpanding(false);
  c.callTabs->addTab(QStringLiteral("Eingehende Telefonate"));
  c.callTabs->addTab(QStringLiteral("Ausgehende Telefonate"));
  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(kBodyMargin, 6, kBodyMargin, 0);
  row->addWidget(c.callTabs, 0, Qt::AlignBottom);
  return strip;
}

QHBoxLayout* BuildChoices(DialControls& c) {
  c.period = new DropDown(c.filters);
  Name(*c.period, "cboFilter");
  Describe(*c.period, "Zeitraum der Anrufliste");
  for (const char* period : kPeriods) c.period->addItem(QString::fromUtf8(period));
  AtLeastHigh(*c.period, kFieldHeight);
  c.period->setMinimumWidth(
      c.period->fontMetrics().horizontalAdvance(QString::fromUtf8(kPeriods.front())) +
      kDropDownRoom);
  auto* row = new QHBoxLayout;
  row->setSpacing(5);
  row->addWidget(c.period);
  for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
    auto* box = new CheckBox(QString::fromUtf8(kKinds[kind]), c.filters);
    Name(*box, "chkTelList", kind);
    box->setChecked(true);
    c.callKinds[kind] = box;
    row->addWidget(box);
  }
  row->addStretch();
  return row;
}

QHBoxLayout* BuildTextFilter(DialControls& c) {
  for (std::size_t i = 0; i < c.filterLabels.size(); ++i) {
    c.filterLabels[i] = new QLabel(c.filters);
    Name(*c.filterLabels[i], "lblInf", i);
  }
  c.filterLabels[0]->setText(QStringLiteral("Textfilter:"));
  SetRole(*c.filterLabels[1], role::kMuted);
  c.filterLabels[1]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  // A label of fixed size does not have the window laid out anew at each key in the filter.
  c.filterLabels[1]->setFixedSize(
      c.filterLabels[1]->fontMetrics().horizontalAdvance(QStringLiteral("600 von 600 Anrufen")),
      kFieldHeight);

  c.textFilter = new QLineEdit(c.filters);
  Name(*c.textFilter, "txtFilter");
  Describe(*c.textFilter, "Textfilter: Anrufe, in denen alle Wörter vorkommen");
  AtLeastHigh(*c.textFilter, kFieldHeight);
  c.clearTextFilter = NewClearButton(*c.textFilter, "cmdClrTextFilter", "Textfilter leeren");

  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(c.filterLabels[0]);
  row->addWidget(c.textFilter, 1);
  row->addWidget(c.filterLabels[1]);
  return row;
}

void BuildFilters(DialControls& c) {
  c.filters = NewPanel(*c.history, "grpFilter", role::kPlain);
  auto* column = new QVBoxLayout(c.filters);
  column->setContentsMargins(kBodyMargin, 8, kBodyMargin, 8);
  column->setSpacing(8);
  column->addLayout(BuildChoices(c));
  column->addLayout(BuildTextFilter(c));
}

void BuildList(DialControls& c) {
  c.callList = new CallListView(c.history);
  Name(*c.callList, "repTel");
  SetRole(*c.callList, role::kCalls);
  c.callList->setFrameShape(QFrame::NoFrame);
  c.callList->setAccessibleName(QStringLiteral("Anrufliste"));
}

}  // namespace

QFrame* BuildHistory(DialControls& c) {
  c.history = NewPanel(*c.body, nullptr, role::kHistory);
  auto* column = new QVBoxLayout(c.history);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(BuildTabs(c));
  BuildFilters(c);
  column->addWidget(c.filters);
  BuildList(c);
  column->addWidget(c.callList, 1);
  // A larger font may need more room for the filters than the design has.
  c.callTabs->setFixedWidth(
      std::max(kTabWidth, c.filters->minimumSizeHint().width() - 2 * kBodyMargin));
  c.history->hide();
  return c.history;
}

}  // namespace orvane
