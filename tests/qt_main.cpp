#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
#ifndef _WIN32
  // Tests are also listed where there is no display.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  // The last window of a test must not end the boxes of the next one.
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
