#pragma once

#include <vector>

#include "platform/host_registry.h"
#include "ui/logic/window_geometry.h"

namespace orvane {

// Window states by the numbers they are stored as.
enum class WindowState : int { kNormal = 0, kMinimised = 1, kMaximised = 2 };

// A window as far as its saved position is concerned.
class PlacedWindow {
 public:
  virtual ~PlacedWindow() = default;
  virtual WindowState State() const = 0;
  virtual void SetState(WindowState state) = 0;
  virtual TwipPoint Position() const = 0;
  virtual void MoveTo(TwipPoint position) = 0;
  virtual TwipSize Size() const = 0;
  // At least one, the main screen first.
  virtual std::vector<TwipScreen> Screens() const = 0;
};

// The screen the window is on; the main one when it is on none.
TwipScreen ScreenOf(const PlacedWindow& window);

// Writes position and size of the dial window in the normal state; a window that is minimised or
// maximised leaves what is stored. Throws RegistryError.
void SaveWindowPos(const PlacedWindow& window, HostRegistry& registry);

// Applies the stored window state or position; the size stays as designed. False when nothing
// usable is stored, and the caller has to place the window. Values that are no numbers count as not
// stored; without a stored top the window stays at its height.
bool RestoreWindowPos(PlacedWindow& window, HostRegistry& registry);

}  // namespace orvane
