// What the toolkit alone costs: a window of the dialer's size with nothing in it.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.setWindowTitle(QStringLiteral("Empty window"));
  window.resize(318, 541);
  window.show();
  return QApplication::exec();
}
