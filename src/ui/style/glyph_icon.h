#pragma once

#include <QIcon>

#include "ui/style/glyph.h"
#include "ui/style/palette.h"

namespace orvane {

// An icon in one of the palette's colours; it follows the desktop between light and dark, and takes
// the colour of disabled text on a disabled control.
QIcon GlyphIcon(Glyph glyph, QColor Palette::*colour);

// The pictures of the dial buttons: a green handset and a red one, each on a white disc.
QIcon DialPicture();
QIcon HangUpPicture();

}  // namespace orvane
