// The call history beside the dial pad.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTabBar>

#include "app/attempt.h"
#include "app/host_settings.h"
#include "app/number_text.h"
#include "journal/journal_calls.h"
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
namespace {

// The hourglass while it lives.
class BusyCursor {
 public:
  explicit BusyCursor(Prompts& prompts) : prompts_(prompts) { prompts_.SetBusyCursor(true); }
  ~BusyCursor() { prompts_.SetBusyCursor(false); }
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;

 private:
  Prompts& prompts_;
};

}  // namespace

void frmDial::ConnectHistory() {
  connect(c_.cboFilter, &QComboBox::activated, this, [this](int period) {
    queue_.Submit([this, period] { OnCallFilter(setting::kCallPeriod, period); });
  });
  for (std::size_t kind = 0; kind < c_.chkTelList.size(); ++kind) {
    connect(c_.chkTelList[kind], &QCheckBox::clicked, this, [this, kind](bool checked) {
      queue_.Submit(
          [this, kind, checked] { OnCallFilter(setting::kCallKinds[kind], checked ? 1 : 0); });
    });
  }
  const auto onTab = [this](int tab) {
    queue_.Submit([this, tab] {
      OnCallFilter(setting::kCallTab, tab);
      c_.repTel->setFocus();
    });
  };
  connect(c_.tabTab, &QTabBar::currentChanged, this, onTab);
  // A click on the selected tab reads its calls anew.
  connect(c_.tabTab, &QTabBar::tabBarClicked, this, [this, onTab](int tab) {
    if (tab == c_.tabTab->currentIndex()) onTab(tab);
  });
  connect(c_.txtFilter, &QLineEdit::textChanged, this, [this] { OnTextFilter(); });
  connect(c_.cmdClrTextFilter, &QPushButton::clicked, this, [this] {
    c_.txtFilter->clear();
    c_.txtFilter->setFocus();
  });
  connect(c_.repTel, &CallListView::NumberTaken, this, [this](const QString& number) {
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
    const QSignalBlocker loading(c_.tabTab);
    c_.tabTab->setCurrentIndex(stored(setting::kCallTab, c_.tabTab->count()));
  }
  c_.cboFilter->setCurrentIndex(stored(setting::kCallPeriod, kCallPeriods));
  for (std::size_t kind = 0; kind < c_.chkTelList.size(); ++kind) {
    c_.chkTelList[kind]->setChecked(stored(setting::kCallKinds[kind], 2) == 1);
  }
  Attempt([this] {
    const auto columns = ParseCallColumns(Stored(Registry(), setting::kCallColumns).value_or(""));
    if (columns) c_.repTel->SetColumns(*columns);
  });
  savedColumns_ = c_.repTel->Columns();
}

void frmDial::SaveCallColumns() {
  const CallColumns columns = c_.repTel->Columns();
  if (SameArrangement(columns, savedColumns_)) return;
  Attempt([&] { Store(Registry(), setting::kCallColumns, CallColumnsText(columns)); });
  savedColumns_ = columns;
}

CallFilter frmDial::ChosenCalls() const {
  return {static_cast<CallTab>(c_.tabTab->currentIndex()),
          c_.cboFilter->currentIndex(),
          c_.chkTelList[0]->isChecked(),
          c_.chkTelList[1]->isChecked(),
          c_.chkTelList[2]->isChecked(),
          c_.chkTelList[3]->isChecked()};
}

void frmDial::RefreshTelList() {
  const BusyCursor busy(system_.prompts);
  const CallDays days = CallDaysOf(system_.clock.Now());
  shownJournal_ = state_.host.userPath;
  // Neither a message about the journal nor the wait for it must stand beside the calls of another
  // choice.
  c_.repTel->Clear();
  c_.lblInf[1]->clear();
  c_.repTel->SetGroups(
      GroupCalls(ReadJournalCalls(system_.prompts, state_, CallQuery(ChosenCalls(), days)), days,
                 system_.locale));
  ShowCallCount();
}

void frmDial::ShowCallCount() {
  const int shown = c_.repTel->ShownCalls();
  const int all = c_.repTel->AllCalls();
  if (shown == all) {
    c_.lblInf[1]->setText(all == 1 ? QStringLiteral("1 Anruf")
                                   : QStringLiteral("%1 Anrufe").arg(all));
  } else {
    c_.lblInf[1]->setText(QStringLiteral("%1 von %2 Anrufen").arg(shown).arg(all));
  }
}

void frmDial::OnCallFilter(const NumberSetting& setting, int value) {
  Attempt([&] { Store(Registry(), setting, std::to_string(value)); });
  RefreshTelList();
}

void frmDial::OnTextFilter() {
  c_.repTel->SetFilterText(c_.txtFilter->text());
  ShowCallCount();
}

// The focus goes where Enter dials the number.
void frmDial::OnCallTaken(const std::string& number) {
  SetNumberText(number);
  c_.txtNr->setFocus();
}

void frmDial::ToggleHistory() {
  if (SessionOn()) {
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
  savedColumns_ = c_.repTel->Columns();
  const TwipPoint place = FitWidened(window.Position(), window.Size(), screen);
  if (place != window.Position()) window.MoveTo(place);
}

// The window follows the information panel, which ends at the dial pad or past the call history.
void frmDial::ShowHistoryPanel(bool shown) {
  const bool leavesFocus = !shown && c_.history->isAncestorOf(focusWidget());
  if (leavesFocus) c_.txtNr->setFocus();
  c_.cmdHistory->setChecked(shown);
  SetRole(*c_.log, shown ? role::kLogBeside : role::kLog);
  c_.history->setVisible(shown);
  const int pad = PadWidth(kBodyMargin, c_.tabDisplay->width());
  const int panel =
      shown ? HistoryWidth(pad + kHistoryEdge + kBodyMargin, c_.tabTab->width(), kBodyMargin) : pad;
  setFixedWidth(panel + 2 * kFrameWidth);
}

}  // namespace orvane
