#pragma once

#include <string>

#include "journal/call_display.h"

namespace orvane {

// What dialling needs of the dial window.
class DialPanel : public CallDisplay {
 public:
  // The text of `txtNr`.
  virtual std::string NumberText() const = 0;

  // Empties `lstCallProgress`.
  virtual void ClearStatus() = 0;

  // True gives both dial buttons the dial picture and releases button 0; false gives them the
  // hang-up picture and presses button 0.
  virtual void SetDialButtonIdle(bool idle) = 0;
  // Both dial buttons take clicks, or do not.
  virtual void SetDialButtonsEnabled(bool enabled) = 0;
  // Gives the focus to the dial button of the view that is shown.
  virtual void FocusDialButton() = 0;

  // Whether `chkExtern` is shown, so that the user chooses.
  virtual bool ExternVisible() const = 0;
  virtual void SetExternTicked(bool ticked) = 0;
  // The test check box `chkDevDial`.
  virtual bool DevDialTicked() const = 0;

  // Whether `cmdHistory` is pressed, and a click on it.
  virtual bool HistoryShown() const = 0;
  virtual void ToggleHistory() = 0;

  // False exactly while the options dialog is open; line events then belong to the dialog.
  virtual bool WindowEnabled() const = 0;
  // The line that is configured may have come into reach: open it, while the options dialog is open
  // after its end.
  virtual void LinesChanged() = 0;
};

}  // namespace orvane
