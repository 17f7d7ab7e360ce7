#include "ui/style/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyleOption>
#include <QToolTip>
#include <algorithm>

namespace orvane {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  // Names from the host are text, never markup.
  setTextFormat(Qt::PlainText);
}

void ElidedLabel::SetLineCount(int count) {
  lineCount_ = count;
  updateGeometry();
}

QStringList ElidedLabel::Lines() const {
  QString unified = text();
  unified.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  unified.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  return unified.split(QLatin1Char('\n'));
}

QSize ElidedLabel::sizeHint() const {
  int widest = 0;
  for (const QString& line : Lines()) {
    widest = std::max(widest, fontMetrics().horizontalAdvance(line));
  }
  return {widest + 2, lineCount_ * fontMetrics().lineSpacing()};
}

QSize ElidedLabel::minimumSizeHint() const {
  return {0, sizeHint().height()};
}

bool ElidedLabel::Fits() const {
  const QStringList lines = Lines();
  return lines.size() <= lineCount_ && std::ranges::all_of(lines, [this](const QString& line) {
           return fontMetrics().horizontalAdvance(line) <= width();
         });
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || Fits()) return QLabel::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  QToolTip::showText(help->globalPos(),
                     QStringLiteral("<p style='white-space:pre-wrap'>%1</p>")
                         .arg(Lines().join(QLatin1Char('\n')).toHtmlEscaped()),
                     this);
  return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QStyleOption option;
  option.initFrom(this);
  QPainter painter(this);
  style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
  QStringList lines = Lines();
  if (lines.size() > lineCount_) {
    lines = lines.mid(0, lineCount_);
    lines.last() += QStringLiteral(" …");
  }
  QRect row(0, 0, width(), fontMetrics().lineSpacing());
  for (const QString& line : lines) {
    const QString shown = fontMetrics().elidedText(line, Qt::ElideRight, width());
    style()->drawItemText(&painter, row, static_cast<int>(alignment()), palette(), isEnabled(),
                          shown, foregroundRole());
    row.translate(0, row.height());
  }
}

}  // namespace orvane
