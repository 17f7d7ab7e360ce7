#pragma once

#include "ui/logic/window_geometry.h"
#include "ui/logic/window_settings.h"

namespace orvane {

// The compact view leaves the number field, the keys and the dial button, docked at the top of the
// screen; the full view has everything.
enum class DialView { kCompact, kFull };

// What a window with two views shows in each.
class TwoViews {
 public:
  virtual ~TwoViews() = default;
  // The call list's tabs and filters.
  virtual void ShowListControls(bool shown) = 0;
  // The commands that the compact view does without.
  virtual void ShowCommandButtons(bool shown) = 0;
  // Arranges the information panel for the view and makes it as high as the view wants it.
  virtual void ArrangePanel(DialView view) = 0;
  virtual void ApplyWindowShape() = 0;
  // Never activates the window.
  virtual void SetTopmost(bool topmost) = 0;
};

// How high the information panel of the compact view is, in twips, below which only a command
// button at this place would follow.
constexpr int CompactPanelHeight(int buttonTop, int buttonHeight) {
  return buttonTop + buttonHeight + kTwipsPerPixel;
}

// Switches between the views. `fullView` is where the full view was, and the result where it is or
// was from now on; the compact one always opens centred at the top edge of the screen that the
// window is on.
[[nodiscard]] TwipPoint SwitchView(PlacedWindow& window, TwoViews& views, DialView view,
                                   TwipPoint fullView);

}  // namespace orvane
