#include "ui/logic/window_geometry.h"

#include <algorithm>
#include <cstdint>

namespace orvane {
namespace {

constexpr int kEdgeToleranceTwips = 15;
constexpr int kOverhangTwips = 20;
constexpr int kFallbackMarginTwips = 900;
constexpr int kWidenedOverhangTwips = 30;

// What two stretches have in common. Positions may be any stored number, hence the wide type.
std::int64_t Overlap(std::int64_t start, int length, std::int64_t otherStart, int otherLength) {
  const std::int64_t end = std::min(start + length, otherStart + otherLength);
  return std::max<std::int64_t>(0, end - std::max(start, otherStart));
}

}  // namespace

const TwipScreen* ScreenShowing(TwipPoint position, TwipSize window,
                                std::span<const TwipScreen> screens) {
  const TwipScreen* best = nullptr;
  std::int64_t shown = 0;
  for (const TwipScreen& screen : screens) {
    const std::int64_t area =
        Overlap(position.left, window.width, screen.origin.left, screen.size.width) *
        Overlap(position.top, window.height, screen.origin.top, screen.size.height);
    if (area <= shown) continue;
    best = &screen;
    shown = area;
  }
  return best;
}

TwipPoint KeepOnScreen(TwipPoint position, TwipSize window, const TwipScreen& screen) {
  TwipPoint kept = {position.left - screen.origin.left, position.top - screen.origin.top};
  if (kept.left < -kEdgeToleranceTwips) {
    kept.left = 0;
  } else if (kept.left + window.width > screen.size.width) {
    kept.left = screen.size.width - (window.width - kOverhangTwips);
  }
  if (kept.top < -kEdgeToleranceTwips) {
    kept.top = -kEdgeToleranceTwips;
  } else if (kept.top > screen.size.height - window.height) {
    kept.top = screen.size.height - (window.height - kOverhangTwips);
  }
  return {kept.left + screen.origin.left, kept.top + screen.origin.top};
}

bool IsReachable(TwipPoint position, TwipSize window, const TwipScreen& screen) {
  const std::int64_t left = std::int64_t{position.left} - screen.origin.left;
  const std::int64_t top = std::int64_t{position.top} - screen.origin.top;
  return left + window.width > 220 && left < screen.size.width - 440 && top + window.height > 330 &&
         top < screen.size.height - 660;
}

TwipPoint FallbackPosition(TwipSize window, const TwipScreen& screen) {
  return {screen.origin.left + screen.size.width - window.width - kFallbackMarginTwips,
          screen.origin.top + kFallbackMarginTwips};
}

int PadWidth(int margin, int displayWidth) {
  return 2 * margin + displayWidth;
}

int HistoryWidth(int tabLeft, int tabWidth, int margin) {
  return tabLeft + tabWidth + margin;
}

TwipPoint FitWidened(TwipPoint position, TwipSize window, const TwipScreen& screen) {
  if (position.left - screen.origin.left + window.width <= screen.size.width) return position;
  const int left = screen.size.width - window.width;
  // A little may hang out on the left; a window that would hang out farther starts inside instead.
  return {screen.origin.left + (left < -kWidenedOverhangTwips ? kWidenedOverhangTwips : left),
          position.top};
}

}  // namespace orvane
