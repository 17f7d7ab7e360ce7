#include "ui/logic/view_toggle.h"

namespace orvane {
namespace {

// No half-drawn state shows up there while the window is rearranged.
constexpr int kOutOfSightTwips = -9900;

}  // namespace

void SwitchView(PlacedWindow& window, TwoViews& views, DialView view, TwipPoint& fullView) {
  const bool full = view == DialView::kFull;
  const TwipPoint before = window.Position();
  TwipScreen screen = ScreenOf(window);
  const int outOfSight = screen.origin.top + kOutOfSightTwips;
  window.MoveTo({before.left, outOfSight});
  views.ShowListControls(full);
  if (full) {
    views.ArrangePanel(view);
    window.MoveTo(fullView);
    screen = ScreenOf(window);
    views.ApplyWindowShape();
  } else {
    fullView = before;
    views.ArrangePanel(view);
    views.ApplyWindowShape();
    // Still out of sight: keeping it on the screen is what docks it at the top edge.
    window.MoveTo({screen.origin.left + (screen.size.width - window.Size().width) / 2, outOfSight});
  }
  views.ShowCommandButtons(full);
  views.SetTopmost(!full);
  window.MoveTo(KeepOnScreen(window.Position(), window.Size(), screen));
}

}  // namespace orvane
