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
  c.tabTab = new QTabBar(strip);
  Name(*c.tabTab, "tabTab");
  c.tabTab->setAccessibleName(QStringLiteral("Richtung der Telefonate"));
  c.tabTab->setDrawBase(false);
  c.tabTab->setExpanding(false);
  c.tabTab->addTab(QStringLiteral("Eingehende Telefonate"));
  c.tabTab->addTab(QStringLiteral("Ausgehende Telefonate"));
  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(kBodyMargin, 6, kBodyMargin, 0);
  row->addWidget(c.tabTab, 0, Qt::AlignBottom);
  return strip;
}

QHBoxLayout* BuildChoices(DialControls& c) {
  c.cboFilter = new DropDown(c.grpFilter);
  Name(*c.cboFilter, "cboFilter");
  Describe(*c.cboFilter, "Zeitraum der Anrufliste");
  for (const char* period : kPeriods) c.cboFilter->addItem(QString::fromUtf8(period));
  AtLeastHigh(*c.cboFilter, kFieldHeight);
  c.cboFilter->setMinimumWidth(
      c.cboFilter->fontMetrics().horizontalAdvance(QString::fromUtf8(kPeriods.front())) +
      kDropDownRoom);
  auto* row = new QHBoxLayout;
  row->setSpacing(5);
  row->addWidget(c.cboFilter);
  for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
    auto* box = new CheckBox(QString::fromUtf8(kKinds[kind]), c.grpFilter);
    Name(*box, "chkTelList", kind);
    box->setChecked(true);
    c.chkTelList[kind] = box;
    row->addWidget(box);
  }
  row->addStretch();
  return row;
}

QHBoxLayout* BuildTextFilter(DialControls& c) {
  for (std::size_t i = 0; i < c.lblInf.size(); ++i) {
    c.lblInf[i] = new QLabel(c.grpFilter);
    Name(*c.lblInf[i], "lblInf", i);
  }
  c.lblInf[0]->setText(QStringLiteral("Textfilter:"));
  SetRole(*c.lblInf[1], role::kMuted);
  c.lblInf[1]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  // A label of fixed size does not have the window laid out anew at each key in the filter.
  c.lblInf[1]->setFixedSize(
      c.lblInf[1]->fontMetrics().horizontalAdvance(QStringLiteral("600 von 600 Anrufen")),
      kFieldHeight);

  c.txtFilter = new QLineEdit(c.grpFilter);
  Name(*c.txtFilter, "txtFilter");
  Describe(*c.txtFilter, "Textfilter: Anrufe, in denen alle Wörter vorkommen");
  AtLeastHigh(*c.txtFilter, kFieldHeight);
  c.cmdClrTextFilter = NewClearButton(*c.txtFilter, "cmdClrTextFilter", "Textfilter leeren");

  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(c.lblInf[0]);
  row->addWidget(c.txtFilter, 1);
  row->addWidget(c.lblInf[1]);
  return row;
}

void BuildFilters(DialControls& c) {
  c.grpFilter = NewPanel(*c.history, "grpFilter", role::kPlain);
  auto* column = new QVBoxLayout(c.grpFilter);
  column->setContentsMargins(kBodyMargin, 8, kBodyMargin, 8);
  column->setSpacing(8);
  column->addLayout(BuildChoices(c));
  column->addLayout(BuildTextFilter(c));
}

void BuildList(DialControls& c) {
  c.repTel = new CallListView(c.history);
  Name(*c.repTel, "repTel");
  SetRole(*c.repTel, role::kCalls);
  c.repTel->setFrameShape(QFrame::NoFrame);
  c.repTel->setAccessibleName(QStringLiteral("Anrufliste"));
}

}  // namespace

QFrame* BuildHistory(DialControls& c) {
  c.history = NewPanel(*c.infBase, nullptr, role::kHistory);
  auto* column = new QVBoxLayout(c.history);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(BuildTabs(c));
  BuildFilters(c);
  column->addWidget(c.grpFilter);
  BuildList(c);
  column->addWidget(c.repTel, 1);
  // A larger font may need more room for the filters than the design has.
  c.tabTab->setFixedWidth(
      std::max(kTabWidth, c.grpFilter->minimumSizeHint().width() - 2 * kBodyMargin));
  c.history->hide();
  return c.history;
}

}  // namespace orvane
