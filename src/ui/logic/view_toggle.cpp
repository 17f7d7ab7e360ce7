#include "ui/logic/view_toggle.h"

#include <algorithm>

namespace orvane {
namespace {

// Farther above the desktop than the window is high.
constexpr int kOutOfSightTwips = -9900;

// No half-drawn state shows up there while the window is rearranged. Counted from the highest
// screen, because another one may stand above the window's own.
int TopOutOfSight(const PlacedWindow& window) {
  int top = 0;
  for (const TwipScreen& screen : window.Screens()) top = std::min(top, screen.origin.top);
  return top + kOutOfSightTwips;
}

}  // namespace

TwipPoint SwitchView(PlacedWindow& window, TwoViews& views, DialView view, TwipPoint fullView) {
  const bool full = view == DialView::kFull;
  const TwipPoint before = window.Position();
  TwipScreen screen = ScreenOf(window);
  const int outOfSight = TopOutOfSight(window);
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
  return fullView;
}

}  // namespace orvane
