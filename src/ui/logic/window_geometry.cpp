#include "ui/logic/window_geometry.h"

#include <cstdint>

namespace orvane {
namespace {

constexpr int kEdgeToleranceTwips = 15;
constexpr int kOverhangTwips = 20;
constexpr int kFallbackMarginTwips = 900;

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

}  // namespace orvane
