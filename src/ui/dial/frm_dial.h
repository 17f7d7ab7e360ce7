#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "app/host_settings.h"
#include "app/program_state.h"
#include "app/settings_loader.h"
#include "app/settings_panel.h"
#include "app/work_queue.h"
#include "dialing/dial_command.h"
#include "dialing/dial_panel.h"
#include "dialing/line_events.h"
#include "dialing/modem_dialer.h"
#include "dialing/session.h"
#include "dialing/tapi_dialer.h"
#include "journal/call_logger.h"
#include "journal/tel_list.h"
#include "platform/database.h"
#include "platform/window_chrome.h"
#include "remote/command_channel.h"
#include "remote/remote_panel.h"
#include "ui/dial/dial_controls.h"
#include "ui/dial/dial_system.h"
#include "ui/dial/double_click.h"
#include "ui/logic/call_columns.h"
#include "ui/logic/call_query.h"
#include "ui/logic/number_classifier.h"
#include "ui/logic/view_toggle.h"
#include "ui/options/options_owner.h"

namespace orvane {

class frmOptionen;

// The dial window: a frameless pad beside the host application. What the user does goes through the
// work queue, so that it cannot overtake a procedure that is still busy.
class frmDial final : public QWidget,
                      public SettingsPanel,
                      public DialPanel,
                      public RemotePanel,
                      public OptionsOwner {
 public:
  // Everything referred to outlives the window. Builds the controls; Load does the rest.
  frmDial(const DialSystem& system, ProgramState& state, WorkQueue& queue, TelList& journal);
  ~frmDial() override;
  frmDial(const frmDial&) = delete;
  frmDial& operator=(const frmDial&) = delete;

  CommandChannel& Channel() { return channel_; }

  // SettingsPanel
  void SetExternVisible(bool visible) override;
  void ResetSpeedDial() override;
  void AddSpeedDialEntry(const std::string& text) override;
  void SetSpeedDialNumbers(const std::string& numbers) override;
  void SetSpeedDialSelectable(bool selectable) override;
  void SetSpeedDialToolTip(const std::string& text) override;
  void SetDialMethodStatus(const std::string& headline, const std::string& detail) override;

  // DialPanel
  void AddStatus(const std::string& text) override;
  bool ExternTicked() const override;
  void SetContactLabel(const std::string& text) override;
  std::string NumberText() const override;
  void ClearStatus() override;
  void SetDialButtonIdle(bool idle) override;
  bool ExternVisible() const override;
  void SetExternTicked(bool ticked) override;
  bool DevDialTicked() const override;
  bool HistoryShown() const override;
  void ToggleHistory() override;
  bool WindowEnabled() const override;
  void SetDialButtonsEnabled(bool enabled) override;
  void FocusDialButton() override;
  void LinesChanged() override;

  // RemotePanel
  bool IsLoaded() const override { return stage_ == Stage::kLoaded; }
  void Load() override;
  void Show() override;
  void Unload() override;
  void ReloadSettings() override;
  bool NumberEnabled() const override;
  void SetNumberText(const std::string& text) override;

  // OptionsOwner
  void ReloadAppliedSettings() override;
  void ReopenConfiguredLine() override;
  void OptionsEnded() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  enum class Stage { kBuilt, kLoaded, kClosed };

  void ConnectCommands();
  void ConnectHistory();
  void WatchControls();

  // Form load, step by step.
  void LoadHistory();
  void ReadDeveloperFlag();
  void PlaceWindow();
  void PrepareAreaCodes();
  void SetUpChrome();
  void OfferClipboard();

  // Closing, step by step.
  void AbandonOptions();
  void ReleaseDatabases();
  // The handle of the call on the line, the window's or the options dialog's.
  std::int32_t HeldCall() const;
  void ShutDownTapi(std::int32_t heldCall);

  void ApplyWindowShape();
  bool DragWindow(Qt::MouseButton button);
  void KeepCompactViewOnScreen();

  void OnNumberChanged();
  void FitNumber();
  void ShowDestination();
  void OnClear();
  void OnGetClipboard();
  void OnRedial();
  void OnKeypad(std::size_t key);
  void OnSpeedDial(int index);
  void OnOptions();
  void OpenOptions();
  void RefuseDuringSession(const std::string& text);
  void ShowSpeedDialKind(int index);

  // Asks the journal for the calls that the history is to show.
  void RefreshTelList();
  void ShowCalls(std::vector<JournalCall> calls, const CallDays& days);
  CallFilter ChosenCalls() const;
  void ShowCallCount();
  void SaveCallColumns();
  void ShowHistoryPanel(bool shown);
  void OnCallFilter(const NumberSetting& setting, int value);
  void OnTextFilter();
  void OnCallTaken(const std::string& number);

  // Full view and compact view.
  class Views;
  bool FullViewShown() const;
  DialView OtherView() const { return FullViewShown() ? DialView::kCompact : DialView::kFull; }
  void SwitchTo(DialView view);
  void ArrangeFull();
  void ArrangeCompact();
  void FitHeight();

  bool OnKeyDown(const QKeyEvent& event);
  bool OnEnter(QWidget* focus);
  void OnTypedKey(char character, int keypadButton);
  void RemoveLastCharacter();
  void ReleaseKeypad();

  HostRegistry& Registry();

  DialSystem system_;
  ProgramState& state_;
  WorkQueue& queue_;
  TelList& journal_;

  SettingsLoader settings_;
  CallLogger logger_;
  Session session_;
  ModemDialer modem_;
  TapiDialer tapi_;
  LineEvents lineEvents_;
  RedialMemory redial_;
  DialCommand dial_;
  CommandChannel channel_;

  DialControls controls_;
  std::set<const QObject*> dragAreas_;
  DoubleClick titleClicks_;
  std::unique_ptr<WindowChrome> chrome_;
  // While it is open the window is disabled and hidden. Belongs to the window.
  frmOptionen* options_ = nullptr;
  // The host named another user meanwhile.
  bool reloadAfterOptions_ = false;
  bool linesChangedMeanwhile_ = false;

  Stage stage_ = Stage::kBuilt;
  // Where the full view was when the compact one replaced it.
  TwipPoint fullView_;
  std::unique_ptr<DatabaseConnection> areaCodes_;
  NumberClassifier classifier_;
  bool speedDialSelectable_ = false;
  // The folder of the user whose calls the history shows.
  std::string shownJournal_;
  // Of several questions to the journal only the last one counts.
  int callsAskedFor_ = 0;
  CallColumns savedColumns_;
};

}  // namespace orvane
