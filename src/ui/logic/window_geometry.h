#pragma once

#include <span>

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

// One of the desktop's screens. Its origin is that of the whole desktop, as is a window's position.
struct TwipScreen {
  TwipPoint origin;
  TwipSize size;
  bool operator==(const TwipScreen&) const = default;
};

// The screen that shows most of a window at this position, the first of equals. Null when none
// shows any of it.
const TwipScreen* ScreenShowing(TwipPoint position, TwipSize window,
                                std::span<const TwipScreen> screens);

// Where a window goes that was moved off its screen. Not symmetrical on purpose: it snaps to the
// left edge and just above the top one, and may hang over the right and bottom ones a little.
TwipPoint KeepOnScreen(TwipPoint position, TwipSize window, const TwipScreen& screen);

// Whether enough of a window shows at this position that the user can take hold of it. The position
// may be any stored number.
bool IsReachable(TwipPoint position, TwipSize window, const TwipScreen& screen);

// Where a window opens that has no usable saved position: near the top right corner.
TwipPoint FallbackPosition(TwipSize window, const TwipScreen& screen);

// Width of the information panel around the dial pad alone, and when it reaches past the call
// history; the window follows the panel.
int PadWidth(int margin, int displayWidth);
int HistoryWidth(int tabLeft, int tabWidth, int margin);

// Where a window goes that was widened: its right edge stays on the screen, and its left edge where
// that is possible.
TwipPoint FitWidened(TwipPoint position, TwipSize window, const TwipScreen& screen);

}  // namespace orvane
