#pragma once

#include <QDialog>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/error_report.h"
#include "app/program_state.h"
#include "app/work_queue.h"
#include "dialing/trial_dial_panel.h"
#include "dialing/trial_dialer.h"
#include "platform/line_info.h"
#include "platform/window_chrome.h"
#include "ui/logic/option_choices.h"
#include "ui/options/options_controls.h"
#include "ui/options/options_owner.h"
#include "ui/options/options_system.h"

namespace orvane {

// The options dialog: how calls are placed, and the speed-dial memory. It blocks the dial window
// without an event loop of its own, so line events and host commands go on.
class frmOptionen final : public QDialog, public TrialDialPanel {
 public:
  // Everything referred to outlives the dialog.
  frmOptionen(const OptionsSystem& system, ProgramState& state, WorkQueue& queue,
              OptionsOwner& owner, QWidget& parent);

  // Fills the controls from the settings and the speed-dial file.
  void Load();
  // Shows the dialog, the selected dial method in focus.
  void Show();
  // Ends a test call without applying or restoring anything; for the end of the program.
  void Abandon();
  // Follows the lines while the dialog is open.
  TrialDialer& TestDial() { return testDial_; }

  // TrialDialPanel
  void SetTestDialIdle(bool idle) override;
  void SetTestDialEnabled(bool enabled) override;
  void EnableAndFocusTestDial() override;
  int SelectedComPort() const override;
  void AppendProgress(const std::string& text) override;

  // Cancels, in its turn.
  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void FitSize();
  bool DialsByEnter(const QEvent& event);
  void ConnectControls();
  // Runs the work when nothing else is in the middle of its own, unless the dialog is over by then.
  void Later(const std::function<void()>& work);

  // Filling.
  void ShowChoices();
  void ShowSpeedDial();
  void LoadTapiList();
  void FollowCurrentLine(const QString& name);
  void CheckComPorts();

  // Page "Kommunikationseinstellungen".
  void OnDialMethod(int method);
  void PlaceCover();
  void OnTestNumberChanged();
  void UpdateTestDial();
  void OnLineSelected();
  void OnConfigDialog(std::size_t button);
  bool LineChosen(const std::string& title);
  void ShowLineDialog(LineDialog dialog);
  void ShowDriverInformation();
  void RefreshLines();
  void SetTapiInfo(const std::vector<std::string>& lines);
  void OnDial();
  std::string TestDialString() const;
  int DialMethod() const;
  int SelectedLine() const;

  // Ending.
  void OnAction(std::size_t button);
  // False, after a message, when the speed-dial file cannot keep a character of its fields.
  bool SpeedDialStorable();
  // What stood in the way; nothing when all was applied.
  std::optional<ErrorState> Apply();
  void ComeBack(std::int32_t line, const ErrorState& failure);
  void RestoreLine();
  void CloseCurrentLine();
  OptionChoices Choices() const;

  OptionsSystem system_;
  ProgramState& state_;
  WorkQueue& queue_;
  OptionsOwner& owner_;
  TrialDialer testDial_;

  OptionsControls controls_;
  std::unique_ptr<WindowChrome> chrome_;

  bool ended_ = false;
  // As they were when the dialog opened, or last applied.
  std::int32_t lineBefore_ = kNoTapiLine;
  bool callMonitorBefore_ = false;
  std::string userPath_;
  // False when the file could not be read: what is in it must not be overwritten.
  bool speedDialKnown_ = false;
  // The mouse button that is down, or was last, has selected a line; otherwise its click chooses
  // the selected one again.
  bool selectedByPress_ = false;
  // A request to the line is under way.
  bool testDialBlocked_ = false;
  // The button had the focus when it was disabled.
  bool testDialHadFocus_ = false;
};

}  // namespace orvane
