#pragma once

#include <string>

namespace orvane {

// The test dial of the options dialog, which gets the line events while it is open.
class TrialDialPanel {
 public:
  virtual ~TrialDialPanel() = default;

  // The dialog's dial button: pressed, hang-up picture and "&Auflegen"; or released, dial picture
  // and "&Wählen...".
  virtual void SetTestDialIdle(bool idle) = 0;
  virtual bool TestDialPressed() const = 0;
  // Whether the test call in progress goes through the modem, so that no line's call is meant.
  virtual bool TestsByModem() const = 0;
  virtual void SetTestDialEnabled(bool enabled) = 0;
  virtual void EnableAndFocusTestDial() = 0;
  // The port that is selected in the dialog, 1 to 8.
  virtual int SelectedComPort() const = 0;
  // Appends CR LF and the text to `txtCallProgress`, caret at the end.
  virtual void AppendProgress(const std::string& text) = 0;
};

}  // namespace orvane
