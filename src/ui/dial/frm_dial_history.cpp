// The call history beside the dial pad.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTabBar>

#include "app/attempt.h"
#include "app/host_settings.h"
#include "app/number_text.h"
#include "ui/dial/call_list_view.h"
#include "ui/dial/frm_dial.h"
#include "ui/dial/history_controls.h"
#include "ui/dial/widget_placement.h"
#include "ui/logic/call_groups.h"
#include "ui/logic/window_geometry.h"
#include "ui/logic/window_settings.h"
#include "ui/style/command_button.h"
#include "ui/style/drop_down.h"
#include "ui/style/style_sheet.h"

namespace orvane {

void frmDial::ConnectHistory() {
  connect(controls_.period, &QComboBox::activated, this, [this](int period) {
    queue_.Submit([this, period] { OnCallFilter(setting::kCallPeriod, period); });
  });
  for (std::size_t kind = 0; kind < controls_.callKinds.size(); ++kind) {
    connect(controls_.callKinds[kind], &QCheckBox::clicked, this, [this, kind](bool checked) {
      queue_.Submit(
          [this, kind, checked] { OnCallFilter(setting::kCallKindsShown[kind], checked ? 1 : 0); });
    });
  }
  const auto onTab = [this](int tab) {
    queue_.Submit([this, tab] {
      OnCallFilter(setting::kCallTab, tab);
      controls_.callList->setFocus();
    });
  };
  connect(controls_.callTabs, &QTabBar::currentChanged, this, onTab);
  // A click on the selected tab reads its calls anew.
  connect(controls_.callTabs, &QTabBar::tabBarClicked, this, [this, onTab](int tab) {
    if (tab == controls_.callTabs->currentIndex()) onTab(tab);
  });
  connect(controls_.textFilter, &QLineEdit::textChanged, this, [this] { OnTextFilter(); });
  connect(controls_.clearTextFilter, &QPushButton::clicked, this, [this] {
    controls_.textFilter->clear();
    controls_.textFilter->setFocus();
  });
  connect(controls_.callList, &CallListView::NumberTaken, this, [this](const QString& number) {
    queue_.Submit([this, number] { OnCallTaken(number.toStdString()); });
  });
}

void frmDial::LoadHistory() {
  const auto stored = [this](const NumberSetting& setting, int end) {
    int value = setting.fallback;
    Attempt([&] {
      const std::string text = Stored(Registry(), setting).value_or("");
      if (!text.empty()) value = RoundToInt32(LeadingNumber(text));
    });
    return value >= 0 && value < end ? value : setting.fallback;
  };
  {
    const QSignalBlocker loading(controls_.callTabs);
    controls_.callTabs->setCurrentIndex(stored(setting::kCallTab, controls_.callTabs->count()));
  }
  controls_.period->setCurrentIndex(stored(setting::kCallPeriod, kCallPeriods));
  for (std::size_t kind = 0; kind < controls_.callKinds.size(); ++kind) {
    controls_.callKinds[kind]->setChecked(stored(setting::kCallKindsShown[kind], 2) == 1);
  }
  Attempt([this] {
    const auto columns = ParseCallColumns(Stored(Registry(), setting::kCallColumns).value_or(""));
    if (columns) controls_.callList->SetColumns(*columns);
  });
  savedColumns_ = controls_.callList->Columns();
}

void frmDial::SaveCallColumns() {
  const CallColumns columns = controls_.callList->Columns();
  if (SameArrangement(columns, savedColumns_)) return;
  Attempt([&] { Store(Registry(), setting::kCallColumns, CallColumnsText(columns)); });
  savedColumns_ = columns;
}

CallFilter frmDial::ChosenCalls() const {
  return {static_cast<CallTab>(controls_.callTabs->currentIndex()),
          controls_.period->currentIndex(),
          controls_.callKinds[0]->isChecked(),
          controls_.callKinds[1]->isChecked(),
          controls_.callKinds[2]->isChecked(),
          controls_.callKinds[3]->isChecked()};
}

void frmDial::RefreshTelList() {
  system_.prompts.SetBusyCursor(true);
  const CallDays days = CallDaysOf(system_.clock.Now().local);
  shownJournal_ = state_.host.userPath;
  // Neither a message about the journal nor the wait for it must stand beside the calls of another
  // choice.
  controls_.callList->Clear();
  controls_.filterLabels[1]->clear();
  journal_.Read(shownJournal_, CallQuery(ChosenCalls(), days),
                [this, days, asked = ++callsAskedFor_](std::vector<JournalCall> calls) {
                  if (asked == callsAskedFor_) ShowCalls(std::move(calls), days);
                });
}

void frmDial::ShowCalls(std::vector<JournalCall> calls, const CallDays& days) {
  controls_.callList->SetGroups(GroupCalls(std::move(calls), days, system_.locale));
  ShowCallCount();
  system_.prompts.SetBusyCursor(false);
}

void frmDial::ShowCallCount() {
  const int shown = controls_.callList->ShownCalls();
  const int all = controls_.callList->AllCalls();
  if (shown == all) {
    controls_.filterLabels[1]->setText(all == 1 ? QStringLiteral("1 Anruf")
                                                : QStringLiteral("%1 Anrufe").arg(all));
  } else {
    controls_.filterLabels[1]->setText(QStringLiteral("%1 von %2 Anrufen").arg(shown).arg(all));
  }
}

void frmDial::OnCallFilter(const NumberSetting& setting, int value) {
  Attempt([&] { Store(Registry(), setting, std::to_string(value)); });
  RefreshTelList();
}

void frmDial::OnTextFilter() {
  controls_.callList->SetFilterText(controls_.textFilter->text());
  ShowCallCount();
}

// The focus goes where Enter dials the number.
void frmDial::OnCallTaken(const std::string& number) {
  SetNumberText(number);
  controls_.numberField->setFocus();
}

void frmDial::ToggleHistory() {
  if (session_.On()) {
    RefuseDuringSession(
        "Die Anrufhistorie kann nicht während einer Telefonsitzung geöffnet werden.");
    return;
  }
  if (!NumberEnabled()) return;
  const bool show = !HistoryShown();
  if (show) {
    RefreshTelList();
  } else {
    SaveCallColumns();
  }
  WidgetPlacement window(*this);
  // Widened, the window could show more on the next screen than on its own.
  const TwipScreen screen = ScreenOf(window);
  ShowHistoryPanel(show);
  ApplyWindowShape();
  if (!show) return;
  // Shown for the first time, the last column takes the room that is left.
  savedColumns_ = controls_.callList->Columns();
  const TwipPoint place = FitWidened(window.Position(), window.Size(), screen);
  if (place != window.Position()) window.MoveTo(place);
}

// The window follows the information panel, which ends at the dial pad or past the call history.
void frmDial::ShowHistoryPanel(bool shown) {
  const bool leavesFocus = !shown && controls_.history->isAncestorOf(focusWidget());
  if (leavesFocus) controls_.numberField->setFocus();
  controls_.historyButton->setChecked(shown);
  SetRole(*controls_.log, shown ? role::kLogBeside : role::kLog);
  controls_.history->setVisible(shown);
  const int pad = PadWidth(kBodyMargin, controls_.display->width());
  const int panel = shown ? HistoryWidth(pad + kHistoryEdge + kBodyMargin,
                                         controls_.callTabs->width(), kBodyMargin)
                          : pad;
  setFixedWidth(panel + 2 * kFrameWidth);
}

}  // namespace orvane
