// The way to the options dialog and back.
#include <utility>

#include "app/attempt.h"
#include "ui/dial/frm_dial.h"
#include "ui/options/frm_optionen.h"

namespace orvane {

void frmDial::OnOptions() {
  if (session_.On()) {
    RefuseDuringSession("Optionen können nicht während einer Telefonsitzung geändert werden.");
  } else if (options_ == nullptr) {
    OpenOptions();
  }
}

void frmDial::OpenOptions() {
  setEnabled(false);
  Attempt([this] { system_.serial.SetPortOpen(false); });
  chrome_->SetTopmost(kNotTopmost, true);
  options_ = new frmOptionen(system_, state_, queue_, *this, *this);
  lineEvents_.SetTestDial(&options_->TestDial());
  options_->Load();
  options_->Show();
  hide();
}

void frmDial::OptionsEnded() {
  lineEvents_.SetTestDial(nullptr);
  options_->deleteLater();
  options_ = nullptr;
  const bool lineMayBeBack =
      std::exchange(linesChangedMeanwhile_, false) && state_.settings.tapiLineId == kNoTapiLine;
  if (reloadAfterOptions_) {
    ReloadSettings();
  } else if (lineMayBeBack) {
    ReopenConfiguredLine();
  }
  show();
  Attempt([this] { system_.serial.SetPortOpen(false); });
  chrome_->SetTopmost(kTopmost, true);
  setEnabled(true);
  activateWindow();
}

void frmDial::AbandonOptions() {
  if (options_ == nullptr) return;
  lineEvents_.SetTestDial(nullptr);
  options_->Abandon();
  options_->deleteLater();
  options_ = nullptr;
}

// Opening the configured line would take the current one from the options dialog.
void frmDial::ReloadSettings() {
  reloadAfterOptions_ = options_ != nullptr;
  if (!reloadAfterOptions_) ReloadAppliedSettings();
}

void frmDial::LinesChanged() {
  if (options_ == nullptr) return ReopenConfiguredLine();
  linesChangedMeanwhile_ = true;
}

void frmDial::ReloadAppliedSettings() {
  settings_.InitSettings();
  ShowDestination();
  // Another user has other calls.
  if (HistoryShown() && shownJournal_ != state_.host.userPath) RefreshTelList();
}

void frmDial::ReopenConfiguredLine() {
  settings_.ReopenConfiguredLine();
}

}  // namespace orvane
