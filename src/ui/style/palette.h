#pragma once

#include <QColor>
#include <QPalette>
#include <vector>

namespace orvane {

// The program's colours. Each text colour reaches a contrast of 4.5 to 1 on the grounds that
// TextPairs names for it.
struct Palette {
  QColor frame;
  QColor onFrame;
  QColor frameHover;
  QColor ground;
  QColor strip;
  // Headings within a list.
  QColor band;
  QColor field;
  QColor fieldHover;
  QColor border;
  QColor text;
  QColor mutedText;
  QColor disabledText;
  QColor disabledField;
  QColor heading;
  QColor selection;
  QColor focus;
  QColor good;
  QColor problem;
  // Markers: drawn shapes without text.
  QColor internalMarker;
  QColor externalMarker;
  QColor logo;
  QColor dial;
  QColor dialHover;
  QColor dialPressed;
  QColor hangUp;
  QColor hangUpHover;
  QColor hangUpPressed;
  QColor onCommand;
  QColor commandFocus;
  QColor log;
  QColor onLog;
  QColor onLogMuted;
};

Palette LightPalette();
Palette DarkPalette();

// The variant that fits the desktop's own colours.
Palette PaletteFor(const QPalette& desktop);

// The variant for the application as it stands now.
Palette CurrentPalette();

// A text colour and a ground that it stands on.
struct TextPair {
  const char* use;
  QColor text;
  QColor ground;
};
std::vector<TextPair> TextPairs(const Palette& palette);

}  // namespace orvane
