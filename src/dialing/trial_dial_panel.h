#pragma once

#include <string>

namespace orvane {

// What the test dial needs of the options dialog.
class TrialDialPanel {
 public:
  virtual ~TrialDialPanel() = default;

  // The dialog's dial button: pressed, hang-up picture and "&Auflegen"; or released, dial picture
  // and "&Wählen...".
  virtual void SetTestDialIdle(bool idle) = 0;
  virtual void SetTestDialEnabled(bool enabled) = 0;
  virtual void EnableAndFocusTestDial() = 0;
  // The port that is selected in the dialog, 1 to 8.
  virtual int SelectedComPort() const = 0;
  // Appends CR LF and the text to `txtCallProgress`, caret at the end.
  virtual void AppendProgress(const std::string& text) = 0;
};

}  // namespace orvane
