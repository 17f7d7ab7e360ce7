#include "platform/desktop/qt_prompts.h"

#include <QApplication>
#include <QPushButton>
#include <utility>

namespace orvane {
namespace {

QMessageBox::Icon BoxIcon(PromptIcon icon) {
  switch (icon) {
    case PromptIcon::kStop:
      return QMessageBox::Critical;
    case PromptIcon::kExclamation:
      return QMessageBox::Warning;
    case PromptIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

// The ordinary pointer while it lives: who waits for an answer is not busy.
class OrdinaryPointer {
 public:
  OrdinaryPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~OrdinaryPointer() { QApplication::restoreOverrideCursor(); }
  OrdinaryPointer(const OrdinaryPointer&) = delete;
  OrdinaryPointer& operator=(const OrdinaryPointer&) = delete;
};

}  // namespace

void QtPrompts::ShowBox(PromptIcon icon, const QString& text, Qt::TextFormat format,
                        const QString& title) {
  if (dismissed_) return;
  QWidget* window = QApplication::activeWindow();
  QWidget* parent = window != nullptr && window->isVisible() ? window : nullptr;
  // The parent may be closed and destroyed by an event while the box is up, and the box with it.
  const QPointer<QMessageBox> box = new QMessageBox(parent);
  box->setIcon(BoxIcon(icon));
  box->setTextFormat(format);
  box->setText(text);
  box->setWindowTitle(title);
  box->setStandardButtons(QMessageBox::Ok);
  box->button(QMessageBox::Ok)->setText(QStringLiteral("OK"));
  // Otherwise the box would open behind the dial window, which is always on top.
  box->setWindowFlag(Qt::WindowStaysOnTopHint);
  const OrdinaryPointer pointer;
  open_.push_back(box);
  box->exec();
  std::erase(open_, box);
  delete box.data();
}

void QtPrompts::Dismiss() {
  dismissed_ = true;
  // Closing one lets the procedure go on that has shown it.
  for (const auto& box : std::exchange(open_, {})) {
    if (box) box->reject();
  }
}

void QtPrompts::ShowMessage(PromptIcon icon, const std::string& text, const std::string& title) {
  QString lines = QString::fromStdString(text);
  lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  ShowBox(icon, lines, Qt::PlainText, QString::fromStdString(title));
}

void QtPrompts::ShowMarkup(PromptIcon icon, const std::string& markup, const std::string& title) {
  ShowBox(icon, QString::fromStdString(markup), Qt::RichText, QString::fromStdString(title));
}

void QtPrompts::Beep() {
  QApplication::beep();
}

void QtPrompts::SetBusyCursor(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace orvane
