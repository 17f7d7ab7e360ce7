#pragma once

namespace orvane {

// What the options dialog needs of the window that opened it.
class OptionsOwner {
 public:
  virtual ~OptionsOwner() = default;

  // Reads the program's settings anew and shows them.
  virtual void ReloadAppliedSettings() = 0;

  // Opens the line of the settings in force again, and shows whether that worked.
  virtual void ReopenConfiguredLine() = 0;

  // The dialog is over: takes it away and brings the window back.
  virtual void OptionsEnded() = 0;
};

}  // namespace orvane
