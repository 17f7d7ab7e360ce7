#pragma once

namespace orvane {

// Window geometry is stored and reckoned in twips, 15 to one device-independent pixel at every
// scale.
inline constexpr int kTwipsPerPixel = 15;

// Windows lower than this are in the compact view.
inline constexpr int kCompactHeightLimitTwips = 999;

struct TwipPoint {
  int left = 0;
  int top = 0;
  bool operator==(const TwipPoint&) const = default;
};

struct TwipSize {
  int width = 0;
  int height = 0;
  bool operator==(const TwipSize&) const = default;
};

// Where a window goes that was moved off the screen. Not symmetrical on purpose: it snaps to the
// left edge and just above the top one, and may hang over the right and bottom ones a little.
TwipPoint KeepOnScreen(TwipPoint position, TwipSize window, TwipSize screen);

// Whether enough of a window shows at this position that the user can take hold of it. The position
// may be any stored number.
bool IsReachable(TwipPoint position, TwipSize window, TwipSize screen);

// Where a window opens that has no usable saved position: near the top right corner.
TwipPoint FallbackPosition(TwipSize window, TwipSize screen);

// Width of the information panel around the dial pad alone, and when it reaches past the call
// history; the window follows the panel.
int PadWidth(int margin, int displayWidth);
int HistoryWidth(int tabLeft, int tabWidth, int margin);

// Where a window goes that was widened: its right edge stays on the screen, and its left edge where
// that is possible.
TwipPoint FitWidened(TwipPoint position, TwipSize window, TwipSize screen);

}  // namespace orvane
