// How the dial window comes up and how it goes.
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>

#include "app/attempt.h"
#include "app/host_paths.h"
#include "app/host_settings.h"
#include "app/number_text.h"
#include "app/version.h"
#include "ui/dial/frm_dial.h"
#include "ui/dial/widget_placement.h"
#include "ui/logic/clipboard_offer.h"
#include "ui/logic/window_settings.h"
#include "ui/options/frm_optionen.h"

namespace orvane {
namespace {

constexpr std::chrono::seconds kJournalFarewell{10};

}  // namespace

void frmDial::Load() {
  if (stage_ != Stage::kBuilt) return;
  stage_ = Stage::kLoaded;
  LoadHistory();
  controls_.version->setText(QString::fromStdString("Brisko v" + ProgramVersion()));
  Attempt([this] { ReadDeveloperFlag(); });
  Attempt([this] { PlaceWindow(); });
  SetNumberText("");
  settings_.InitSettings();
  Attempt([this] { PrepareAreaCodes(); });
  Attempt([this] { SetUpChrome(); });
  Attempt([this] { OfferClipboard(); });
}

void frmDial::ReadDeveloperFlag() {
  const auto registry = system_.newRegistry();
  registry->SetApplicationName("Nordel");
  registry->SetRootKey(kRootCurrentUser);
  registry->SetKeyPath(kMakerKey);
  const std::string flag = Stored(*registry, setting::kDeveloper).value_or("");
  const bool developer = flag == "True" || LeadingNumber(flag) != 0;
  controls_.developerBox->setChecked(developer);
  controls_.developerBox->setVisible(developer);
}

void frmDial::PlaceWindow() {
  WidgetPlacement window(*this);
  bool restored = false;
  Attempt([&] { restored = RestoreWindowPos(window, Registry()); });
  if (!restored) window.MoveTo(FallbackPosition(window.Size(), window.Screens().front()));
}

// Opened where it is used.
void frmDial::PrepareAreaCodes() {
  areaCodes_ = system_.databases.NewConnection();
  areaCodes_->SetProvider("Microsoft.Jet.OLEDB.4.0");
  areaCodes_->SetMode(DbMode::kRead);
  areaCodes_->SetCursorLocation(DbCursorLocation::kClient);
  areaCodes_->SetProperty("Data Source", state_.host.resPath + "VPB.rgt");
  areaCodes_->SetProperty("Jet OLEDB:Database Password", kHostFilePassword);
  areaCodes_->SetProperty("Persist Security Info", "False");
}

void frmDial::SetUpChrome() {
  Attempt([this] { ApplyWindowShape(); });
  Attempt([this] { chrome_->AddDropShadow(); });
  Attempt([this] { chrome_->SetTopmost(kTopmost, true); });
  channel_.HookWindow(winId(), windowTitle().toStdString());
}

void frmDial::OfferClipboard() {
  if (!NumberText().empty()) return;
  SetNumberText(NumberFromClipboard(QGuiApplication::clipboard()->text().toStdString()));
}

void frmDial::Show() {
  Load();
  if (stage_ != Stage::kLoaded) return;
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void frmDial::Unload() {
  if (stage_ != Stage::kLoaded) return;
  stage_ = Stage::kClosed;
  const std::int32_t heldCall = HeldCall();
  AbandonOptions();
  SaveCallColumns();
  Attempt([this] { SaveWindowPos(WidgetPlacement(*this), Registry()); });
  Attempt([this] { channel_.UnhookWindow(); });
  modem_.Abandon();
  Attempt([this] { system_.serial.SetPortOpen(false); });
  // The journal says how long the call took that the end of the program cuts short.
  Attempt([this] { session_.Close(system_.clock.Now()); });
  ReleaseDatabases();
  ShutDownTapi(heldCall);
  lineEvents_.Abandon();
  state_.host.userNumber = 0;
  queue_.Clear();
  hide();
  system_.loop.Quit();
}

void frmDial::ReleaseDatabases() {
  // What was handed over is written before anything is closed.
  journal_.Finish(kJournalFarewell);
  Attempt([this] {
    if (state_.databases.host) state_.databases.host->Close();
  });
  state_.databases.host.reset();
  areaCodes_.reset();
  state_.host.registry.reset();
}

std::int32_t frmDial::HeldCall() const {
  return options_ != nullptr ? options_->TestDial().CallHandle() : session_.CallHandle();
}

void frmDial::ShutDownTapi(std::int32_t heldCall) {
  TapiControl& tapi = system_.tapi;
  if (tapi.Tag() == TapiTag::kNone) return;
  const std::int32_t line = state_.settings.tapiLineId;
  Attempt([&] {
    if (heldCall >= 0) tapi.DropCall(line, heldCall);
  });
  Attempt([&] { tapi.CloseLine(line); });
  Attempt([&] { tapi.ShutDown(); });
}

}  // namespace orvane
