#include "ui/logic/view_toggle.h"

namespace orvane {
namespace {

// No half-drawn state shows up there while the window is rearranged.
constexpr int kOutOfSightTwips = -9900;

}  // namespace

void SwitchView(TwoViewWindow& window, DialView view, TwipPoint& fullView) {
  const bool full = view == DialView::kFull;
  const TwipPoint before = window.Position();
  TwipScreen screen = ScreenOf(window);
  const int outOfSight = screen.origin.top + kOutOfSightTwips;
  window.MoveTo({before.left, outOfSight});
  window.ShowListControls(full);
  if (full) {
    window.ArrangePanel(view);
    window.MoveTo(fullView);
    screen = ScreenOf(window);
    window.ApplyWindowShape();
  } else {
    fullView = before;
    window.ArrangePanel(view);
    window.ApplyWindowShape();
    // Still out of sight: keeping it on the screen is what docks it at the top edge.
    window.MoveTo({screen.origin.left + (screen.size.width - window.Size().width) / 2, outOfSight});
  }
  window.ShowCommandButtons(full);
  window.SetTopmost(!full);
  window.MoveTo(KeepOnScreen(window.Position(), window.Size(), screen));
}

}  // namespace orvane
