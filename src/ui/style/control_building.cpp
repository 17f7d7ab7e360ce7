#include "ui/style/control_building.h"

#include <QBoxLayout>

namespace orvane {
namespace {

constexpr int kClearSide = 22;

}  // namespace

void Name(QWidget& widget, const char* name) {
  widget.setObjectName(QString::fromLatin1(name));
}

void Name(QWidget& widget, const char* name, std::size_t index) {
  widget.setObjectName(QStringLiteral("%1_%2").arg(QString::fromLatin1(name)).arg(index));
}

void Describe(QWidget& control, const char* text) {
  const QString description = QString::fromUtf8(text);
  control.setToolTip(description);
  control.setAccessibleName(description);
}

void AtLeastHigh(QWidget& control, int height) {
  control.setMinimumHeight(std::max(height, control.sizeHint().height()));
}

QFrame* NewPanel(QWidget& parent, const char* name, const char* role) {
  auto* panel = new QFrame(&parent);
  if (name != nullptr) Name(*panel, name);
  panel->setFrameShape(QFrame::NoFrame);
  SetRole(*panel, role);
  return panel;
}

ElidedLabel* NewLabel(QWidget& parent, const char* role) {
  auto* label = new ElidedLabel(&parent);
  if (role != nullptr) SetRole(*label, role);
  return label;
}

IconButton* NewClearButton(QLineEdit& field, const char* name, const char* description) {
  auto* button = NewIconButton<IconButton>(field, name, role::kFieldButton, Glyph::kClear,
                                           &Palette::mutedText, description);
  button->setIconSize(QSize(14, 14));
  button->setFixedSize(kClearSide, kClearSide);
  button->setCursor(Qt::ArrowCursor);
  field.setTextMargins(0, 0, kClearSide, 0);
  auto* inside = new QHBoxLayout(&field);
  inside->setContentsMargins(0, 0, 4, 0);
  inside->addStretch();
  inside->addWidget(button);
  return button;
}

}  // namespace orvane
