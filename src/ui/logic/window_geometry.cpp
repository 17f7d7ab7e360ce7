#include "ui/logic/window_geometry.h"

#include <cstdint>

namespace orvane {
namespace {

constexpr int kEdgeToleranceTwips = 15;
constexpr int kOverhangTwips = 20;
constexpr int kFallbackMarginTwips = 900;
constexpr int kWidenedOverhangTwips = 30;

}  // namespace

TwipPoint KeepOnScreen(TwipPoint position, TwipSize window, TwipSize screen) {
  TwipPoint kept = position;
  if (position.left < -kEdgeToleranceTwips) {
    kept.left = 0;
  } else if (position.left + window.width > screen.width) {
    kept.left = screen.width - (window.width - kOverhangTwips);
  }
  if (position.top < -kEdgeToleranceTwips) {
    kept.top = -kEdgeToleranceTwips;
  } else if (position.top > screen.height - window.height) {
    kept.top = screen.height - (window.height - kOverhangTwips);
  }
  return kept;
}

bool IsReachable(TwipPoint position, TwipSize window, TwipSize screen) {
  const std::int64_t left = position.left;
  const std::int64_t top = position.top;
  return left + window.width > 220 && left < screen.width - 440 && top + window.height > 330 &&
         top < screen.height - 660;
}

TwipPoint FallbackPosition(TwipSize window, TwipSize screen) {
  return {screen.width - window.width - kFallbackMarginTwips, kFallbackMarginTwips};
}

int PadWidth(int margin, int displayWidth) {
  return 2 * margin + displayWidth;
}

int HistoryWidth(int tabLeft, int tabWidth, int margin) {
  return tabLeft + tabWidth + margin;
}

TwipPoint FitWidened(TwipPoint position, TwipSize window, TwipSize screen) {
  if (position.left + window.width <= screen.width) return position;
  const int left = screen.width - window.width;
  // A little may hang out on the left; a window that would hang out farther starts inside instead.
  return {left < -kWidenedOverhangTwips ? kWidenedOverhangTwips : left, position.top};
}

}  // namespace orvane
