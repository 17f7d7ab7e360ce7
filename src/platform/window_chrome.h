#pragma once

#include <functional>

namespace orvane {

// Places in the stacking order; any other number is the top of the windows that are not topmost.
inline constexpr int kTopmost = -1;
inline constexpr int kNotTopmost = 0;

// What a window without a system frame needs of the system.
class WindowChrome {
 public:
  virtual ~WindowChrome() = default;

  // False when the system refused.
  virtual bool SetTopmost(int flag, bool noActivate) = 0;
  virtual void AddDropShadow() = 0;
  // Cuts the window to a rounded rectangle, corner ellipses of the given size; all in pixels of 15
  // twips.
  virtual void SetRoundedRegion(int width, int height, int ellipse) = 0;
  // Lets the user move the window with the pressed mouse button; `finished` runs when he lets go.
  virtual void Drag(std::function<void()> finished) = 0;
};

}  // namespace orvane
