#pragma once

#include <string>

namespace orvane {

// What the host's commands need of the dial window.
class RemotePanel {
 public:
  virtual ~RemotePanel() = default;

  virtual bool IsLoaded() const = 0;
  // Builds the window without showing it; does nothing when it is loaded.
  virtual void Load() = 0;
  // Loads the window where needed, shows it and raises it.
  virtual void Show() = 0;
  // Closes the window for good, which ends the program.
  virtual void Unload() = 0;
  // Loads the settings again, for another user.
  virtual void ReloadSettings() = 0;

  // Whether `txtNr` takes a number. The number field's own state: true while the window is
  // disabled.
  virtual bool NumberEnabled() const = 0;
  virtual void SetNumberText(const std::string& text) = 0;
  virtual std::string NumberText() const = 0;
  virtual void SetExternTicked(bool ticked) = 0;
};

}  // namespace orvane
