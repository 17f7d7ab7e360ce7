#include "ui/dial/keypad_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "ui/style/palette.h"

namespace orvane {
namespace {

constexpr int kLettersGap = 6;
constexpr int kSmallestLettersPixels = 8;

}  // namespace

KeypadButton::KeypadButton(QWidget* parent, const QString& caption, const QString& letters)
    : CommandButton(parent), letters_(letters) {
  setText(caption);
}

QFont KeypadButton::LettersFont() const {
  QFont small = font();
  small.setPixelSize(std::max(kSmallestLettersPixels, fontInfo().pixelSize() / 2));
  small.setLetterSpacing(QFont::AbsoluteSpacing, 0.6);
  return small;
}

QSize KeypadButton::sizeHint() const {
  const int width = fontMetrics().horizontalAdvance(text()) + 2 * kLettersGap +
                    QFontMetrics(LettersFont()).horizontalAdvance(QStringLiteral("WXYZ"));
  return {width + 12, fontMetrics().height() + 10};
}

void KeypadButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  painter.drawControl(QStyle::CE_PushButton, option);

  const QFontMetrics digits = fontMetrics();
  const QFontMetrics small(LettersFont());
  const int captionWidth = digits.horizontalAdvance(text());
  // In the compact view's row there is room for the character alone.
  const int lettersRoom = kLettersGap + small.horizontalAdvance(letters_);
  const bool lettersFit = !letters_.isEmpty() && captionWidth + lettersRoom < width();
  const int lettersWidth = lettersFit ? lettersRoom : 0;
  const int left = (width() - captionWidth - lettersWidth) / 2;
  const Palette colours = CurrentPalette();
  painter.setPen(isEnabled() ? colours.text : colours.disabledText);
  painter.drawText(QRect(left, 0, captionWidth, height()), Qt::AlignCenter, text());
  if (!lettersFit) return;
  painter.setPen(isEnabled() ? colours.mutedText : colours.disabledText);
  painter.setFont(LettersFont());
  painter.drawText(QRect(left + captionWidth + kLettersGap, 1, lettersWidth, height()),
                   Qt::AlignVCenter | Qt::AlignLeft, letters_);
}

}  // namespace orvane
