#include "ui/style/palette.h"

#include <QGuiApplication>

namespace orvane {
namespace {

constexpr QRgb kPetrol = 0xff1d4e6b;
constexpr QRgb kWhite = 0xffffffff;

// The dial and hang-up faces carry white text in both variants. The green is a shade below the
// marker's #1f9d63, on which white would be too faint to read.
void SetCommandColours(Palette& palette) {
  palette.dial = QColor(0x1a, 0x85, 0x53);
  palette.dialHover = QColor(0x16, 0x78, 0x4a);
  palette.dialPressed = QColor(0x12, 0x65, 0x3e);
  palette.hangUp = QColor(0xc8, 0x41, 0x3b);
  palette.hangUpHover = QColor(0xb6, 0x38, 0x32);
  palette.hangUpPressed = QColor(0x9d, 0x2f, 0x2a);
  palette.onCommand = QColor::fromRgb(kWhite);
  palette.logo = QColor(0x7f, 0xd1, 0xa8);
}

}  // namespace

Palette LightPalette() {
  Palette light;
  light.frame = QColor::fromRgb(kPetrol);
  light.onFrame = QColor::fromRgb(kWhite);
  light.frameHover = QColor(0x2f, 0x67, 0x88);
  light.ground = QColor(0xf5, 0xf7, 0xfa);
  light.strip = QColor(0xe8, 0xee, 0xf3);
  light.band = QColor(0xee, 0xf2, 0xf9);
  light.field = QColor::fromRgb(kWhite);
  light.fieldHover = QColor(0xeb, 0xf3, 0xf8);
  light.border = QColor(0xb4, 0xc2, 0xcd);
  light.text = QColor(0x1b, 0x2a, 0x35);
  light.mutedText = QColor(0x52, 0x64, 0x72);
  light.disabledText = QColor(0x5a, 0x69, 0x74);
  light.disabledField = QColor(0xee, 0xf1, 0xf4);
  light.heading = QColor::fromRgb(kPetrol);
  light.selection = QColor(0xd6, 0xe7, 0xf1);
  light.focus = QColor::fromRgb(kPetrol);
  light.good = QColor(0x16, 0x72, 0x47);
  light.problem = QColor(0xa3, 0x30, 0x2b);
  light.internalMarker = QColor(0xc9, 0x8a, 0x12);
  light.externalMarker = QColor(0x1f, 0x9d, 0x63);
  SetCommandColours(light);
  light.commandFocus = QColor(0x0b, 0x22, 0x31);
  light.log = QColor(0x16, 0x30, 0x3f);
  light.onLog = QColor(0xe3, 0xed, 0xf3);
  light.onLogMuted = QColor(0x9f, 0xb6, 0xc4);
  return light;
}

Palette DarkPalette() {
  Palette dark;
  dark.frame = QColor::fromRgb(kPetrol);
  dark.onFrame = QColor::fromRgb(kWhite);
  dark.frameHover = QColor(0x2f, 0x67, 0x88);
  dark.ground = QColor(0x15, 0x22, 0x2b);
  dark.strip = QColor(0x1b, 0x2c, 0x37);
  dark.band = QColor(0x26, 0x3b, 0x49);
  dark.field = QColor(0x1f, 0x32, 0x3f);
  dark.fieldHover = QColor(0x29, 0x41, 0x51);
  dark.border = QColor(0x4a, 0x66, 0x77);
  dark.text = QColor(0xe4, 0xed, 0xf3);
  dark.mutedText = QColor(0xa9, 0xbc, 0xc8);
  dark.disabledText = QColor(0xa0, 0xb2, 0xbe);
  dark.disabledField = QColor(0x1a, 0x2a, 0x34);
  dark.heading = QColor(0x9f, 0xd0, 0xea);
  dark.selection = QColor(0x27, 0x4d, 0x66);
  dark.focus = QColor(0x9f, 0xd0, 0xea);
  dark.good = QColor(0x6f, 0xd3, 0xa3);
  dark.problem = QColor(0xff, 0x9d, 0x96);
  dark.internalMarker = QColor(0xe6, 0xb0, 0x4c);
  dark.externalMarker = QColor(0x4f, 0xc4, 0x8e);
  SetCommandColours(dark);
  dark.commandFocus = QColor::fromRgb(kWhite);
  dark.log = QColor(0x0e, 0x1b, 0x24);
  dark.onLog = QColor(0xdb, 0xe7, 0xee);
  dark.onLogMuted = QColor(0x8e, 0xa7, 0xb6);
  return dark;
}

Palette PaletteFor(const QPalette& desktop) {
  const bool dark =
      desktop.color(QPalette::Window).lightness() < desktop.color(QPalette::WindowText).lightness();
  return dark ? DarkPalette() : LightPalette();
}

Palette CurrentPalette() {
  return PaletteFor(QGuiApplication::palette());
}

std::vector<TextPair> TextPairs(const Palette& p) {
  return {
      {"title", p.onFrame, p.frame},
      {"title button under the pointer", p.onFrame, p.frameHover},
      {"close button under the pointer", p.onFrame, p.hangUp},
      {"close button, pressed", p.onFrame, p.hangUpPressed},
      {"title button, default command pressed", p.onFrame, p.log},
      {"text", p.text, p.ground},
      {"text on the number strip", p.text, p.strip},
      {"field", p.text, p.field},
      {"field under the pointer", p.text, p.fieldHover},
      {"selected", p.text, p.selection},
      {"keypad letters", p.mutedText, p.field},
      {"keypad letters under the pointer", p.mutedText, p.fieldHover},
      {"keypad letters, pressed", p.mutedText, p.selection},
      {"disabled", p.disabledText, p.ground},
      {"disabled field", p.disabledText, p.disabledField},
      {"disabled list entry", p.disabledText, p.field},
      {"heading", p.heading, p.field},
      {"group title, chosen page", p.heading, p.ground},
      {"title over a covered group", p.heading, p.strip},
      {"icon", p.heading, p.field},
      {"icon, pressed", p.heading, p.selection},
      {"list heading", p.heading, p.band},
      {"count in a list heading", p.mutedText, p.band},
      {"selected list heading", p.heading, p.selection},
      {"disabled list heading", p.disabledText, p.band},
      {"column title", p.mutedText, p.ground},
      {"tab", p.mutedText, p.strip},
      {"tab under the pointer", p.text, p.fieldHover},
      {"ready", p.good, p.field},
      {"problem", p.problem, p.field},
      {"dial", p.onCommand, p.dial},
      {"dial under the pointer", p.onCommand, p.dialHover},
      {"dial pressed", p.onCommand, p.dialPressed},
      {"hang up", p.onCommand, p.hangUp},
      {"hang up under the pointer", p.onCommand, p.hangUpHover},
      {"hang up pressed", p.onCommand, p.hangUpPressed},
      {"log", p.onLog, p.log},
      {"selected in the progress of a test call", p.log, p.onLogMuted},
      {"version", p.onLogMuted, p.log},
  };
}

}  // namespace orvane
