#pragma once

#include "dialing/dial_panel.h"

namespace orvane {

// What a telephone line needs of the dial window beyond dialling.
class LinePanel : public DialPanel {
 public:
  // False exactly while the options dialog is open; line events then belong to the dialog.
  virtual bool WindowEnabled() const = 0;

  // Both dial buttons take clicks, or do not.
  virtual void SetDialButtonsEnabled(bool enabled) = 0;
  // Gives the focus to the dial button of the view that is shown.
  virtual void FocusDialButton() = 0;

  // The line that is configured may have come into reach: load the settings again, while the
  // options dialog is open after its end.
  virtual void LinesChanged() = 0;

  // Whether `lstCallProgress` holds exactly one line and it begins with ">>>": the call was just
  // placed and nothing has happened since.
  virtual bool JustPlaced() const = 0;
};

}  // namespace orvane
