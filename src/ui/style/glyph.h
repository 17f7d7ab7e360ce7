#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace orvane {

// The program's pictures, drawn as shapes so that they are sharp at every scale.
enum class Glyph {
  kHandset,
  kHandsetDown,
  kClear,
  kClose,
  kRedial,
  kClipboard,
  kHistory,
  kGear,
  kLogo,
  kInternal,
  kExternal,
  kArrowDown,
  kArrowUp,
  kArrowRight,
  kCheckMark,
  kWarning,
  kStop,
};

// Draws the picture in one colour into the largest square centred in `bounds`.
void PaintGlyph(QPainter& painter, Glyph glyph, const QRectF& bounds, const QColor& colour);

}  // namespace orvane
