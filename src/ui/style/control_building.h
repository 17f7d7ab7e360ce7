#pragma once

#include <QFrame>
#include <QLineEdit>
#include <algorithm>

#include "ui/style/elided_label.h"
#include "ui/style/glyph_icon.h"
#include "ui/style/icon_button.h"
#include "ui/style/style_sheet.h"

namespace orvane {

inline constexpr int kToolSide = 32;
inline constexpr int kToolIconSide = 17;

// Names a control, or one of several alike: "cmdNr_7".
void Name(QWidget& widget, const char* name);
void Name(QWidget& widget, const char* name, std::size_t index);

// Tooltip and accessible name.
void Describe(QWidget& control, const char* text);

// As high as designed, or higher where the font needs it.
void AtLeastHigh(QWidget& control, int height);

QFrame* NewPanel(QWidget& parent, const char* name, const char* role);
ElidedLabel* NewLabel(QWidget& parent, const char* role);

template <typename Button>
Button* NewIconButton(QWidget& parent, const char* name, const char* role, Glyph glyph,
                      QColor Palette::*colour, const char* description) {
  auto* button = new Button(&parent);
  Name(*button, name);
  button->setIcon(GlyphIcon(glyph, colour));
  button->setIconSize(QSize(kToolIconSide, kToolIconSide));
  button->setFixedSize(kToolSide, kToolSide);
  SetRole(*button, role);
  Describe(*button, description);
  return button;
}

// The button inside a text field that empties it.
IconButton* NewClearButton(QLineEdit& field, const char* name, const char* description);

}  // namespace orvane
